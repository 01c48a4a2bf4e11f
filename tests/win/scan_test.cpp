// Scans over the real platform with a system directory and the program's files in
// the test's folder: a run's plan, clicks reaching a running scan through its pumps,
// the action on the findings (scanners recorded), the folder scan page and manager.
#include "core/settings_store.h"
#include "core/text.h"
#include "custom/custom_folder_form.h"
#include "custom/custom_folder_manager.h"
#include "custom/custom_slots.h"
#include "hash/checksum.h"
#include "integrity/check_int_file.h"
#include "integrity/data_file.h"
#include "integrity/findings_action.h"
#include "integrity/folder_scan_actions.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_passes.h"
#include "integrity/scan_window.h"
#include "platform/controls.h"
#include "tests/win/own_system_shell.h"
#include "tests/win/win_fixture.h"
#include "ui/main_window.h"

namespace tv::test {
namespace {

using Ticks = std::array<bool, 6>;
Ticks ticksOf(const std::function<bool(int)>& ticked) {
    Ticks ticks{};
    for (int group = 0; group < 6; ++group) ticks[group] = ticked(group);
    return ticks;
}

class Scan : public WinTest {
protected:
    Scan() {
        for (const char* folder : {"sys", "Data", "Data\\Log", "tools", "more", "av"}) files.makeFolder(path(folder));
        shell.system = path("sys");
        ctx.appPath = path("");
        ctx.settFile = path("Data\\Tarvelon.dat");
        ctx.intFile = path("Data\\Integrity.dat");
        ctx.algoName = "crc32";
        ctx.readBuffer = 65536;
        checkSettFile(ctx);
        host.start = [this] { window.setVisible(true); driver.loadUp(); };
        host.startFirstCustom = [this](const std::string&, const std::string&) { ++firstScans; };
    }
    void systemFiles(std::initializer_list<const char*> names) {
        for (const std::string name : names) writeFile("sys\\" + name, name);
    }
    std::string crcOf(const std::string& relative) { return hash::getChecksum(ctx, path(relative)); }
    void systemBaseline(const std::string& dllLines) {
        writeFile("Data\\Integrity.dat", dllLines.empty() ? "" : "[DLL]\r\n" + dllLines + "NULL*E\r\n");
        loadIntFile(ctx, ctx.intFile);
    }
    void setting(const std::string& key, const std::string& value, const std::string& section = "Tarvelon") {
        writeEntry(ctx, ctx.settFile, key, value, section);
    }
    void slot(int number, const std::string& folder, const std::string& args) {
        setting("path", folder, std::to_string(number));
        setting("args", args, std::to_string(number));
    }
    void logOnRun(const std::string& cmdLine = "/r") {
        ctx.cmdLine = cmdLine;
        ctx.autoLoadRun = true;
        driver.loadUp();
    }
    // A page scan of the system's DLL files against a baseline they all pass, with
    // input waiting at every pump.
    void startDllPageScan(const std::vector<std::string>& names) {
        std::string baseline;
        for (const auto& name : names) {
            writeFile("sys\\" + name, name);
            baseline += name + "=" + crcOf("sys\\" + name) + "*E\r\n";
        }
        systemBaseline(baseline);
        loop.queueAnswer = queue::InputOrPaint;
        ctx.scan.pageScan = ctx.scan.noAutoAction = true;
        ctx.scan.wanted = {true, false, false, false, false, false};
        driver.loadUp();
    }
    void runTimer() {
        ASSERT_TRUE(window.Timer1.enabled());
        window.Timer1.userTick();
    }
    bool scanningAFile() const { return !window.fileLabels[kPassDll]->caption().empty(); }

    OwnSystemShell shell;
    AppContext ctx{{files, profiles, shell, boxes, processes, loop, renderer, registry, clock, windows, power, shortcuts}};
    ui::ScanWindow window;
    RecordingHost host;
    ScanDriver driver{ctx, window, host};
    FindingsAction action{ctx, window, host, driver};
    ui::MainWindow main;
    ui::FolderScanPage& page = main.folderScan;
    FolderScanActions pageActions{ctx, page, host, [this]() -> ScanDriver& { return driver; }, [this] { main.norms2(); }};
    int firstScans = 0;
};

TEST_F(Scan, MissingBaselineWithABackupIsRestoredOrTheProgramStartsAnew) {
    writeFile("Data\\Integrity.bak", "[DLL]\r\nNULL*E\r\n");
    boxes.answers = {box::No, box::Ok, box::Yes};
    checkIntFile(ctx, host);
    EXPECT_EQ(boxes.shown[0].title, "Missing Integrity.dat file");
    EXPECT_TRUE(host.ended && !files.canRead(path("Data\\Integrity.bak")));
    const auto restart = std::make_pair("\"" + path("TarvelonLow.exe") + "\"", int{show::MinimizedFocus});
    EXPECT_EQ(processes.started, std::vector{restart});
    writeFile("Data\\Integrity.bak", "kept");
    checkIntFile(ctx, host);
    EXPECT_EQ(readFile("Data\\Integrity.dat"), "kept");

    // The folder scan page asks in its own words and restarts on Yes only.
    files.remove(ctx.intFile);
    writeFile("Data\\Integrity.bak", "old");
    boxes.answers = {box::No, box::Yes, box::Ok};
    pageActions.enter();
    EXPECT_EQ(boxes.shown[3].title + " " + std::to_string(processes.started.size()), "Missing File 1");
    pageActions.enter();
    EXPECT_EQ(boxes.shown[5].prompt, "Tarvelon needs to be re-started");
    EXPECT_TRUE(!files.canRead(path("Data\\Integrity.bak")) && processes.started == (std::vector{restart, restart}));
}

// The system's saved groups, then each folder whose list ends in "1" with its own
// groups, a vanished one with an empty turn; a run that cannot ask writes a
// missing folder baseline blank. A scheduled run counts every type, scans the saved.
TEST_F(Scan, LogOnAndScheduledRunsPlanTheSystemAndEachJoiningFolderWithItsOwnGroups) {
    systemFiles({"a.dll", "b.exe"});
    writeFile("tools\\t.exe", "t");
    writeFile("tools\\u.dll", "u");
    setting("settings", "1,0,0,0,0,0,0,0");
    slot(1, path("gone\\"), "1,1,1,1,1,1,1");
    slot(3, path("tools\\"), "0,0,0,0,1,0,1");
    systemBaseline("");
    logOnRun();
    EXPECT_EQ(window.l_scust.caption() + " " + ctx.scan.customQueue + " " + window.pb2max.caption(), "0% 1,3, 2");
    EXPECT_EQ(ctx.scan.wanted, (Ticks{true}));
    runTimer();
    EXPECT_EQ(window.l_cust2.caption() + " " + window.l_scust.caption() + " " + test::scanFigures(window) + " " +
                  window.Label13.caption() + "|" + window.titles[1]->caption(),
              "Custom Folder 2/2 0% 2 0 2 0 Results|Driver Scan --- Not Scanning");
    EXPECT_TRUE(window.Frame2.visible() && !host.ended);  // findings: the results stay
    EXPECT_EQ(readIni(ctx, path("Data\\3.dat"), "u.dll", "DLL") + readIni(ctx, path("Data\\3.dat"), "t.exe", "EXE"),
              "NULL*ENULL*E");

    slot(1, "NULL", "0");
    slot(3, "NULL", "0");
    systemBaseline("A.DLL=" + crcOf("sys\\a.dll") + "*E\r\n");
    ctx.schedRun = true;
    host.ended = false;
    const int actionsBefore = host.actions;
    logOnRun("/a");
    EXPECT_TRUE(window.pb2max.caption() == "2" && ctx.autoScanFailed && ctx.scan.wanted == (Ticks{true}));
    runTimer();
    EXPECT_TRUE(window.Label6.caption() == "1" && host.actions == actionsBefore + 1 && host.ended);  // b.exe counted only
}

// Cancel on a primary scan asks; No scans on to the end. The close box, Yes: the
// baseline goes and the program ends.
TEST_F(Scan, PrimaryScanLeftMidwayAsksWhetherToAbandonIt) {
    systemFiles({"a.dll", "b.dll", "c.exe"});
    loop.queueAnswer = queue::InputOrPaint;
    host.endUnwinds = true;
    boxes.answers = {box::Yes, box::No};  // first run; then keep scanning
    checkIntFile(ctx, host);
    loop.onPump = [&] {
        if (boxes.shown.size() == 1 && scanningAFile()) window.Image11.userClick();
    };
    runTimer();
    EXPECT_EQ(boxes.shown[1].prompt, "If you stop the scan now, you will need to re-start it later\r\n"
                                     "Are you sure you want to abandon the full system scan?");
    EXPECT_TRUE(!host.ended && host.mainShown);
    for (const std::string name : {"a.dll", "b.dll", "c.exe"})
        EXPECT_EQ(readIni(ctx, ctx.intFile, name, upperCase(name.substr(2))), crcOf("sys\\" + name) + "*E");

    files.remove(ctx.intFile);
    boxes.answers = {box::Yes, box::Yes};
    checkIntFile(ctx, host);
    loop.onPump = [&] {
        if (scanningAFile()) window.userClose();
    };
    EXPECT_THROW(runTimer(), RecordingHost::ProgramEnded);
    EXPECT_FALSE(files.canRead(ctx.intFile) || files.canRead(path("Data\\integrity.bak")));
}

// A folder chosen on the main window during a pass starts its first scan inside the
// old one: it runs to its end and presses its action, then the old handler sees
// the cancel cleared and finishes over the same folder.
TEST_F(Scan, ANewScanStartedMidPassRunsInsideTheOldOne) {
    startDllPageScan({"a.dll", "b.dll"});
    writeFile("tools\\t.dll", "t");
    setting("path", path("tools\\"), "2");
    host.startFirstCustom = [this](const std::string& folder, const std::string& datFile) {
        driver.firstCustomScan(folder, datFile, {path("tools\\"), 2});
    };
    boxes.answers = {box::Yes};
    int innerScans = 0;
    bool chosen = false;
    loop.onPump = [&] {
        if (!chosen && scanningAFile()) {
            chosen = true;
            loadCustomDat(ctx, host, hash::getCustomDat(ctx, 2));
        } else if (innerScans == 0 && window.Timer1.enabled()) {
            ++innerScans;
            window.Timer1.userTick();  // its tick comes through the same pump
        }
    };
    runTimer();
    EXPECT_EQ(innerScans, 1);
    EXPECT_EQ(window.List1.items(), std::vector<std::string>{path("tools\\t.dll *NEW*")});
    EXPECT_EQ(window.Label6.caption() + " " + window.Label13.caption() + " " + std::to_string(ctx.scan.newCount), "1 Results 1");
    EXPECT_TRUE(host.actions >= 1 && !ctx.scan.scanCancelled && window.Frame2.visible());
}

// The action on a log-on run's findings while another program reads the data file
// and shares it for reading only: the copy to the backup still works, the rewrite
// fails and is told of once, and the scanner starts minimised.
TEST_F(Scan, LockedDataFileKeepsItsBaselineAndTheBackupStaysUsable) {
    const std::string oldSystem = "[DLL]\r\na.dll=0*E\r\nNULL*E\r\n";
    writeFile("av\\scan.exe", "MZ");
    setting("antivirus", path("av\\scan.exe") + "|");
    setting("settings", "1,0,0,0,0,0,1,0");  // DLL files, the action at once
    systemFiles({"a.dll", "c.dll"});
    writeFile("Data\\Integrity.dat", oldSystem);
    loadIntFile(ctx, ctx.intFile);
    HANDLE reader = INVALID_HANDLE_VALUE;
    host.action = [this, &reader] {
        reader = ::CreateFileA(ctx.intFile.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(reader, INVALID_HANDLE_VALUE);
        action.label12Click();
    };
    boxes.answers = {box::Ok};
    logOnRun();
    runTimer();
    ::CloseHandle(reader);
    EXPECT_EQ(window.List1.items().size(), 2u);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(boxes.shown[0].prompt.starts_with("Tarvelon could not write\r\n" + ctx.intFile + "\r\n"));
    EXPECT_EQ(processes.started.at(0).second, show::MinimizedFocus);
    EXPECT_EQ(readFile("Data\\Integrity.dat") + readFile("Data\\integrity.bak"), oldSystem + oldSystem);

    // A scanner that cannot start is named, and the findings stay unaccepted.
    processes.refuse = true;
    boxes.shown.clear();
    boxes.answers = {box::Ok};
    host.action = [this] { action.label12Click(); };
    logOnRun();
    runTimer();
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(boxes.shown[0].prompt.ends_with(path("av\\scan.exe")));
    EXPECT_EQ(readFile("Data\\Integrity.dat"), oldSystem);
}

// The folder list keeps no gaps, yet a row stands for the slot of its number; the
// boxes follow its list. A folder without baseline asks for its first scan.
TEST_F(Scan, FolderListRowsStandForTheirSlotsAndAFolderWithoutBaselineAsks) {
    const auto ticks = [this] { return ticksOf([this](int group) { return page.check[group]->value() == 1; }); };
    slot(2, "  " + path("tools\\") + " ", "1,0,0,0,0,0,0");
    slot(5, path("more\\"), "0,0,0,0,1,0,0");
    systemBaseline("");
    pageActions.enter();
    EXPECT_EQ(page.Combo1.items(), (std::vector<std::string>{path("sys\\"), path("tools\\"), path("more\\")}));
    writeFile("Data\\1.dat", "");
    slot(1, "NULL", "0,0,1,0,0,1,0");
    page.Combo1.userSetValue(1);
    page.Combo1.userSetValue(0);  // the system directory leaves the boxes alone
    EXPECT_EQ(ticks(), (Ticks{false, false, true, false, false, true}));
    page.bCLEAR.userClick();
    boxes.answers = {box::Ok};
    page.bSCAN.userClick();
    EXPECT_EQ(boxes.shown.at(0).prompt, "Please select the files to scan.");
    EXPECT_FALSE(window.visible());

    files.remove(path("Data\\1.dat"));
    slot(1, path("tools\\"), "1,0,0,0,0,0,0");
    slot(2, path("gone\\"), "0,1");
    slot(5, "NULL", "0");
    pageActions.loadf();
    boxes.answers = {box::No, box::Ok, box::Yes};
    page.Combo1.userSetValue(1);
    EXPECT_EQ(boxes.shown[2].prompt, "You have chosen not to scan this Custom Folder.  You need to run the scan before "
                                     "using this Custom Folder Integrity Checker.");
    EXPECT_EQ(page.Combo1.value(), 0);  // back to the system directory
    EXPECT_TRUE(!files.canRead(path("Data\\1.dat")) && firstScans == 0);
    page.Combo1.userSetValue(2);  // a vanished folder: a baseline of headings only
    const std::string baseline = readFile("Data\\2.dat");
    EXPECT_TRUE(baseline.find("=NULL*E") == std::string::npos && baseline.find("[DLL]\r\nNULL*E\r\n") != std::string::npos);
    EXPECT_EQ(firstScans, 1);
    EXPECT_EQ(ticks(), (Ticks{false, true, false, false, false, false}));  // a short list ticks what it names
}

class FolderManager : public Scan {
protected:
    void addFolder(const std::string& folder) {
        shell.folderChoices.push_back(folder);
        form.cButton2.userClick();
    }
    std::string rows(std::initializer_list<int> slots) const {
        std::string text;
        for (int slot : slots) text += form.List1.items().at(slot - 1) + "|";
        return text;
    }
    ui::CustomFolderForm form;
    int folderListReloads = 0;
    ui::CustomFolderManager manager{ctx, form, [this] { ++folderListReloads; }};
};

// Rows show every slot in its place; the type lists follow their box and the chosen
// row. Add refuses the system directory and a folder in use and takes the lowest
// free row; only Save writes; Remove takes effect at once with the slot's files.
TEST_F(FolderManager, RowsAddSaveAndRemove) {
    slot(10, " " + path("tools\\") + " ", "1,0,1,0,0,0,1");
    setting("path", "C:\\F12\\", "12");
    manager.show();
    EXPECT_EQ(rows({1, 10, 12}), "1) Empty:|10) " + path("tools\\") + "|12) C:\\F12\\|");
    form.List1.userSetValue(9);
    EXPECT_EQ(form.Label1.caption(), "Currently Selected: 10) " + path("tools\\"));
    EXPECT_EQ(ticksOf([this](int type) { return form.List2.ticked(type); }), (Ticks{true, false, true, false, false, false}));
    EXPECT_TRUE(form.Check1.value() == 1 && form.List2.enabled() && !form.List4.enabled() && manager.custDirty == 0);
    form.Check1.userSetValue(0);  // the list closes and keeps its ticks
    EXPECT_FALSE(form.List2.enabled());

    boxes.answers = {box::Ok, box::Ok, box::Ok, box::Ok};
    addFolder(path("SYS"));
    addFolder(upperCase(path("tools")));  // another case, no backslash: the same folder
    addFolder(path("more"));
    ASSERT_EQ(boxes.shown.size(), 3u);
    EXPECT_EQ(boxes.shown[0].prompt,
              "This is the default folder that Tarvelon scans. It cannot be added to the Custom Integrity Checker");
    EXPECT_EQ(boxes.shown[1].prompt, "This folder is already being scanned.");
    EXPECT_EQ(rows({1}) + readSlot(ctx, 1).path, "1) " + path("more\\") + "|NULL");  // the lowest free row; only Save writes
    form.setVisible(false);  // hidden, the form keeps its unsaved rows
    manager.show();
    form.List1.userSetValue(0);
    form.Check2.userSetValue(1);
    form.List4.userTickItem(0, true);
    form.Command3.userClick();
    EXPECT_EQ(readSlot(ctx, 1).path + " " + readSlot(ctx, 1).args2, path("more\\") + " 1,0,0,0,0,0,1");
    EXPECT_EQ(readSlot(ctx, 10).args + " " + readSlot(ctx, 10).path, "1,0,1,0,0,0,0 " + path("tools\\"));
    EXPECT_EQ(ctx.scan.customIndex, 12);  // the last folder without data
    EXPECT_TRUE(folderListReloads == 1 && !form.visible() && manager.custDirty == 0);

    const std::string eight[] = {"10.dat", "10.bak", "10-md4.dat", "10-md4.bak", "10-md5.dat", "10-md5.bak", "10-sha1.dat", "10-sha1.bak"};
    for (const std::string& name : eight) writeFile("Data\\" + name, "x");
    writeFile("Data\\1.dat", "x");
    manager.show();
    form.List1.userSetValue(9);
    boxes.answers = {box::Cancel, box::Ok, box::No};
    const std::size_t asked = boxes.shown.size();
    form.Command2.userClick();
    EXPECT_EQ(boxes.shown.at(asked).title + readSlot(ctx, 10).path, "Caution!" + path("tools\\"));
    form.Command2.userClick();
    for (const std::string& name : eight) EXPECT_FALSE(files.canRead(path("Data\\" + name))) << name;
    EXPECT_TRUE(files.canRead(path("Data\\1.dat")));
    form.userClose();  // "No" to saving: the removal stays
    EXPECT_EQ(boxes.shown.back().prompt, "Do you wish to Save your changes?");
    EXPECT_EQ(readSlot(ctx, 10).path + " " + std::to_string(folderListReloads), "NULL 2");

    for (int slot = 1; slot <= 20; ++slot) setting("path", "C:\\F" + std::to_string(slot) + "\\", std::to_string(slot));
    manager.show();
    const std::size_t told = boxes.shown.size();
    addFolder(path("tools\\new"));  // twenty folders in use: the next is left out without a word
    EXPECT_EQ(shell.folderTitles.size() + boxes.shown.size(), 4u + told);
    EXPECT_EQ(rows({20}), "20) C:\\F20\\|");
}

}  // namespace
}  // namespace tv::test
