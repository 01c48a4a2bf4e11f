// A log-on run's work on a data file that no healthy program wrote: the load,
// the six passes looking up every file of the system directory, the new values
// written into the baseline in memory, the save beside the backup and the load
// again. The bytes held at the peak of the run are counted; each case states
// its bound as a multiple of the file's size. The fake disk is part of the
// count: it holds the backup, the new file and, for a moment, a copy of the
// file being read, which the real disk would hold instead.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/settings_store.h"
#include "core/text.h"
#include "hash/checksum.h"
#include "integrity/compare_pass.h"
#include "integrity/data_file.h"
#include "integrity/data_file_text.h"
#include "integrity/scan_passes.h"
#include "integrity/scan_window.h"
#include "tests/core/fakes.h"
#include "tests/memory/counted_memory.h"

namespace tv {
namespace {

constexpr const char* kSystem = "C:\\WINDOWS\\SYSTEM32\\";
constexpr std::size_t kTwentyMiB = 20u << 20;
constexpr const char* kSections[] = {"DLL", "DRV", "386", "SYS", "OCX", "EXE", "COM", "PIF", "SCR"};

std::string sectionsAfter(std::string first) {
    std::string text = std::string(kDataFileHeader) + first;
    for (int n = 1; n < kSectionCount; ++n) text += std::string("[") + kSections[n] + "]\r\nNULL*E\r\n";
    return text;
}

class HostileDataFile : public ::testing::Test {
protected:
    HostileDataFile() {
        os.files.folders = {"C:\\T", "C:\\T\\DATA", "C:\\WINDOWS", "C:\\WINDOWS\\SYSTEM32"};
        ctx.appPath = "C:\\T\\";
        ctx.intFile = "C:\\T\\Data\\Integrity.dat";
        ctx.algoName = "crc32";
        ctx.readBuffer = 65536;
        for (int i = 0; i < 20; ++i) os.files.put(kSystem + name(i), "content " + std::to_string(i));
        os.files.put(std::string(kSystem) + "new.exe", "new");
        window.pb2max.setCaption("21");
    }
    static std::string name(int i) {
        std::string digits = std::to_string(i);
        return "f" + std::string(6 - digits.size(), '0') + digits + ".dll";
    }
    std::string crcOf(int i) { return hash::getChecksum(ctx, kSystem + name(i)); }

    // The run over `file` as the data file: the bytes held at its peak beyond
    // those held before, per byte of the file.
    double peakPerByte(std::string file) {
        const double size = static_cast<double>(file.size());
        os.files.put(ctx.intFile, std::move(file));
        test::startPeak();
        const std::size_t before = test::heldBytes();
        logOnRun();
        return static_cast<double>(test::peakHeldBytes() - before) / size;
    }
    void logOnRun() {
        loadIntFile(ctx, ctx.intFile);
        for (int pass = 0; pass < kPassCount; ++pass) {
            ctx.scan.passType = static_cast<std::int16_t>(pass + 1);
            integrityChecker2(ctx, window, kScanPasses[pass].ext1, kScanPasses[pass].ext2);
        }
        for (std::string item : window.List1.items()) {
            item = replaceText(item, " *NEW*", "");
            const std::string bare = item.substr(item.find_last_of('\\') + 1);
            writeEntry(ctx, ctx.intFile, bare, hash::getChecksum(ctx, item) + "*E", upperCase(rightText(item, 3)));
        }
        saveIntFile(ctx);
        loadIntFile(ctx, ctx.intFile);
    }
    const std::string& saved() { return *os.files.content(ctx.intFile); }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::ScanWindow window;
};

TEST_F(HostileDataFile, TwentyMebibytesOfRandomBytesEndSilently) {
    std::mt19937 random(17);
    std::string bytes(kTwentyMiB, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    ASSERT_LT(splitDataFile(bytes).blockCount, kSectionCount);  // every block is kept
    const std::string expected = std::string(kDataFileHeader) + bytes.substr(bytes.find('['));

    EXPECT_LE(peakPerByte(std::move(bytes)), 6.0);
    EXPECT_EQ(window.List1.items().size(), 21u);  // no section of these names: every file is new
    EXPECT_TRUE(saved() == expected);             // nothing to write them into: the text stays
}

TEST_F(HostileDataFile, OneLineOfTwentyMebibytesOfEqualsSignsStaysAsItIs) {
    const std::string line(kTwentyMiB, '=');
    EXPECT_LE(peakPerByte(sectionsAfter("[DLL]\r\n" + line + "*E\r\nNULL*E\r\n")), 6.0);
    EXPECT_EQ(window.List1.items().size(), 21u);
    std::string expected = "[DLL]\r\n" + line + "*E\r\n";
    for (int i = 0; i < 20; ++i) expected += name(i) + "=" + crcOf(i) + "*E\r\n";
    EXPECT_TRUE(saved().starts_with(std::string(kDataFileHeader) + expected + "NULL*E\r\n[DRV]"));
    EXPECT_EQ(ctx.section.text[0].entry(name(3)), crcOf(3));
}

TEST_F(HostileDataFile, TwoHundredThousandEntriesInOneSection) {
    std::string dll = "[DLL]\r\n";
    for (int i = 0; i < 200000; ++i) dll += name(i) + "=" + (i < 20 && i % 2 == 0 ? crcOf(i) : "NULL") + "*E\r\n";
    EXPECT_LE(peakPerByte(sectionsAfter(dll + "NULL*E\r\n")), 6.0);

    EXPECT_EQ(window.List1.items().size(), 11u);  // ten never checksummed, one not listed
    for (int i = 0; i < 20; ++i) EXPECT_EQ(ctx.section.text[0].entry(name(i)), crcOf(i)) << name(i);
    EXPECT_EQ(ctx.section.text[0].entry(name(199999)), "NULL");
    EXPECT_EQ(ctx.section.text[5].entry("NEW.EXE"), hash::getChecksum(ctx, std::string(kSystem) + "new.exe"));
    const std::string& file = saved();
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 2 + 1 + 200000 + 1 + 1 + 8 * 2);  // new.exe added
}

}  // namespace
}  // namespace tv
