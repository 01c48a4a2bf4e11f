// The scanners' command lines. Two scanners given the batches of a report for
// real are the end-to-end scenario's.
#include <gtest/gtest.h>

#include <set>

#include "avshell/scanner_launch.h"
#include "platform/command_program.h"
#include "platform/controls.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

using Texts = std::vector<std::string>;

// Batches of passCount turns, empty entries counted; the walk reads one past
// the end as an empty entry; a flush that refuses ends the walk.
TEST(ScannerCommandLines, BatchesItemsAndTheScannersWindow) {
    test::FakePlatform os;
    AppContext ctx{os.set()};
    ctx.quoteChar = "\"";
    ctx.passCount = 2;
    const auto batches = [&](const Texts& entries, std::size_t first, std::size_t last, bool goOn = true) {
        Texts out;
        walkInBatches(ctx, first, last, [&](std::size_t i) { return i < entries.size() ? entries[i] : std::string(); },
                      [&](const std::string& batch) {
                          out.push_back(batch);
                          return goOn;
                      });
        return out;
    };
    EXPECT_EQ(batches({"A", "", "B", "C", "D"}, 0, 5), (Texts{"\"A\" ", "\"B\" \"C\" ", "\"D\" "}));
    EXPECT_EQ(batches({"A", "B"}, 0, 2), (Texts{"\"A\" \"B\" ", ""}));
    EXPECT_EQ(batches({"A", "B", "C"}, 0, 9, false), Texts{"\"A\" \"B\" "});
    ctx.passCount = 99999;
    EXPECT_EQ(batches({"A", "B", "C"}, 0, 2), Texts{"\"A\" \"B\" \"C\" "});
    ctx.quoteChar.clear();
    EXPECT_EQ(batches({"heading", "C:\\A B.DLL"}, 1, 1), Texts{"C:\\A B.DLL "});

    ctx.quoteChar = "\"";
    EXPECT_EQ(singleRunItem(ctx, "\"C:\\A.EXE\" /x"), " \"C:\\A.EXE /x\"");
    EXPECT_EQ(singleRunItem(ctx, "\"\""), " ");
    EXPECT_EQ(singleFileItem(ctx, "C:\\A.EXE"), "\"C:\\A.EXE\"");
    EXPECT_EQ(singleFileItem(ctx, "\"C:\\A.EXE\" -run"), "\"C:\\A.EXE\" -run");
    EXPECT_EQ(toShortPath(ctx, "C:\\PROGRA~1\\A.DLL"), "C:\\PROGRA~1\\A.DLL");  // what stands before the zero
    EXPECT_EQ(toShortPath(ctx, std::string(1100, 'x')), "");  // too long: the buffer stays blank

    // A scanner's window opens normal with the focus only while avfocus is 1.
    ui::Control avfocus(ui::Kind::CheckBox, "avfocus", nullptr, {}, "");
    ctx.scannerFocus = &avfocus;
    for (const int value : {0, 1, 2}) {
        avfocus.setValue(value);
        runScanner(ctx, "C:\\AV\\scan.exe");
    }
    std::vector<int> styles;
    for (const auto& [line, style] : os.processes.started) styles.push_back(style);
    EXPECT_EQ(styles, (std::vector<int>{show::MinimizedFocus, show::NormalFocus, show::MinimizedFocus}));
}

// The program a scanner's line starts is the longest beginning before a blank
// that names a program file: a file planted at a shorter beginning never runs,
// and with the scanner gone nothing does.
TEST(CommandProgram, LongestBeginningThatNamesAProgramFile) {
    const std::set<std::string> files{"C:\\Program", "C:\\Program.exe", "C:\\Program Files\\Scan\\scan.exe",
                                      "C:\\a.dll", "C:\\T\\TarvelonLow.exe", "C:\\My.Tools\\x"};
    Texts asked;
    const auto program = [&](std::string_view line) {
        return programOfCommandLine(line, [&](const std::string& path) {
            asked.push_back(path);
            return files.count(path) > 0;
        });
    };
    const std::string scanner = "C:\\Program Files\\Scan\\scan.exe";
    EXPECT_EQ(program(scanner + " /x \"C:\\a b.dll\" "), scanner);
    EXPECT_EQ(program(scanner + "  C:\\a.dll C:\\b.dll "), scanner);  // no args: two blanks, no quotes
    EXPECT_EQ(program(scanner), scanner);
    EXPECT_EQ(program("\"C:\\T\\TarvelonLow.exe\""), "C:\\T\\TarvelonLow.exe");
    EXPECT_EQ(program("\"C:\\T\\Missing.exe\" /r"), "");
    EXPECT_EQ(program("C:\\My.Tools\\x /y"), "");  // a file without an extension is no program
    for (const std::string& path : asked)  // no beginning reaching into a file of the list is tried
        EXPECT_EQ(path.find(':', 2), std::string::npos) << path;
}

}  // namespace
}  // namespace tv
