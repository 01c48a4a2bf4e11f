// The checksum engines against published answers and against one another, the checksum text of a file and the
// page-aligned read buffer.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "hash/checksum.h"
#include "hash/crc16.h"
#include "hash/crc32.h"
#include "hash/crc_engine.h"
#include "hash/digests.h"
#include "hash/file_checksum.h"
#include "hash/read_buffer.h"
#include "tests/core/fakes.h"

namespace tv::hash {
namespace {

const std::uint8_t* bytes(const std::string& s) { return reinterpret_cast<const std::uint8_t*>(s.data()); }

std::string digestHex(DigestKind kind, const std::string& input, BlockFunction blocks = nullptr) {
    Digest d(kind, blocks);
    d.update(bytes(input), input.size());
    std::string text;
    for (auto b : d.finish()) text += {"0123456789abcdef"[b >> 4], "0123456789abcdef"[b & 15]};
    return text;
}

TEST(KnownAnswers, EveryEngineAndEveryFastForm) {
    std::string digits80;
    while (digits80.size() < 80) digits80 += "1234567890";
    for (const auto& [input, crc] : std::initializer_list<std::pair<std::string, std::uint32_t>>{
             {"123456789", 0xCBF43926u}, {"", 0u}, {"The quick brown fox jumps over the lazy dog", 0x414FA339u}})
        EXPECT_EQ(~crc32Update(0xFFFFFFFFu, bytes(input), input.size()), crc) << input;
    EXPECT_EQ(crc16Update(0, bytes("123456789"), 9), 0x31C3u);
    // Two blocks each; the one-block answers are the file checksums' below, and the fast forms follow the plainest.
    EXPECT_EQ(digestHex(DigestKind::Md4, digits80), "e33b4ddc9c38f2199c3e7b164fcc0536");
    EXPECT_EQ(digestHex(DigestKind::Md5, digits80), "57edf4a22be3c955ac49da2e2107b67a");
    EXPECT_EQ(digestHex(DigestKind::Sha1, "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq", sha1BlocksPortable),
              "84983e441c3bd26ebaae4aa1f95129e5e54670f1");
}

// Every fast form against the plainest one, over lengths around the block and folding boundaries, odd alignments, and
// each input split at random points.
TEST(KnownAnswers, FastFormsAndSplitInputsAgreeWithThePlainestForm) {
    std::mt19937 random(20261122);
    std::vector<std::uint8_t> data(70000);
    for (auto& b : data) b = static_cast<std::uint8_t>(random());
    std::vector<std::size_t> lengths{0, 1, 15, 16, 17, 55, 56, 63, 64, 65, 127, 128, 255, 256, 511, 512, 513, 1023, 4096, 65536};
    for (int i = 0; i < 40; ++i) lengths.push_back(random() % 69000);
    const auto cutsOf = [&](std::size_t length) {
        std::vector<std::size_t> cuts{0};
        while (cuts.back() < length) cuts.push_back(std::min(length, cuts.back() + 1 + random() % 700));
        return cuts;
    };
    std::vector<Crc32Function> crcForms{crc32Slice16, crc32Update};
    for (Crc32Function form : {crc32FoldXmm(), crc32FoldYmm()})
        if (form) crcForms.push_back(form);
    for (std::size_t length : lengths) {
        for (std::size_t offset : {0, 1, 7, 13}) {
            const std::uint8_t* p = data.data() + offset;
            const std::uint32_t expected = crc32Bytewise(0x12345678u, p, length);
            for (std::size_t f = 0; f < crcForms.size(); ++f) {
                ASSERT_EQ(crcForms[f](0x12345678u, p, length), expected) << f << " length " << length << "+" << offset;
                const auto cuts = cutsOf(length);
                std::uint32_t state = 0x12345678u;
                for (std::size_t i = 1; i < cuts.size(); ++i) state = crcForms[f](state, p + cuts[i - 1], cuts[i] - cuts[i - 1]);
                ASSERT_EQ(state, expected) << f << " split, length " << length;
            }
        }
        // Whole in the fastest form against pieces in the plainest.
        const std::string input(data.begin() + 3, data.begin() + 3 + length);
        for (DigestKind kind : {DigestKind::Md4, DigestKind::Md5, DigestKind::Sha1}) {
            Digest whole(kind), pieces(kind, kind == DigestKind::Sha1 ? sha1BlocksPortable : nullptr);
            whole.update(bytes(input), input.size());
            const auto cuts = cutsOf(length);
            for (std::size_t i = 1; i < cuts.size(); ++i) pieces.update(bytes(input) + cuts[i - 1], cuts[i] - cuts[i - 1]);
            ASSERT_EQ(whole.finish(), pieces.finish()) << length;
        }
    }
}

// The read buffer starts on a page boundary whatever the C runtime offers and can be written whole (the sanitizers
// watch the ends); a smaller size keeps its block.
TEST(Engines, ReadBufferStartsOnAPageAndHoldsWhatWasAskedFor) {
    ReadBuffer buffer;
    std::uint8_t* before = nullptr;
    for (std::size_t size : {1u, 4095u, 4097u, 65536u, 3000u, 1u << 22}) {
        std::uint8_t* data = buffer.get(size);
        ASSERT_TRUE(data && reinterpret_cast<std::uintptr_t>(data) % 4096 == 0) << size;
        std::memset(data, 0xA5, size);
        EXPECT_TRUE(size != 3000u || data == before);
        before = data;
    }
    EXPECT_EQ(buffer.get(SIZE_MAX - 100), nullptr);  // no wrap-around into a tiny block
}

class FileChecksum : public ::testing::Test {
protected:
    FileChecksum() {
        ctx.appPath = "C:\\T\\";
        ctx.readBuffer = 4;
    }
    std::string file(std::string content) {
        os.files.put("C:\\f.bin", std::move(content));
        return "C:\\f.bin";
    }
    std::string checksum(const char* algorithm, const std::string& content) {
        ctx.algoName = algorithm;
        return getChecksum(ctx, file(content));
    }
    test::FakePlatform os;
    AppContext ctx{os.set()};
};

TEST_F(FileChecksum, TextsByAlgorithmNameAndTheDataFilesTheyGoTo) {
    const std::pair<const char*, const char*> cases[] = {
        {"md5", "14418015260210791762141506312540225127114"},
        {"SHA1", "1691536254716129106186623711312080194108156208216157"},
        {"Md4", "16472112217533216829519310232122166114157"},
        {"crc32", "352441C2"}, {"", "352441C2"}, {" crc32 ", ""}, {"sha-1", ""}, {"x", ""}};
    for (const auto& [algorithm, text] : cases) EXPECT_EQ(checksum(algorithm, "abc"), text) << algorithm;
    EXPECT_EQ(checksum("crc32", "") + checksum("md5", "") + hexText(0x00ABCDEF), "0ABCDEF");
    const std::pair<const char*, const char*> names[] = {
        {" crc32 ", "Integrity.dat"}, {"sha-1", "Integrity-sha-1.dat"}, {" MD5", "Integrity-md5.dat"}};
    for (const auto& [algorithm, name] : names) {
        ctx.algoName = algorithm;
        setDatName(ctx);
        EXPECT_EQ(ctx.intFile, std::string("C:\\T\\Data\\") + name);
    }
    EXPECT_EQ(getCustomDat(ctx, 7), "C:\\T\\Data\\7-md5.dat");
    ctx.algoName = "";
    EXPECT_EQ(getCustomDat(ctx, 20), "C:\\T\\Data\\20.dat");
}

// A pump test after each full buffer but the last; a zero buffer becomes the default.
TEST_F(FileChecksum, OnePumpTestPerFullBufferAndAZeroBufferBecomesTheDefault) {
    os.loop.queueAnswer = 0x00040004;  // a mouse button is waiting
    CrcEngine crc;
    EXPECT_EQ(calculateFile2(ctx, crc, file("123456789")), static_cast<std::int32_t>(0xCBF43926u));
    calculateFile2(ctx, crc, file("12345678"));  // an exact multiple: the last full buffer is the tail
    EXPECT_EQ(std::make_pair(os.loop.statusQueries, os.loop.pumps), std::make_pair(3, 3));
    ctx.readBuffer = 0;
    EXPECT_EQ(checksum("crc32", "123456789"), "CBF43926");
    EXPECT_EQ(ctx.readBuffer, 65536);
    ctx.readBuffer = -1;
    EXPECT_EQ(checksum("crc32", "123456789"), "0");
}

}  // namespace
}  // namespace tv::hash
