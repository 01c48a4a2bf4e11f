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
    void runTimer() {
        ASSERT_TRUE(window.Timer1.enabled());
        window.Timer1.userTick();
    }
    bool scanningAFile() const { return !window.fileLabels[kPassDll]->caption().empty(); }
    Ticks ticks() const {
        Ticks ticked{};
        for (int group = 0; group < 6; ++group) ticked[group] = page.check[group]->value() == 1;
        return ticked;
    }

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

    // The folder scan page asks in its own words, shows the bare frame and restarts on Yes only.
    files.remove(ctx.intFile);
    writeFile("Data\\Integrity.bak", "old");
    boxes.answers = {box::No, box::Yes, box::Ok};
    pageActions.enter();
    EXPECT_EQ(boxes.shown[3].title + " " + std::to_string(processes.started.size()), "Missing File 1");
    for (const ui::Control* frame : {&main.intF, &main.regF, &main.appF, &main.setFq, &main.settF, &main.repF, &main.Frame2})
        EXPECT_FALSE(frame->visible()) << frame->name();
    pageActions.enter();
    EXPECT_EQ(boxes.shown[5].prompt, "Tarvelon needs to be re-started");
    EXPECT_FALSE(files.canRead(path("Data\\Integrity.bak")));
    EXPECT_EQ(processes.started, (std::vector{restart, restart}));
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
    for (const ui::Control* percent : window.percentLabels) EXPECT_EQ(percent->caption(), "0%");
    EXPECT_EQ(window.l_scust.caption() + " " + ctx.scan.customQueue + " " + window.pb2max.caption(), "0% 1,3, 2");
    EXPECT_EQ(ctx.scan.wanted, (Ticks{true, false, false, false, false, false}));
    runTimer();
    EXPECT_EQ(window.l_cust2.caption() + " " + window.l_scust.caption(), "Custom Folder 2/2 0%");
    EXPECT_EQ(test::scanFigures(window) + " " + window.Label13.caption(), "2 0 2 0 Results");
    EXPECT_TRUE(window.Frame2.visible() && !host.ended);  // findings: the results stay
    EXPECT_EQ(window.titles[1]->caption(), "Driver Scan --- Not Scanning");
    EXPECT_EQ(readIni(ctx, path("Data\\3.dat"), "u.dll", "DLL") + readIni(ctx, path("Data\\3.dat"), "t.exe", "EXE"),
              "NULL*ENULL*E");

    slot(1, "NULL", "0");
    slot(3, "NULL", "0");
    systemBaseline("A.DLL=" + crcOf("sys\\a.dll") + "*E\r\n");
    ctx.schedRun = true;
    host.ended = false;
    const int actionsBefore = host.actions;
    logOnRun("/a");
    EXPECT_EQ(window.pb2max.caption(), "2");
    EXPECT_EQ(ctx.scan.wanted, (Ticks{true, false, false, false, false, false}));
    EXPECT_TRUE(ctx.autoScanFailed);  // from the fixed list of the counting
    runTimer();
    EXPECT_EQ(window.Label6.caption() + " " + std::to_string(host.actions - actionsBefore), "1 1");
    EXPECT_TRUE(host.ended);  // clean: b.exe was counted but not scanned
}

class Reentrancy : public Scan {
protected:
    Reentrancy() { loop.queueAnswer = queue::InputOrPaint; }  // every pump finds input waiting
    // A page scan of the system's DLL files against a baseline they all pass.
    void startDllPageScan(const std::vector<std::string>& names) {
        std::string baseline;
        for (const auto& name : names) {
            writeFile("sys\\" + name, name);
            baseline += name + "=" + crcOf("sys\\" + name) + "*E\r\n";
        }
        systemBaseline(baseline);
        ctx.scan.pageScan = ctx.scan.noAutoAction = true;
        ctx.scan.wanted = {true, false, false, false, false, false};
        driver.loadUp();
    }
};

TEST_F(Reentrancy, PauseHoldsThePassCancelEndsItAtTheNextTestAndResumeGoesOn) {
    startDllPageScan({"a.dll", "b.dll", "c.dll"});
    std::string doneWhilePaused;
    bool resumeShown = false;
    loop.onPump = [&] {
        if (scanningAFile() && !ctx.scan.scanPaused && loop.waits == 0) window.Image9.userClick();
        if (loop.waits == 1) doneWhilePaused = window.Label6.caption();
        if (loop.waits == 3 && !ctx.scan.scanCancelled) {
            resumeShown = window.Label11.visible();
            EXPECT_EQ(window.Label6.caption(), doneWhilePaused);  // nothing moved while paused
            window.Image11.userClick();
        }
    };
    runTimer();
    EXPECT_EQ(loop.waits, 3);
    EXPECT_TRUE(resumeShown && !ctx.scan.scanPaused && ctx.scan.scanCancelled);
    EXPECT_EQ(doneWhilePaused + " " + window.Label6.caption() + " " + window.pbm.caption(), "1 1 0");  // the next file left uncounted
    EXPECT_TRUE(window.Frame1.visible() && !window.Frame2.visible() && !window.visible() && host.actions == 0);

    loop.onPump = nullptr;  // no click while the next scan is planned
    loop.waits = 0;
    files.remove(path("sys\\c.dll"));
    startDllPageScan({"a.dll", "b.dll"});
    loop.onPump = [&] {
        if (scanningAFile() && !ctx.scan.scanPaused && loop.waits == 0) window.Image9.userClick();
        if (loop.waits == 2) window.Label11.userClick();  // Resume
    };
    runTimer();
    EXPECT_EQ(loop.waits, 2);
    EXPECT_EQ(window.Label6.caption() + " " + window.Label13.caption() + " " + window.Label2.caption(),
              "2 Results Close Integrity Check Window");
    EXPECT_TRUE(window.Label14.visible());
}

// Cancel on a primary scan asks; No scans on to the end. The close box, Yes: the
// baseline goes and the program ends.
TEST_F(Reentrancy, PrimaryScanLeftMidwayAsksWhetherToAbandonIt) {
    systemFiles({"a.dll", "b.dll", "c.exe"});
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
TEST_F(Reentrancy, ANewScanStartedMidPassRunsInsideTheOldOne) {
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

// A log-on run that finds a.dll changed, b.exe and c.dll new in the system
// directory, t.dll new and u.exe changed in custom folder 3, and hands them on.
class Findings : public Scan {
protected:
    void logOnRunWithFiveFindings(const std::string& scanner) {
        writeFile("av\\scan.exe", "MZ");
        ctx.autoLogging = &autoLogging;
        autoLogging.setValue(scanner.empty() ? 0 : 1);  // without a scanner the report is forced
        ctx.quoteChar = "\"";
        ctx.passCount = 2;
        if (!host.action) host.action = [this] { action.label12Click(); };
        if (!scanner.empty()) setting("antivirus", scanner);
        systemFiles({"a.dll", "b.exe", "c.dll"});
        writeFile("tools\\t.dll", "t");
        writeFile("tools\\u.exe", "u");
        setting("settings", "1,1,1,1,1,1,1,0");
        slot(3, path("tools\\"), "1,0,0,0,1,0,1");
        writeFile("Data\\Integrity.dat", oldSystem);
        writeFile("Data\\3.dat", oldCustom);
        loadIntFile(ctx, ctx.intFile);
        logOnRun();
        runTimer();
    }
    std::vector<std::string> logs() {
        std::vector<std::string> names;
        for (auto name = files.firstName(path("Data\\Log\\")); !name.empty(); name = files.nextName())
            if (name[0] != '.') names.push_back(readFile("Data\\Log\\" + name));
        return names;
    }

    ui::Control autoLogging{ui::Kind::FlatCheck, "Check7", nullptr, {}, "Auto-Logging"};
    const std::string oldSystem = "[DLL]\r\na.dll=0*E\r\nNULL*E\r\n[EXE]\r\nNULL*E\r\n";
    const std::string oldCustom = "[DLL]\r\nNULL*E\r\n[EXE]\r\nu.exe=0*E\r\nNULL*E\r\n";
};

TEST_F(Findings, WithoutAScannerTheFirstBatchIsReportedAndEverythingUpdated) {
    boxes.answers = {box::Ok};
    logOnRunWithFiveFindings("");
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(processes.started.empty());
    EXPECT_EQ(logs(), std::vector<std::string>{"Integrity Checker - These files were logged because you didn't setup "
                                               "an Anti-Virus Scanner," + path("sys\\a.dll") + "," + path("sys\\c.dll") + "\r\n"});
    EXPECT_EQ(readIni(ctx, path("Data\\3.dat"), "t.dll", "DLL"), crcOf("tools\\t.dll") + "*E");
    EXPECT_EQ(readIni(ctx, ctx.intFile, "a.dll", "DLL"), crcOf("sys\\a.dll") + "*E");
}

TEST_F(Findings, ScannerThatCannotStartLeavesReportAndBaselinesAlone) {
    processes.refuse = true;
    boxes.answers = {box::Ok};
    logOnRunWithFiveFindings(path("av\\scan.exe") + "|");
    EXPECT_TRUE(boxes.shown[0].prompt.ends_with(path("av\\scan.exe")));
    EXPECT_TRUE(logs().empty());
    EXPECT_EQ(readFile("Data\\Integrity.dat") + readFile("Data\\3.dat"), oldSystem + oldCustom);
    EXPECT_TRUE(window.List1.items().size() == 5u && !host.ended);
}

// Another program reads the data file and shares it for reading only: the copy to
// the backup still works, the rewrite fails and is told of once, and the custom
// folder's file is updated as usual. The scanners start minimised.
TEST_F(Findings, LockedDataFileKeepsItsBaselineAndTheBackupStaysUsable) {
    HANDLE reader = INVALID_HANDLE_VALUE;
    host.action = [this, &reader] {
        reader = ::CreateFileA(ctx.intFile.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(reader, INVALID_HANDLE_VALUE);
        action.label12Click();
    };
    boxes.answers = {box::Ok};
    logOnRunWithFiveFindings(path("av\\scan.exe") + "|");
    ::CloseHandle(reader);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(boxes.shown[0].prompt.starts_with("Tarvelon could not write\r\n" + ctx.intFile + "\r\n"));
    EXPECT_EQ(processes.started.at(0).second, show::MinimizedFocus);
    EXPECT_EQ(readFile("Data\\Integrity.dat") + readFile("Data\\integrity.bak"), oldSystem + oldSystem);
    EXPECT_EQ(readIni(ctx, path("Data\\3.dat"), "t.dll", "DLL"), crcOf("tools\\t.dll") + "*E");
}

// The folder list keeps no gaps, yet a row stands for the slot of its number; the
// boxes follow its list. A folder without baseline asks for its first scan.
TEST_F(Scan, FolderListRowsStandForTheirSlotsAndAFolderWithoutBaselineAsks) {
    slot(2, "  " + path("tools\\") + " ", "1,0,0,0,0,0,0");
    slot(5, path("more\\"), "0,0,0,0,1,0,0");
    systemBaseline("");
    pageActions.enter();
    EXPECT_TRUE(main.intF.visible() && !main.Frame2.visible());
    EXPECT_EQ(page.Combo1.items(), (std::vector<std::string>{path("sys\\"), path("tools\\"), path("more\\")}));
    EXPECT_EQ(page.Combo1.value(), 0);
    writeFile("Data\\1.dat", "");
    slot(1, "NULL", "0,0,1,0,0,1,0");
    page.Combo1.userSetValue(1);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(ticks(), (Ticks{false, false, true, false, false, true}));
    page.Combo1.userSetValue(0);  // the system directory leaves the boxes alone
    EXPECT_EQ(ticks(), (Ticks{false, false, true, false, false, true}));
    page.bCLEAR.userClick();
    boxes.answers = {box::Ok};
    page.bSCAN.userClick();
    EXPECT_EQ(boxes.shown.at(0).prompt, "Please select the files to scan.");
    EXPECT_FALSE(window.visible());
    for (const int group : {1, 5, 1}) page.groupButtons[group]->userClick();
    EXPECT_EQ(ticks(), (Ticks{false, false, false, false, false, true}));
    page.bFULL.userClick();
    EXPECT_EQ(ticks(), (Ticks{true, true, true, true, true, true}));

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
    page.bFULL.userClick();
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
    static Ticks ticked(const ui::Control& list) {
        Ticks ticks{};
        for (std::size_t type = 0; type < 6; ++type) ticks[type] = list.ticked(type);
        return ticks;
    }
    ui::CustomFolderForm form;
    int folderListReloads = 0;
    ui::CustomFolderManager manager{ctx, form, [this] { ++folderListReloads; }};
};

// Rows show every slot in its place and each list of a slot is kept when the
// other is missing; the type lists follow their box and the chosen row; opened
// after it was closed, the form starts as a new load does.
TEST_F(FolderManager, RowsListsAndBoxesShowTheSlotsAsSaved) {
    slot(2, path("tools\\"), "1,0,1,0,0,0,1");
    setting("args2", "", "2");
    slot(3, " " + path("more\\") + " ", "");  // read as nothing ticked
    setting("args2", "0,0,0,0,0,1,1", "3");
    setting("path", "C:\\F12\\", "12");
    EXPECT_EQ(std::make_pair(joinsRun("1,1"), joinsRun("1,1,1,1,1,1,0")), std::make_pair(true, false));  // the last character
    EXPECT_EQ(wantedGroups("1,1"), (Ticks{true, true, false, false, false, false}));
    const auto startsAsNew = [this] {
        EXPECT_EQ(form.List1.value(), -1);
        EXPECT_EQ(form.Label1.caption(), "Currently Selected:");
        for (const ui::Control* box : {&form.Check1, &form.Check2})
            EXPECT_TRUE(box->value() == 0 && !box->enabled() && box->backColour() == ui::kSystemColour) << box->name();
        for (const ui::Control* types : {&form.List2, &form.List4})
            EXPECT_TRUE(ticked(*types) == Ticks{} && !types->enabled()) << types->name();
    };
    manager.show();
    ASSERT_EQ(form.List1.items().size(), 20u);
    EXPECT_EQ(rows({1, 2, 3, 12}), "1) Empty:|2) " + path("tools\\") + "|3) " + path("more\\") + "|12) C:\\F12\\|");
    EXPECT_EQ(form.List3.items()[1] + " " + form.List5.items()[1], "1,0,1,0,0,0,1 0,0,0,0,0,0,0");
    EXPECT_EQ(form.List3.items()[2] + " " + form.List5.items()[2], "0,0,0,0,0,0,0 0,0,0,0,0,1,1");
    startsAsNew();

    form.List1.userSetValue(1);
    EXPECT_EQ(form.Label1.caption(), "Currently Selected: 2) " + path("tools\\"));
    EXPECT_EQ(ticked(form.List2), (Ticks{true, false, true, false, false, false}));
    EXPECT_EQ(std::make_tuple(form.Check1.value(), form.Check1.backColour(), form.Check1.foreColour()),
              std::make_tuple(1, 0x800000u, 0xFFFFFFu));
    EXPECT_TRUE(form.List2.enabled() && !form.List4.enabled() && manager.custDirty == 0);  // loading a row changes nothing
    form.List2.userTickItem(4, true);
    EXPECT_EQ(form.List3.items()[1], "1,0,1,0,1,0,1");
    form.Check1.userSetValue(0);  // the list closes and keeps its ticks
    EXPECT_TRUE(form.Check1.backColour() == 0x0000FFu && !form.List2.enabled());
    EXPECT_EQ(form.List3.items()[1], "1,0,1,0,1,0,0");
    form.List1.userSetValue(0);  // an empty row: boxes disabled, the list follows the row
    EXPECT_TRUE(!form.Check1.enabled() && ticked(form.List2) == Ticks{} && manager.custDirty == 1);

    boxes.answers = {box::No};
    form.userClose();  // "No" to saving: nothing written, and the next load starts from the file
    EXPECT_EQ(readSlot(ctx, 2).args, "1,0,1,0,0,0,1");
    manager.show();
    startsAsNew();
    EXPECT_EQ(form.List3.items()[1], "1,0,1,0,0,0,1");
    form.List1.userSetValue(1);
    form.userClose();  // nothing changed: no question
    EXPECT_EQ(boxes.shown.size(), 1u);
}

// Add refuses the system directory and a folder in use and takes the lowest free
// row; only Save writes; Remove takes effect at once with the slot's files.
TEST_F(FolderManager, AddSaveAndRemove) {
    slot(10, path("tools\\"), "1,0,1,0,0,0,1");
    manager.show();
    boxes.answers = {box::Ok, box::Ok, box::Ok, box::Ok};
    addFolder(path("SYS"));
    addFolder(upperCase(path("tools")));  // another case, no backslash: the same folder
    addFolder(path("more"));
    ASSERT_EQ(boxes.shown.size(), 3u);
    EXPECT_EQ(boxes.shown[0].prompt,
              "This is the default folder that Tarvelon scans. It cannot be added to the Custom Integrity Checker");
    EXPECT_EQ(boxes.shown[1].prompt, "This folder is already being scanned.");
    EXPECT_EQ(rows({1}) + readSlot(ctx, 1).path, "1) " + path("more\\") + "|NULL");  // the lowest free row; only Save writes
    EXPECT_EQ(manager.custDirty, 1);
    form.setVisible(false);  // hidden, the form keeps its unsaved rows
    manager.show();
    EXPECT_EQ(rows({1}), "1) " + path("more\\") + "|");
    form.List1.userSetValue(0);
    form.Check2.userSetValue(1);
    form.List4.userTickItem(0, true);
    form.Command3.userClick();
    EXPECT_EQ(readSlot(ctx, 1).path + " " + readSlot(ctx, 1).args2, path("more\\") + " 1,0,0,0,0,0,1");
    EXPECT_EQ(readSlot(ctx, 10).args + " " + readSlot(ctx, 2).path, "1,0,1,0,0,0,1 NULL");
    EXPECT_EQ(ctx.scan.customIndex, 10);  // the last folder without data
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
