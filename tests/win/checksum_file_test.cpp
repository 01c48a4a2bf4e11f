#include <functional>
#include <vector>

#include "hash/checksum.h"
#include "hash/crc32.h"
#include "platform/win32/win32_base.h"
#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

// A pump that does what a click during a checksum might do.
class ClickingLoop final : public EventLoop {
public:
    std::function<void()> onPump;
    void pump() override {
        if (onPump) onPump();
        onPump = nullptr;
    }
    std::uint32_t queueStatus(std::uint32_t) override { return 0x00040004; }
    void waitForInput() override { pump(); }
    int run() override { return 0; }
    void quit(int) override {}
};

class ChecksumFile : public WinTest {
protected:
    ChecksumFile() {
        ctx.readBuffer = 65536;
        ctx.algoName = "CRC32";
    }
    std::string crcText(const std::string& content) {
        const auto* p = reinterpret_cast<const std::uint8_t*>(content.data());
        return hash::hexText(~hash::crc32Update(0xFFFFFFFFu, p, content.size()));
    }
    ClickingLoop clicks;
    AppContext ctx{{files, profiles, shell, boxes, processes, clicks, renderer, registry, clock, windows, power, shortcuts}};
};

TEST_F(ChecksumFile, FileOverFourGigabytesIsHashedWhole) {
    const std::string big = path("big.bin");
    {
        HANDLE file = ::CreateFileA(big.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        LARGE_INTEGER at;
        at.QuadPart = (1LL << 32) + 5;
        ::SetFilePointerEx(file, at, nullptr, FILE_BEGIN);
        DWORD written = 0;
        ::WriteFile(file, "tail bytes", 10, &written, nullptr);
        ::CloseHandle(file);
    }
    std::vector<std::uint8_t> zeros(1 << 20, 0);
    std::uint32_t state = 0xFFFFFFFFu;
    for (int i = 0; i < 4096; ++i) state = hash::crc32Update(state, zeros.data(), zeros.size());
    state = hash::crc32Update(state, zeros.data(), 5);
    state = hash::crc32Update(state, reinterpret_cast<const std::uint8_t*>("tail bytes"), 10);
    ctx.readBuffer = 524288;
    EXPECT_EQ(hash::getChecksum(ctx, big), hash::hexText(~state));
    files.remove(big);
}

TEST_F(ChecksumFile, LockedFileGivesZeroAndNoDigest) {
    writeFile("locked.dll", "content");
    FileLock lock(path("locked.dll"));
    ASSERT_TRUE(lock.held());
    EXPECT_EQ(hash::getChecksum(ctx, path("locked.dll")), "0");
    ctx.algoName = "MD5";
    EXPECT_EQ(hash::getChecksum(ctx, path("locked.dll")), "");
}

TEST_F(ChecksumFile, FileDeletedWhileHashedIsHashedAsOpened) {
    const std::string content(200000, 'x');
    writeFile("going.dll", content);
    clicks.onPump = [&] { files.remove(path("going.dll")); };
    EXPECT_EQ(hash::getChecksum(ctx, path("going.dll")), crcText(content));
}

TEST_F(ChecksumFile, FileCutShortWhileHashedCountsTheLostBytesAsZeros) {
    writeFile("shrinking.dll", std::string(200000, 'y'));
    clicks.onPump = [&] {
        HANDLE file = ::CreateFileA(path("shrinking.dll").c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
        LARGE_INTEGER at;
        at.QuadPart = 100000;
        ::SetFilePointerEx(file, at, nullptr, FILE_BEGIN);
        ::SetEndOfFile(file);
        ::CloseHandle(file);
    };
    EXPECT_EQ(hash::getChecksum(ctx, path("shrinking.dll")),
              crcText(std::string(100000, 'y') + std::string(100000, '\0')));
}

}  // namespace
}  // namespace tv::test
