// Scanners are real processes started from one command line, with no command
// interpreter between: the fake scanner records what it received.
#include "avshell/scanner_launch.h"
#include "platform/controls.h"
#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

class ScannerLaunch : public WinTest {
protected:
    win32::Win32Processes real;
    AppContext ctx{{files, profiles, shell, boxes, real, loop, renderer, registry, clock, windows, power, shortcuts}};
};

TEST_F(ScannerLaunch, CommandLineReachesTheScannerUnchanged) {
    const std::string fakescan = fakeScannerPath();
    ASSERT_TRUE(files.canRead(fakescan)) << fakescan;
    const std::string log = path("scans.log");
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", log.c_str());
    const ScannerPair scanners{fakescan, "/a", " ", "ignored"};  // a blank second exe counts as none
    const std::string batch = "\"C:\\x|y&z^w%PATH%.dll\" C:\\plain.dll ";
    ASSERT_TRUE(startScanners(ctx, scanners, {batch}));
    const DWORD start = ::GetTickCount();
    while (!files.length(log).value_or(0) && ::GetTickCount() - start < 20000) ::Sleep(20);
    EXPECT_EQ(readFile("scans.log"), fakescan + " /a " + batch + "\r\n");
    EXPECT_FALSE(runScanner(ctx, path("missing.exe") + " x"));
}

// A scanner in a folder with a blank, and a program planted where the system
// would look first for the unquoted path: only the scanner runs, with its line.
TEST_F(ScannerLaunch, PlantedProgramAtABeginningOfThePathNeverRuns) {
    files.makeFolder(path("Scan Tools"));
    const std::string scanner = path("Scan Tools\\fakescan.exe");
    ASSERT_TRUE(files.copy(fakeScannerPath(), scanner));
    ASSERT_TRUE(files.copy(fakeScannerPath(), path("Scan.exe")));
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", path("scans.log").c_str());
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG_SCAN", path("planted.log").c_str());
    const std::string line = scanner + "  \"C:\\a b.dll\" C:\\c.dll ";
    ASSERT_TRUE(runScanner(ctx, line));
    const DWORD start = ::GetTickCount();
    while (!files.length(path("scans.log")).value_or(0) && ::GetTickCount() - start < 20000) ::Sleep(20);
    EXPECT_EQ(readFile("scans.log"), line + "\r\n");
    ASSERT_TRUE(files.remove(scanner));
    EXPECT_FALSE(runScanner(ctx, line));  // the scanner gone: nothing runs in its place
    EXPECT_FALSE(files.length(path("planted.log")));
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG_SCAN", nullptr);
}

TEST_F(ScannerLaunch, ShortNamesOfFilesThatExistAndNothingForOthers) {
    writeFile("A Long File Name.dll", "x");
    const std::string shortName = toShortPath(ctx, path("A Long File Name.dll"));
    EXPECT_EQ(shortName.find(' '), std::string::npos) << shortName;
    EXPECT_TRUE(files.canRead(shortName)) << shortName;
    EXPECT_EQ(toShortPath(ctx, path("absent.dll")), "");
    ctx.shortPaths = true;
    ctx.quoteChar = "\"";
    EXPECT_EQ(batchItem(ctx, path("absent.dll")), "\"\" ");  // a vanished file still makes an item
}

}  // namespace
}  // namespace tv::test
