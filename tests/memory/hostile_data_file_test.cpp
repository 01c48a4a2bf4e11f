// A log-on run's work on a data file that no healthy program wrote: the load, the six passes looking up every file of
// the system directory, the new values written into the baseline in memory, the save beside the backup and the load
// again. The bytes held at the peak of the run, the fake disk included (the backup, the new file and for a moment a
// copy of the file being read), stay within six times the file's size.
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

std::string name(int i) { return "f" + std::to_string(1000000 + i).substr(1) + ".dll"; }  // f000000.dll on

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
    std::string crcOf(const std::string& file) { return hash::getChecksum(ctx, kSystem + file); }
    // The run over `dll` as the data file's first section (or over the bytes as they are); the peak held beyond what
    // was held before, per byte of the file.
    double peakPerByte(std::string file, bool sections = true) {
        if (sections) {
            file = std::string(kDataFileHeader) + file;
            for (const char* head : {"DRV", "386", "SYS", "OCX", "EXE", "COM", "PIF", "SCR"})
                file += std::string("[") + head + "]\r\nNULL*E\r\n";
        }
        const double size = static_cast<double>(file.size());
        os.files.put(ctx.intFile, std::move(file));
        const std::size_t before = test::startPeak();
        loadIntFile(ctx, ctx.intFile);
        for (int pass = 0; pass < kPassCount; ++pass) {
            ctx.scan.passType = static_cast<std::int16_t>(pass + 1);
            integrityChecker2(ctx, window, kScanPasses[pass].ext1, kScanPasses[pass].ext2);
        }
        for (std::string item : window.List1.items()) {
            item = replaceText(item, " *NEW*", "");
            writeEntry(ctx, ctx.intFile, item.substr(item.find_last_of('\\') + 1),
                       hash::getChecksum(ctx, item) + "*E", upperCase(rightText(item, 3)));
        }
        saveIntFile(ctx);
        loadIntFile(ctx, ctx.intFile);
        return static_cast<double>(test::peakHeldBytes() - before) / size;
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
    EXPECT_LE(peakPerByte(std::move(bytes), false), 6.0);
    EXPECT_EQ(window.List1.items().size(), 21u);  // no section of these names: every file is new
    EXPECT_TRUE(saved() == expected);             // nothing to write them into: the text stays
}

TEST_F(HostileDataFile, TwoHundredThousandEntriesInOneSection) {
    std::string dll = "[DLL]\r\n";
    for (int i = 0; i < 200000; ++i) dll += name(i) + "=" + (i < 20 && i % 2 == 0 ? crcOf(name(i)) : "NULL") + "*E\r\n";
    EXPECT_LE(peakPerByte(dll + "NULL*E\r\n"), 6.0);
    EXPECT_EQ(window.List1.items().size(), 11u);  // ten never checksummed, one not listed
    for (int i = 0; i < 20; ++i) EXPECT_EQ(ctx.section.text[0].entry(name(i)), crcOf(name(i))) << name(i);
    EXPECT_EQ(ctx.section.text[0].entry(name(199999)), "NULL");
    EXPECT_EQ(ctx.section.text[5].entry("NEW.EXE"), crcOf("new.exe"));
    EXPECT_EQ(std::count(saved().begin(), saved().end(), '\n'), 2 + 1 + 200000 + 1 + 1 + 8 * 2);  // new.exe added
}

}  // namespace
}  // namespace tv
