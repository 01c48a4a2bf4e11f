// The integrity data files over in-memory files: their cut into blocks, their load and look-ups, the blank baseline,
// one comparison pass, a save that a crash may stop at any step, and findings that nobody watches going to a report.
#include <gtest/gtest.h>

#include <functional>

#include "hash/checksum.h"
#include "integrity/baseline_build.h"
#include "integrity/check_int_file.h"
#include "integrity/compare_pass.h"
#include "integrity/data_file.h"
#include "integrity/data_file_text.h"
#include "integrity/findings_action.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

constexpr const char* kFile = "C:\\T\\Data\\Integrity.dat";
constexpr const char* kSystem = "C:\\WINDOWS\\SYSTEM32\\";

std::string blankFile(const std::string& dllLines = "") {
    std::string text = std::string(kDataFileHeader) + "\r\n";  // the empty line a fresh build leaves
    for (const char* name : {"DLL", "DRV", "386", "SYS", "OCX", "EXE", "COM", "PIF", "SCR"})
        text += std::string("[") + name + "]\r\n" + (name == std::string("DLL") ? dllLines : "") + "NULL*E\r\n";
    return text;
}

TEST(DataFileText, NineBlocksEachFromItsHeadToTheNextAndNoTenth) {
    const std::string text = blankFile("KERNEL32.DLL=ABC*E\r\n");
    const auto split = splitDataFile(text);
    ASSERT_EQ(split.blockCount, 9);
    EXPECT_EQ(split.blocks.text[0].text() + split.blocks.name[2], "[DLL]\r\nKERNEL32.DLL=ABC*E\r\nNULL*E\r\n386");
    EXPECT_EQ(dataFileText(split.blocks), std::string(kDataFileHeader) + text.substr(text.find('[')));
    EXPECT_EQ(blankDataFileText({}), blankFile());
    for (const std::string& headless : {std::string(), std::string(kDataFileHeader), std::string("no heads\r\n")})
        EXPECT_EQ(splitDataFile(headless).blockCount + splitDataFile(headless).blocks.text[0].text().size(), 0u);
    std::string ten;
    for (int i = 1; i <= 10; ++i) ten += "[S" + std::to_string(i) + "]\r\nX" + std::to_string(i) + "=1*E\r\nNULL*E\r\n";
    const auto nine = splitDataFile(ten);  // the tenth is part of the ninth
    EXPECT_EQ(nine.blocks.name[8] + nine.blocks.text[8].entry("X9") + nine.blocks.text[8].entry("X10") +
                  std::to_string(findSectionNumber(nine.blocks, "S10")), "S910");
    // A name beginning with "[" splits its section; a head without "]" ends the names.
    const auto cut = splitDataFile("[DLL]\r\nA.DLL=1*E\r\n[x].dll=2*E\r\nNULL*E\r\n[DRV]\r\nNULL*E\r\n");
    EXPECT_EQ(cut.blocks.name[0] + cut.blocks.name[1] + cut.blocks.name[2] + cut.blocks.text[0].text(),
              "DLLxDRV[DLL]\r\nA.DLL=1*E\r\n");
    EXPECT_FALSE(splitDataFile("[DLL\r\nA=1*E\r\n").named);
    // A comma in a name splits its entry in the blank baseline.
    EXPECT_EQ(splitDataFile(blankDataFileText({"A.DLL,odd,name.dll,"})).blocks.text[0].text(),
              "[DLL]\r\nA.DLL=NULL*E\r\nodd=NULL*E\r\nname.dll=NULL*E\r\nNULL*E\r\n");
}

class DataFile : public ::testing::Test {
protected:
    DataFile() {
        os.files.folders = {"C:\\T", "C:\\T\\DATA", "C:\\WINDOWS", "C:\\WINDOWS\\SYSTEM32"};
        ctx.appPath = "C:\\T\\";
        ctx.intFile = kFile;
        ctx.algoName = "CRC32";
        ctx.readBuffer = 65536;
        window.pb2max.setCaption("4");
    }
    std::string crcOf(const std::string& content) {
        os.files.put("C:\\crc.tmp", content);
        return hash::getChecksum(ctx, "C:\\crc.tmp");
    }
    // One pass over the system directory against a baseline of DLL, EXE and COM files.
    void pass(const std::string& dll, const std::string& exe, const std::string& com, int type, const char* ext1,
              const char* ext2, const char* planned) {
        ctx.section = splitDataFile("[DLL]\r\n" + dll + "NULL*E\r\n[EXE]\r\n" + exe + "NULL*E\r\n[COM]\r\n" + com + "NULL*E\r\n").blocks;
        ctx.scan.passType = static_cast<std::int16_t>(type);
        window.pb1max.setCaption(planned);
        integrityChecker2(ctx, window, ext1, ext2);
    }
    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::ScanWindow window;
};

TEST_F(DataFile, LoadLooksUpWithinItsSectionOnlyAndMakesAMissingFileEmptyOrOffersItsBackup) {
    os.files.put(kFile, blankFile("Kernel32.dll= 1A2B *E\r\nA=B.DLL=7*E\r\n"));
    ASSERT_TRUE(loadIntFile(ctx, kFile));
    EXPECT_EQ(getEntry(ctx, kFile, "KERNEL32.DLL", "dll") + "|" + getEntry(ctx, kFile, "A=B.DLL", "DLL") + "|" +
                  getEntry(ctx, kFile, "KERNEL32.DLL", "DRV") + getEntry(ctx, kFile, "KERNEL32.DLL", "TXT") +
                  getEntry(ctx, kFile, "NULL", "DLL"), "1A2B|7|");
    EXPECT_EQ(os.loop.pumps, 9 + 4);  // one per block cut, one per look-up in a known section
    os.files.remove(kFile);
    ASSERT_TRUE(loadIntFile(ctx, kFile));  // made empty: nine empty names
    EXPECT_EQ(*os.files.content(kFile) + std::to_string(findSection(ctx, "")), "1");
    os.files.locked.insert("C:\\T\\DATA\\INTEGRITY.DAT");
    EXPECT_FALSE(loadIntFile(ctx, kFile));

    // A missing custom folder's file is offered back from its backup.
    const std::string custom = "C:\\T\\Data\\7-md5.dat";
    os.files.put("C:\\T\\Data\\7-md5.bak", blankFile());
    os.boxes.answers = {box::Yes};
    test::RecordingHost host;
    ASSERT_TRUE(loadCustomDat(ctx, host, custom) && loadCustomDat(ctx, host, custom));  // there now: no question
    ASSERT_EQ(os.boxes.shown.size(), 1u);
    EXPECT_EQ(os.boxes.shown[0].prompt + "|" + os.boxes.shown[0].title + std::to_string(os.boxes.shown[0].style) +
                  std::to_string(findCustomSection(ctx, "scr")),
              "The data file is missing! Would you like to use the backup?|.Dat file Missing!" + std::to_string(box::YesNo) + "9");
}

TEST_F(DataFile, PassSortsFilesIntoPassingNewAndFailedInTheirOwnSections) {
    for (const auto& [name, content] : std::initializer_list<std::pair<const char*, const char*>>{
             {"same.dll", "same"}, {"changed.dll", "now"}, {"fresh.dll", "new"}, {"Blank.DLL", "blank"},
             {"readme.txt", "no pass file"}, {"x.EXE", "exe"}, {"x.com", "com"}, {"a.pif", "a"}, {"b.scr", "b"}})
        os.files.put(kSystem + std::string(name), content);
    pass("SAME.DLL=" + crcOf("same") + "*E\r\nchanged.dll=" + crcOf("before") + "*E\r\nblank.dll=NULL*E\r\n",
         "", "", 1, ".DLL", "...", "4");
    EXPECT_EQ(test::scanFigures(window) + " " + window.caption() + " " + window.percentLabels[0]->caption() + " " +
                  window.pbm.caption() + " " + std::to_string(ctx.scan.newCount) + std::to_string(ctx.scan.failCount),
              "4 1 2 1 100% AutoCheck 100% 4 21");
    auto items = window.List1.items();
    std::sort(items.begin(), items.end());
    EXPECT_EQ(items, (std::vector<std::string>{kSystem + std::string("Blank.DLL *NEW*"), kSystem + std::string("changed.dll"),
                                               kSystem + std::string("fresh.dll *NEW*")}));
    for (const auto& [name, content] : {std::pair{"changed.dll ", "now"}, {"Blank.DLL ", "blank"}})
        EXPECT_NE(ctx.scan.failList.find(kSystem + (name + crcOf(content)) + ","), std::string::npos) << name;

    // Both extensions of a pass, each in its own section; a changed folder runs over 100%.
    pass("", "X.EXE=" + crcOf("exe") + "*E\r\n", "x.com=" + crcOf("other") + "*E\r\n", 5, ".EXE", ".COM", "2");
    EXPECT_EQ(window.Label6.caption() + " " + window.pbm.caption() + " " + window.caption() + " " +
                  std::to_string(ctx.scan.newCount) + std::to_string(ctx.scan.failCount), "6 6 150% AutoCheck 22");
}

// Files that stop for good at their n-th change and leave that change half done, as a crash or a power loss in the
// middle of a save would.
class CrashingFiles final : public test::MemoryFiles {
public:
    int crashAt = 1 << 30;
    bool crashed = false;
    // Copies and whole writes of every kind come here.
    bool writeAll(const std::string& p, std::string_view b) override {
        return change([&] { MemoryFiles::writeAll(p, b.substr(0, b.size() / 2)); }) && MemoryFiles::writeAll(p, b);
    }
    bool remove(const std::string& p) override { return change() && MemoryFiles::remove(p); }
    bool moveOver(const std::string& f, const std::string& t) override { return change() && MemoryFiles::moveOver(f, t); }

private:
    // Whether the change goes ahead; the one that crashes does `halfDone` instead, and none goes ahead after it.
    bool change(const std::function<void()>& halfDone = [] {}) {
        if (crashed || ++changes_ < crashAt) return !crashed;
        halfDone();
        crashed = true;
        return false;
    }
    int changes_ = 0;
};

// Every start after a crash at any step of a save loads a whole baseline, the former or the new one, and asks
// nothing; the save takes three steps: the backup, the new text beside the file, its move into place.
TEST(CrashDuringSave, EveryStartAfterwardsLoadsTheFormerOrTheNewBaselineWhole) {
    const std::string before = std::string(kDataFileHeader) + "[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n[EXE]\r\nNULL*E\r\n";
    for (const bool custom : {false, true}) {
        const std::string dataFile = custom ? "C:\\T\\Data\\7-md5.dat" : kFile;
        for (int crashAt = 1;; ++crashAt) {
            SCOPED_TRACE((custom ? "custom, crash at change " : "system, crash at change ") + std::to_string(crashAt));
            ASSERT_LT(crashAt, 20) << "the save never ended";
            test::FakePlatform os;
            CrashingFiles disk;
            disk.crashAt = crashAt;
            disk.folders = {"C:\\T", "C:\\T\\DATA"};
            disk.put(dataFile, before);
            disk.put(backupName(dataFile), std::string(kDataFileHeader) + "[DLL]\r\nA.DLL=0*E\r\nNULL*E\r\n");
            AppContext ctx({disk, os.profiles, os.shell, os.boxes, os.processes, os.loop, os.renderer, os.registry,
                            os.clock, os.windows, os.power, os.shortcuts});
            ctx.appPath = "C:\\T\\";
            ctx.intFile = kFile;
            ctx.section = ctx.custom = splitDataFile(before).blocks;
            writeEntryToBlocks(custom ? ctx.custom : ctx.section, "EXE", "B.EXE", "2*E");
            const std::string after = dataFileText(custom ? ctx.custom : ctx.section);
            const bool saved = custom ? saveCustomDat(ctx, dataFile) : saveIntFile(ctx);

            const bool crashed = std::exchange(disk.crashed, false);  // the next start finds the disk whole again
            disk.crashAt = 1 << 30;
            ctx.section = ctx.custom = {};
            test::RecordingHost host;
            if (!custom) checkIntFile(ctx, host);
            custom ? loadCustomDat(ctx, host, dataFile) : loadIntFile(ctx, kFile);
            const std::string loaded = dataFileText(custom ? ctx.custom : ctx.section);
            EXPECT_TRUE(loaded == before || loaded == after) << loaded;
            EXPECT_TRUE(os.boxes.shown.empty());
            if (!crashed) {
                EXPECT_TRUE(saved && loaded == after && !disk.length(pendingName(dataFile)) && crashAt == 4);
                break;
            }
        }
    }
}

// A run that nobody watches never waits on a message box: what the box would have said goes into a report of its own,
// and the run goes on to its end.
TEST(UnattendedRun, NoScannerInAScheduledRunIsReportedAndTheRunEnds) {
    test::FakePlatform os;
    AppContext ctx{os.set()};
    test::prepareProgramFolder(os, ctx, {});
    os.files.folders.insert("C:\\TARVELON\\DATA\\LOG");
    ctx.unattended = ctx.autoScanFailed = true;
    ctx.cmdLine = "/a";
    ui::ScanWindow window;
    test::RecordingHost host;
    ScanDriver driver{ctx, window, host};
    window.List1.addItem("C:\\WINDOWS\\SYSTEM32\\A.DLL");
    ctx.scan.failList = "C:\\WINDOWS\\SYSTEM32\\A.DLL 1234,";
    FindingsAction(ctx, window, host, driver).label12Click();
    EXPECT_TRUE(host.ended);
    EXPECT_EQ(os.files.readAll("C:\\Tarvelon\\Data\\Log\\03-05-2006 unattended(3_04_07PM).log"),
              "Unattended Run - Tarvelon did not wait for an answer to these messages,You do not have any Anti-Virus "
              "program setup with Tarvelon.  For your conveniance, these files will be added to the log, and will be "
              "updated in your Integrity File (so that you can scan them for viruses later).\r\n");
}

}  // namespace
}  // namespace tv
