// A scan whose checksums worker threads take ahead of its walk, against the same scan on the one thread: with the same
// folder and the same clicks in its pumps, every pump must find the same screen, and the scan must end the same.
#include <gtest/gtest.h>

#include "hash/checksum.h"
#include "integrity/data_file.h"
#include "integrity/data_file_text.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "tests/core/fakes.h"
#include "tests/core/std_threads.h"

namespace tv {
namespace {

constexpr const char* kSystem = "C:\\WINDOWS\\SYSTEM32\\";

struct Journey {
    // A click made in a pump, by the file label of the pass running, the scan's flags and the pause's waits so far.
    using Click = std::function<void(ui::ScanWindow&, const ScanRunState&, const std::string& file, int waits)>;
    const char *name, *algo;
    int readBuffer;
    Click click;
};

// The screen as each pump finds it, then the list, the failures, the figures and the threads started.
using Outcome = std::vector<std::string>;

Outcome scan(const Journey& journey, bool withWorkers) {
    test::FakePlatform os;
    test::StdThreads threads;
    PlatformSet set = os.set();
    set.threads = withWorkers ? &threads : nullptr;
    AppContext ctx(set);
    test::prepareProgramFolder(os, ctx, {});
    ctx.algoName = journey.algo;
    ctx.readBuffer = journey.readBuffer;
    os.files.folders.insert({"C:\\WINDOWS", "C:\\WINDOWS\\SYSTEM32", "C:\\WINDOWS\\SYSTEM32\\FOLDER.DLL"});
    os.files.locked.insert("C:\\WINDOWS\\SYSTEM32\\LOCKED.DLL");
    for (const char* name : {"same.dll", "changed.dll", "new.dll", "locked.dll", "x.drv", "y.sys", "z.386",
                             "w.ocx", "v.exe", "u.com", "t.pif", "s.scr", "readme.txt", "empty.dll"})
        os.files.put(kSystem + std::string(name), std::string(name) == "empty.dll" ? "" : name);
    os.files.put(kSystem + std::string("large.exe"), std::string(5000, 'L'));  // the first of its pass
    os.files.put(kSystem + std::string("middle.dll"), std::string(3000, 'M'));
    const std::string same = hash::getChecksum(ctx, kSystem + std::string("same.dll"));
    os.files.put(ctx.intFile, std::string(kDataFileHeader) + "[DLL]\r\nsame.dll=" + same +
                                  "*E\r\nchanged.dll=0*E\r\nNULL*E\r\n[EXE]\r\nlarge.exe=1*E\r\nNULL*E\r\n");
    loadIntFile(ctx, ctx.intFile);

    ui::ScanWindow window;
    test::RecordingHost host;
    ScanDriver driver(ctx, window, host);
    Outcome run;
    os.loop.queueAnswer = queue::InputOrPaint;  // input waits at every pump test
    os.loop.onPump = [&] {
        const std::string file = ctx.scan.passType > 0 ? window.fileLabels[ctx.scan.passType - 1]->caption() : "";
        run.push_back(file + "|" + test::scanFigures(window) + "|" + std::to_string(window.List1.items().size()) +
                      (ctx.scan.scanPaused ? "|paused" : ""));
        if (journey.click) journey.click(window, ctx.scan, file, os.loop.waits);
    };
    os.boxes.answers = {box::Yes, box::Yes};  // leaving with findings listed
    ctx.scan.pageScan = ctx.scan.noAutoAction = true;
    ctx.scan.wanted.fill(true);
    driver.loadUp();
    window.Timer1.userTick();
    run.insert(run.end(), window.List1.items().begin(), window.List1.items().end());
    run.push_back(ctx.scan.failList + "|" + test::scanFigures(window) + " " + window.pbm.caption() + " " +
                  std::to_string(ctx.readBuffer) + (ctx.scan.scanCancelled ? " cancelled" : ""));
    run.push_back(threads.started > 0 ? "with workers" : "alone");
    return run;
}

class ParallelScan : public ::testing::TestWithParam<Journey> {};

TEST_P(ParallelScan, ListsCountsPausesAndCancelsAsTheOneThreadDoes) {
    Outcome alone = scan(GetParam(), false), parallel = scan(GetParam(), true);
    EXPECT_EQ(alone.back() + "|" + parallel.back(), "alone|with workers");
    alone.back() = parallel.back();
    EXPECT_EQ(parallel, alone);
}

// A pause held for two messages while the walk is at `file`, then Resume.
Journey::Click pauseAt(std::string file) {
    return [file](ui::ScanWindow& w, const ScanRunState&, const std::string& at, int waits) {
        if (at == file && waits == 0 && !w.Label11.visible()) w.Image9.userClick();
        if (waits == 2 && w.Label11.visible()) w.Label11.userClick();
    };
}

Journey::Click cancelAt(std::string file) {
    return [file](ui::ScanWindow& w, const ScanRunState& scan, const std::string& at, int) {
        if (at == file && !scan.scanCancelled) w.Image11.userClick();
    };
}

// The pause holds the walk at its file with workers reading ahead: every pump under it finds the same file, until
// Resume lets the scan run to its end.
TEST(ParallelScanPause, HoldsTheWalkAtItsFileUntilResume) {
    const Outcome run = scan({"Paused", "CRC32", 7, pauseAt("changed.dll")}, true);
    std::size_t paused = 0;
    for (const std::string& screen : run) {
        if (!screen.ends_with("|paused")) continue;
        EXPECT_TRUE(screen.starts_with("changed.dll|")) << screen;
        ++paused;
    }
    EXPECT_GE(paused, 3u);  // the click's own pump and the two waits under the pause
    EXPECT_EQ(run[run.size() - 2].find("cancelled"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Journeys, ParallelScan,
    ::testing::Values(Journey{"Sha1ReadBufferZero", "SHA1", 0, nullptr},
                      // Steps of 7 bytes: every file but the smallest pumps between its steps.
                      Journey{"Md5InSmallSteps", "MD5", 7, nullptr},
                      Journey{"PausedAtTheSecondFile", "CRC32", 7, pauseAt("changed.dll")},
                      Journey{"CancelledInALargeFile", "MD4", 7, cancelAt("middle.dll")},
                      Journey{"CancelledAtTheFirstFile", "CRC32", 65536, cancelAt("same.dll")}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tv
