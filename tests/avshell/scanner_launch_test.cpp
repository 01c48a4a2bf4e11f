#include <gtest/gtest.h>

#include "avshell/scanner_launch.h"
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
                      [&](const std::string& batch) {
                          out.push_back(batch);
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
    walkInBatches(ctx, 0, 9, [](std::size_t) { return std::string("X"); }, [&](const std::string&) {
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
    ctx.settFile = "C:\\T\\Data\\Tarvelon.dat";
    ctx.intFile = "C:\\T\\Data\\Integrity.dat";
    EXPECT_EQ(scannerTestCommand(ctx, "C:\\AV\\SCAN.EXE"),
              "C:\\AV\\SCAN.EXE \"C:\\T\\Data\\Tarvelon.dat\" \"C:\\T\\Data\\Integrity.dat\"");
}

TEST_F(ScannerCommandLines, ShortNameIsWhatStandsBeforeTheZero) {
    EXPECT_EQ(toShortPath(ctx, "C:\\PROGRA~1\\A.DLL"), "C:\\PROGRA~1\\A.DLL");
    EXPECT_EQ(toShortPath(ctx, std::string(1100, 'x')), "");  // too long: the buffer stays blank
    ctx.shortPaths = true;
    EXPECT_EQ(batchItem(ctx, std::string(1100, 'x')), "\"\" ");
}

}  // namespace
}  // namespace tv
