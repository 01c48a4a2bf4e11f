#include "integrity/scan_driver.h"

#include "core/settings_store.h"
#include "core/file_utils.h"
#include "core/text.h"
#include "custom/custom_slots.h"
#include "hash/checksum.h"
#include "integrity/check_int_file.h"
#include "integrity/compare_pass.h"
#include "integrity/data_file.h"
#include "integrity/scan_passes.h"
#include "integrity/scan_window.h"

namespace tv {
namespace {

constexpr const char* kLeaveWithFindings = "Some files failed the integrity check!  Are you sure you want to exit?";
constexpr const char* kAbandonPrimary =
    "If you stop the scan now, you will need to re-start it later\r\n"
    "Are you sure you want to abandon the full system scan?";

bool inShutDown(const AppContext& ctx) { return ctx.shutAction != kNoShutdown; }

// Positions 0 to 5 of a list set the wanted passes ("1"); position 6 sets
// autoScanFailed. Nothing is cleared by a position that is not "1".
void setGroups(AppContext& ctx, const std::string& list) {
    const auto parts = splitText(list, ",");
    for (std::size_t i = 0; i < parts.size() && i < 7; ++i) {
        if (parts[i] != "1") continue;
        if (i < kPassCount) ctx.scan.wanted[i] = true;
        else ctx.autoScanFailed = true;
    }
}

}  // namespace

ScanDriver::ScanDriver(AppContext& ctx, ui::ScanWindow& window, ScanHost& host)
    : ctx_(ctx), window_(window), host_(host) {
    splitScannerSetting("ANTIVIRUS", window_.Text1, window_.Text2);
    splitScannerSetting("AV2", window_.textav1, window_.textav2);
    window_.Timer1.onTick = [this] { timerTick(); };
    window_.Image9.onClick = [this] { togglePause(); };
    window_.Label11.onClick = [this] { togglePause(); };
    window_.Image11.onClick = [this] { command1Click(); };
    window_.Command1.onClick = [this] { command1Click(); };
    window_.Label2.onClick = [this] { label2Click(); };
    window_.onQueryUnload = [this] { return queryUnload(); };
}

void ScanDriver::splitScannerSetting(const char* request, ui::Control& program, ui::Control& arguments) {
    const std::string value = getSetting(ctx_, request).value_or("");
    const std::size_t bar = inStr(1, value, "|");
    if (bar > 0) program.setCaption(leftText(value, bar - 1));
    arguments.setCaption(trimBlanks(midText(value, bar + 1)));
}

void ScanDriver::resetCaptions() {
    for (int pass = 0; pass < kPassCount; ++pass)
        for (ui::Control* label : {window_.titles[pass], window_.fileLabels[pass], window_.percentLabels[pass]})
            label->setLook(ui::kBlack);
    for (ui::Control* label : {&window_.l_cust2, &window_.l_cust, &window_.l_scust}) label->setLook(ui::kBlack);
    window_.Label12.setCaption("Scan Failing Files...");
    window_.Label2.setCaption("Repair and Update Failed Files...");
    window_.Label13.setCaption("Scanning...Please Wait");
    ctx_.os.loop.pump();
}

void ScanDriver::chooseGroupsFromSettings(bool clearFirst, bool fixedList) {
    if (clearFirst) ctx_.scan.wanted = {};
    std::string list = "1,1,1,1,1,1,1";
    if (!fixedList) list = getSetting(ctx_, inShutDown(ctx_) ? "GETSETT2" : "GETSETT").value_or("");
    setGroups(ctx_, list);
}

// Counts the files of the folder in hand whose last four characters stand
// anywhere in the list of wanted extensions.
void ScanDriver::countFiles(const std::string& extList) {
    const std::string folder =
        withTrailingBackslash(ctx_.customFolder.empty() ? trimBlanks(getSysDir(ctx_)) : ctx_.customFolder);
    const std::string wanted = upperCase(extList);
    for (std::string name = ctx_.os.files.firstName(folder); !name.empty(); name = ctx_.os.files.nextName()) {
        if (name == "." || name == "..") continue;
        const std::string tail = upperCase(rightText(name, 4));
        if (inStr(1, wanted, tail) == 0) continue;
        ++grandTotal_;
        if (tail == ".DLL") ++counts_[kPassDll];
        else if (tail == ".DRV") ++counts_[kPassDrv];
        else if (tail == ".SYS" || tail == ".386") ++counts_[kPassSys];
        else if (tail == ".OCX") ++counts_[kPassOcx];
        else if (tail == ".EXE" || tail == ".COM") ++counts_[kPassExe];
        else if (tail == ".PIF") ++counts_[kPassExe2];
        // A ".SCR" counts towards the whole scan only.
    }
}

// Looks for the next slot, after `slot`, whose list ends in "1"; it joins the
// queue with its own groups. False once the slots have run out.
bool ScanDriver::nextJoiningFolder(int& slot) {
    while (++slot <= kSlotCount) {
        const CustomSlot record = readSlot(ctx_, slot);
        const std::string& list = inShutDown(ctx_) ? record.args2 : record.args;
        if (!joinsRun(list)) continue;
        ctx_.scan.customQueue += std::to_string(slot) + ",";
        ctx_.scan.wanted = wantedGroups(list);
        ctx_.customFolder = record.path;
        return true;
    }
    ctx_.customFolder.clear();
    return false;
}

void ScanDriver::loadUp() {
    ScanRunState& scan = ctx_.scan;
    checkIntFile(ctx_, host_);
    resetCaptions();
    scan.scanPaused = false;
    window_.Frame1.setVisible(true);
    window_.Frame2.setVisible(false);
    window_.Frame3.setVisible(false);
    window_.Label11.setVisible(false);
    ctx_.os.loop.pump();
    window_.Label14.setVisible(false);

    scan.failList.clear();
    scan.customFailList.clear();
    scan.customQueue.clear();
    counts_ = {};
    grandTotal_ = 0;
    for (int pass = 0; pass < kPassCount; ++pass) {
        window_.titles[pass]->setCaption(kScanPasses[pass].plannedTitle);
        window_.percentLabels[pass]->setCaption("0%");
        window_.fileLabels[pass]->setCaption("");
    }
    window_.l_scust.setCaption("0%");
    window_.l_cust.setCaption("");
    window_.l_cust2.setCaption("Custom Folder");
    scan.passDone = scan.failCount = scan.newCount = 0;

    if (scan.pageScan) {
        window_.setVisible(true);
    } else if (ctx_.primaryScan) {
        scan.wanted.fill(true);
    } else {
        chooseGroupsFromSettings(false, !inShutDown(ctx_) && ctx_.schedRun);
    }

    const bool switchedRun = inShutDown(ctx_) || !ctx_.cmdLine.empty();
    int slot = 0;
    for (;;) {
        std::string extList;
        for (int pass = 0; pass < kPassCount; ++pass)
            if (scan.wanted[pass]) extList += kScanPasses[pass].planned;
        splitScannerSetting("ANTIVIRUS", window_.Text1, window_.Text2);
        countFiles(extList);
        if (ctx_.primaryBuild || !switchedRun || !nextJoiningFolder(slot)) break;
    }
    // The custom folders used their own groups; the system passes get the saved ones back.
    if (!ctx_.primaryBuild && switchedRun) chooseGroupsFromSettings(true, false);

    window_.pb2max.setCaption(std::to_string(grandTotal_ == 0 ? 1 : grandTotal_));
    window_.Timer1.setEnabled(true);
}

void ScanDriver::timerTick() {
    ScanRunState& scan = ctx_.scan;
    window_.Timer1.setEnabled(false);
    scan.scanCancelled = false;
    window_.pb1max.setCaption("0");
    window_.pbm.setCaption("0");

    int folderCount = -1, folderNumber = 0;
    for (;;) {
        resetCaptions();
        for (int pass = 0; pass < kPassCount; ++pass) {
            if (!scan.wanted[pass]) {
                window_.titles[pass]->setCaption(kScanPasses[pass].notWanted);
                continue;
            }
            scan.passType = static_cast<std::int16_t>(pass + 1);
            for (ui::Control* label : {window_.titles[pass], window_.fileLabels[pass], window_.percentLabels[pass]})
                label->setLook(ui::kScanColour);
            // The sixth pass runs with no planned count: its percent stays at 0%.
            window_.pb1max.setCaption(pass == kPassExe2 ? "" : std::to_string(counts_[pass]));
            integrityChecker2(ctx_, window_, kScanPasses[pass].ext1, kScanPasses[pass].ext2);
        }
        if (scan.customQueue.empty()) break;

        const std::string first = leftText(scan.customQueue, scan.customQueue.find(','));
        if (folderCount < 0) folderCount = static_cast<int>(splitText(scan.customQueue, ",").size()) - 1;
        ++folderNumber;
        const int slot = std::atoi(first.c_str());
        const CustomSlot record = readSlot(ctx_, slot);
        ctx_.customFolder = record.path;
        window_.l_cust2.setCaption("Custom Folder " + std::to_string(folderNumber) + "/" +
                                   std::to_string(folderCount));
        ctx_.os.loop.pump();
        scan.wanted = wantedGroups(record.args);
        scan.customIndex = static_cast<std::int16_t>(slot);
        scan.customQueue.erase(0, first.size() + 1);
        loadCustomDat(ctx_, host_, hash::getCustomDat(ctx_, slot));
        ctx_.os.loop.pump();
    }

    if (ctx_.primaryScan) {
        finishPrimaryScanWrites(ctx_);
        ctx_.primaryScan = false;
        loadIntFile(ctx_, ctx_.intFile);
        window_.setVisible(false);
        host_.showMainWindow(true);
    }
    if (!scan.noAutoAction && (inShutDown(ctx_) || ctx_.autoScanFailed)) host_.pressResultAction();
    if (!scan.scanCancelled && window_.Label6.caption() == window_.Label7.caption()) {
        window_.Label14.setVisible(true);
        if (!inShutDown(ctx_) && ctx_.autoLoadRun) return host_.endProgram();
    }
    if (window_.Label14.visible()) window_.Label2.setCaption("Close Integrity Check Window");
    if (scan.customFirstScan) host_.pressResultAction();
    window_.Frame1.setVisible(scan.scanCancelled);
    window_.Frame2.setVisible(!scan.scanCancelled);
    window_.Frame3.setVisible(false);
    if (!scan.scanCancelled) window_.Label13.setCaption("Results");
    if (inShutDown(ctx_)) host_.afterShutDownScan();
    ctx_.os.loop.pump();
}

// The list of findings asks before it is thrown away; false keeps everything.
bool ScanDriver::confirmLeavingWithFindings() {
    if (window_.List1.items().empty()) return true;
    if (ctx_.os.boxes.show(kLeaveWithFindings, "Warning", box::YesNo) != box::Yes) return false;
    window_.List1.clearItems();
    return true;
}

// The user gave up the first scan: its data file goes, to be built anew at the next start.
void ScanDriver::abandonPrimaryScan() {
    abandonPrimaryScanWrites(ctx_);
    ctx_.os.files.remove(ctx_.intFile);
}

void ScanDriver::command1Click() {
    ScanRunState& scan = ctx_.scan;
    scan.customQueue.clear();
    scan.scanPaused = false;
    checkIntFile(ctx_, host_);
    if (!confirmLeavingWithFindings()) return;
    if (!scan.pageScan) {
        if (!ctx_.primaryScan) return host_.endProgram();
        if (ctx_.os.boxes.show(kAbandonPrimary, kAppTitle, box::YesNo) != box::Yes) return;
        abandonPrimaryScan();
        return host_.endProgram();
    }
    scan.scanCancelled = true;
    window_.Timer1.setEnabled(false);
    if (ctx_.customFolder.empty()) loadIntFile(ctx_, ctx_.intFile);
    window_.setVisible(false);
}

bool ScanDriver::queryUnload() {
    ScanRunState& scan = ctx_.scan;
    scan.scanPaused = false;
    if (!confirmLeavingWithFindings()) return true;
    if (!scan.pageScan) {
        if (ctx_.primaryScan) {
            if (ctx_.os.boxes.show(kAbandonPrimary, kAppTitle, box::YesNo) != box::Yes) return true;
            abandonPrimaryScan();
        }
        host_.endProgram();
        return false;
    }
    scan.scanCancelled = true;
    window_.Timer1.setEnabled(false);
    window_.setVisible(false);
    loadIntFile(ctx_, ctx_.intFile);
    return true;  // the window stays loaded, hidden
}

void ScanDriver::firstCustomScan(const std::string& folder, const std::string& datFile, const FolderChoice& choice) {
    ScanRunState& scan = ctx_.scan;
    scan.pageScan = scan.noAutoAction = true;
    command1Click();  // clears whatever scan the window holds
    loadCustomDat(ctx_, host_, datFile);
    scan.wanted.fill(true);
    ctx_.customFolder = choice.text;
    scan.customIndex = static_cast<std::int16_t>(choice.index);
    scan.customFirstScan = scan.pageScan = true;
    ctx_.customFolder = folder;
    loadUp();
}

void ScanDriver::togglePause() {
    ctx_.scan.scanPaused = !ctx_.scan.scanPaused;
    window_.Label11.setVisible(ctx_.scan.scanPaused);
}

void ScanDriver::label2Click() {
    if (window_.Label2.caption() == "Close Integrity Check Window") return command1Click();
    window_.Frame1.setVisible(false);
    window_.Frame2.setVisible(false);
    window_.Frame3.setVisible(true);
    window_.Label13.setCaption("Failed Files List");
}

}  // namespace tv
