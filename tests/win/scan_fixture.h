// A scan window and its driver over the real Win32 platform, with a system
// directory of the test's own and the program's files in the test's folder.
#pragma once

#include "core/settings_store.h"
#include "hash/checksum.h"
#include "integrity/data_file.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "tests/win/own_system_shell.h"
#include "tests/win/win_fixture.h"

namespace tv::test {

class ScanDriverTest : public WinTest {
protected:
    ScanDriverTest() {
        files.makeFolder(path("sys"));
        files.makeFolder(path("Data"));
        shell.system = path("sys");
        ctx.appPath = path("");
        ctx.settFile = path("Data\\Tarvelon.dat");
        ctx.intFile = path("Data\\Integrity.dat");
        ctx.algoName = "crc32";
        ctx.readBuffer = 65536;
        checkSettFile(ctx);
        host.start = [this] {
            window.setVisible(true);
            driver.loadUp();
        };
    }
    void systemFile(const std::string& name, const std::string& content) { writeFile("sys\\" + name, content); }
    std::string crcOf(const std::string& name) { return hash::getChecksum(ctx, path("sys\\" + name)); }
    // The system's data file with this text, loaded as the start loads it.
    void systemBaseline(const std::string& text) {
        writeFile("Data\\Integrity.dat", text);
        loadIntFile(ctx, ctx.intFile);
    }
    void runTimer() {
        ASSERT_TRUE(window.Timer1.enabled());
        window.Timer1.userTick();
    }
    // A log-on run (/r): planned, or planned and run to its end.
    void planLogOnRun() {
        ctx.cmdLine = "/r";
        ctx.autoLoadRun = true;
        driver.loadUp();
    }
    void logOnRun() {
        planLogOnRun();
        runTimer();
    }

    OwnSystemShell shell;
    AppContext ctx{{files, profiles, shell, boxes, processes, loop, renderer, registry, clock, windows, power, shortcuts}};
    ui::ScanWindow window;
    RecordingHost host;
    ScanDriver driver{ctx, window, host};
};

}  // namespace tv::test
