#include <gtest/gtest.h>

#include "hash/checksum.h"
#include "hash/crc32.h"
#include "integrity/compare_pass.h"
#include "integrity/data_file_text.h"
#include "integrity/scan_window.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

constexpr const char* kSystem = "C:\\WINDOWS\\SYSTEM32\\";

std::string crcOf(const std::string& content) {
    return hash::hexText(~hash::crc32Update(0xFFFFFFFFu, reinterpret_cast<const std::uint8_t*>(content.data()),
                                            content.size()));
}

class ComparePass : public ::testing::Test {
protected:
    ComparePass() {
        os.files.folders = {"C:\\WINDOWS", "C:\\WINDOWS\\SYSTEM32", "D:\\TOOLS"};
        ctx.appPath = "C:\\T\\";
        ctx.algoName = "CRC32";
        ctx.readBuffer = 65536;
        window.pb2max.setCaption("4");
    }
    void file(const std::string& folder, const std::string& name, const std::string& content) {
        os.files.put(folder + name, content);
    }
    void baseline(SectionBlocks& into, const std::string& dllLines, const std::string& exeLines = "",
                  const std::string& comLines = "") {
        into = splitDataFile("[DLL]\r\n" + dllLines + "NULL*E\r\n[EXE]\r\n" + exeLines + "NULL*E\r\n[COM]\r\n" +
                             comLines + "NULL*E\r\n")
                   .blocks;
    }
    void pass(int type, const std::string& ext1, const std::string& ext2, const std::string& total) {
        ctx.scan.passType = static_cast<std::int16_t>(type);
        window.pb1max.setCaption(total);
        integrityChecker2(ctx, window, ext1, ext2);
    }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::ScanWindow window;
};

TEST_F(ComparePass, SortsFilesIntoPassingNewAndFailed) {
    file(kSystem, "same.dll", "same");
    file(kSystem, "changed.dll", "now");
    file(kSystem, "fresh.dll", "new");
    file(kSystem, "Blank.DLL", "blank");
    file(kSystem, "readme.txt", "not a pass file");
    baseline(ctx.section, "SAME.DLL=" + crcOf("same") + "*E\r\nchanged.dll=" + crcOf("before") +
                              "*E\r\nblank.dll=NULL*E\r\n");
    pass(1, ".DLL", "...", "4");

    EXPECT_EQ(ctx.scan.newCount, 2);
    EXPECT_EQ(ctx.scan.failCount, 1);
    EXPECT_EQ(window.Label6.caption(), "4");
    EXPECT_EQ(window.Label7.caption(), "1");
    EXPECT_EQ(window.Label8.caption(), "2");
    EXPECT_EQ(window.Label9.caption(), "1");
    EXPECT_EQ(window.caption(), "100% AutoCheck");
    EXPECT_EQ(window.percentLabels[0]->caption(), "100%");
    EXPECT_EQ(window.pbm.caption(), "4");
    const auto& items = window.List1.items();
    ASSERT_EQ(items.size(), 3u);
    EXPECT_NE(std::find(items.begin(), items.end(), std::string(kSystem) + "changed.dll"), items.end());
    EXPECT_NE(std::find(items.begin(), items.end(), std::string(kSystem) + "fresh.dll *NEW*"), items.end());
    EXPECT_NE(ctx.scan.failList.find(std::string(kSystem) + "changed.dll " + crcOf("now") + ","), std::string::npos);
    EXPECT_NE(ctx.scan.failList.find(std::string(kSystem) + "Blank.DLL " + crcOf("blank") + ","), std::string::npos);
    EXPECT_EQ(ctx.scan.customFailList, "");
}

TEST_F(ComparePass, BothExtensionsOfAPassAreLookedUpInTheirOwnSections) {
    file(kSystem, "x.EXE", "exe");
    file(kSystem, "x.com", "com");
    baseline(ctx.section, "", "X.EXE=" + crcOf("exe") + "*E\r\n", "x.com=" + crcOf("other") + "*E\r\n");
    window.pbm.setCaption("10");  // passes before this one
    pass(5, ".EXE", ".COM", "2");
    EXPECT_EQ(ctx.scan.failCount, 1);
    EXPECT_EQ(ctx.scan.newCount, 0);
    EXPECT_EQ(window.Label6.caption(), "12");
    EXPECT_EQ(window.pbm.caption(), "12");
    EXPECT_EQ(window.caption(), "300% AutoCheck");  // planned 4 in all: a changed folder runs over 100
}

TEST_F(ComparePass, PassTotalThatIsNoNumberLeavesThePassPercentAtZero) {
    file(kSystem, "a.pif", "a");
    file(kSystem, "b.scr", "b");
    pass(6, ".PIF", ".SCR", "");
    EXPECT_EQ(ctx.scan.newCount, 2);  // an empty baseline: everything is new
    EXPECT_EQ(window.percentLabels[5]->caption(), "100%");
    std::vector<std::string> percents;
    window.percentLabels[5]->setSink([&](ui::Control& c, ui::Prop) { percents.push_back(c.caption()); });
    window.pbm.setCaption("0");
    pass(6, ".PIF", ".SCR", "40000");  // over 16 bits: no number either
    EXPECT_EQ(percents, (std::vector<std::string>{"0%", "100%"}));  // 0% through both files
}

TEST_F(ComparePass, CustomFolderUsesItsOwnBaselineAndList) {
    file("D:\\TOOLS\\", "tool.exe", "tool");
    file("D:\\TOOLS\\", "gone.dll", "changed");
    baseline(ctx.custom, "GONE.DLL=" + crcOf("original") + "*E\r\n");
    ctx.customFolder = "D:\\Tools";
    ctx.scan.customIndex = 7;
    pass(1, ".DLL", "...", "1");
    pass(5, ".EXE", ".COM", "1");
    EXPECT_EQ(ctx.scan.failList, "");
    EXPECT_EQ(ctx.scan.customFailList,
              "D:\\Tools\\gone.dll(7) " + crcOf("changed") + ",D:\\Tools\\tool.exe(7) " + crcOf("tool") + ",");
}

}  // namespace
}  // namespace tv
