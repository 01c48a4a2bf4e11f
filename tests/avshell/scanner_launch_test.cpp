#include <gtest/gtest.h>

#include <set>

#include "avshell/scanner_launch.h"
#include "platform/command_program.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

class ScannerCommandLines : public ::testing::Test {
protected:
    ScannerCommandLines() {
        ctx.quoteChar = "\"";
        ctx.passCount = 2;
    }
    // The batches a walk over `entries` (read one past the end as empty text) hands on.
    std::vector<std::string> batches(const std::vector<std::string>& entries, std::size_t first, std::size_t last) {
        std::vector<std::string> out;
        walkInBatches(ctx, first, last,
                      [&](std::size_t i) { return i < entries.size() ? entries[i] : std::string(); },
                      [&](const FileItems& batch) {
                          out.emplace_back();
                          for (const std::string& item : batch) out.back() += item;
                          return true;
                      });
        return out;
    }

    test::FakePlatform os;
    AppContext ctx{os.set()};
};

TEST_F(ScannerCommandLines, BatchesOfPassCountTurnsWithEmptyEntriesCounted) {
    EXPECT_EQ(batches({"A", "", "B", "C", "D"}, 0, 5),
              (std::vector<std::string>{"\"A\" ", "\"B\" \"C\" ", "\"D\" "}));
    EXPECT_EQ(batches({"A", "B"}, 0, 2), (std::vector<std::string>{"\"A\" \"B\" ", ""}));  // one past the end
    ctx.passCount = 99999;
    EXPECT_EQ(batches({"A", "B", "C"}, 0, 2), (std::vector<std::string>{"\"A\" \"B\" \"C\" "}));
    ctx.quoteChar.clear();
    EXPECT_EQ(batches({"heading", "C:\\A B.DLL"}, 1, 1), (std::vector<std::string>{"C:\\A B.DLL "}));
}

TEST_F(ScannerCommandLines, FlushThatRefusesEndsTheWalk) {
    int flushes = 0;
    walkInBatches(ctx, 0, 9, [](std::size_t) { return std::string("X"); }, [&](const FileItems&) {
        ++flushes;
        return false;
    });
    EXPECT_EQ(flushes, 1);
}

TEST_F(ScannerCommandLines, ShapesOfTheOtherCallers) {
    EXPECT_EQ(singleRunItem(ctx, "\"C:\\A.EXE\" /x"), " \"C:\\A.EXE /x\"");
    EXPECT_EQ(singleRunItem(ctx, "\"\""), " ");
    EXPECT_EQ(singleFileItem(ctx, "C:\\A.EXE"), "\"C:\\A.EXE\"");
    EXPECT_EQ(singleFileItem(ctx, "\"C:\\A.EXE\" -run"), "\"C:\\A.EXE\" -run");
}

TEST_F(ScannerCommandLines, ShortNameIsWhatStandsBeforeTheZero) {
    EXPECT_EQ(toShortPath(ctx, "C:\\PROGRA~1\\A.DLL"), "C:\\PROGRA~1\\A.DLL");
    EXPECT_EQ(toShortPath(ctx, std::string(1100, 'x')), "");  // too long: the buffer stays blank
}

// The program a scanner's line starts is the longest beginning before a blank
// that names a program file: a file planted at a shorter beginning never runs,
// and with the scanner gone nothing does.
TEST(CommandProgram, LongestBeginningThatNamesAProgramFile) {
    std::set<std::string> files{"C:\\Program", "C:\\Program.exe", "C:\\Program Files\\Scan\\scan.exe",
                                "C:\\a.dll", "C:\\T\\TarvelonLow.exe", "C:\\My.Tools\\x"};
    std::vector<std::string> asked;
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
