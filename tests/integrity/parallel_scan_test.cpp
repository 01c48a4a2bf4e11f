// A scan whose checksums worker threads take ahead of its walk, against the same
// scan on the one thread: over the same folder and the same clicks in its
// pumps, every pump must find the same screen, and the scan must end the same.
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
    // A click the user makes in a pump, by what the screen shows (the file
    // label of the pass running), the scan's flags, and how often a pause has
    // waited so far.
    using Click = std::function<void(ui::ScanWindow&, const ScanRunState&, const std::string& file, int waits)>;
    const char* name;
    const char* algo;
    int readBuffer;
    Click click;
};

void PrintTo(const Journey& journey, std::ostream* out) { *out << journey.name; }

// The screen as a pump finds it, and how the scan ended.
struct Outcome {
    std::vector<std::string> pumps;
    std::vector<std::string> items;
    std::string failList, figures;
    int threadsStarted = 0;
};

Outcome scan(const Journey& journey, bool withWorkers) {
    test::FakePlatform os;
    test::StdThreads threads;
    int started = 0;
    struct Counting final : Threads {
        Threads& real;
        int& started;
        Counting(Threads& r, int& s) : real(r), started(s) {}
        int processorCount() const override { return real.processorCount(); }
        std::unique_ptr<Mutex> makeMutex() override { return real.makeMutex(); }
        std::unique_ptr<Semaphore> makeSemaphore() override { return real.makeSemaphore(); }
        std::unique_ptr<Thread> start(std::function<void()> body) override {
            ++started;
            return real.start(std::move(body));
        }
    } counting(threads, started);
    PlatformSet set = os.set();
    set.threads = withWorkers ? &counting : nullptr;
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
        run.pumps.push_back(file + "|" + window.Label6.caption() + "|" + window.Label8.caption() + "|" +
                            window.Label9.caption() + "|" + std::to_string(window.List1.items().size()) +
                            (ctx.scan.scanPaused ? "|paused" : ""));
        if (journey.click) journey.click(window, ctx.scan, file, os.loop.waits);
    };
    os.boxes.answers = {box::Yes, box::Yes};  // leaving with findings listed
    ctx.scan.pageScan = ctx.scan.noAutoAction = true;
    ctx.scan.wanted.fill(true);
    driver.loadUp();
    window.Timer1.userTick();
    run.items = window.List1.items();
    run.failList = ctx.scan.failList;
    run.figures = window.Label6.caption() + " " + window.Label7.caption() + " " + window.Label8.caption() + " " +
                  window.Label9.caption() + " " + window.pbm.caption() + " " + std::to_string(ctx.readBuffer) +
                  (ctx.scan.scanCancelled ? " cancelled" : "");
    run.threadsStarted = started;
    return run;
}

class ParallelScan : public ::testing::TestWithParam<Journey> {};

TEST_P(ParallelScan, ListsCountsPausesAndCancelsAsTheOneThreadDoes) {
    const Outcome alone = scan(GetParam(), false);
    const Outcome parallel = scan(GetParam(), true);
    EXPECT_EQ(alone.threadsStarted, 0);
    EXPECT_GT(parallel.threadsStarted, 0);
    EXPECT_EQ(parallel.pumps, alone.pumps);
    EXPECT_EQ(parallel.items, alone.items);
    EXPECT_EQ(parallel.failList, alone.failList);
    EXPECT_EQ(parallel.figures, alone.figures);
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

INSTANTIATE_TEST_SUITE_P(
    Journeys, ParallelScan,
    ::testing::Values(Journey{"Crc32", "CRC32", 65536, nullptr},
                      // Steps of 7 bytes: every file but the smallest pumps between its steps.
                      Journey{"Md5InSmallSteps", "MD5", 7, nullptr},
                      Journey{"Sha1ReadBufferZero", "SHA1", 0, nullptr},
                      Journey{"PausedAtTheSecondFile", "CRC32", 7, pauseAt("changed.dll")},
                      Journey{"CancelledInALargeFile", "MD4", 7, cancelAt("middle.dll")},
                      Journey{"CancelledAtTheFirstFile", "CRC32", 65536, cancelAt("same.dll")}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tv
