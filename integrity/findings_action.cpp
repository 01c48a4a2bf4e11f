#include "integrity/findings_action.h"

#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "core/vb_number.h"
#include "core/write_failures.h"
#include "hash/checksum.h"
#include "hash/file_checksum.h"
#include "integrity/data_file.h"
#include "integrity/pending_list_index.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "logging/unattended_boxes.h"
#include "logging/write_log.h"

namespace tv {
namespace {

constexpr const char* kNoScanner =
    "You do not have any Anti-Virus program setup with Tarvelon.  For your conveniance, these files will be "
    "added to the log, and will be updated in your Integrity File (so that you can scan them for viruses later).";
constexpr const char* kNoScannerHeading =
    "Integrity Checker - These files were logged because you didn't setup an Anti-Virus Scanner,";
constexpr const char* kScannedHeading = "Integrity Checker - These files were either New or Failed the Integrity Check,";
constexpr const char* kCloseCaption = "Close Integrity Window";

std::string withoutNewMark(const std::string& item) { return replaceText(item, " *NEW*", ""); }

std::string itemAt(const ui::Control& list, std::size_t index) {
    return index < list.items().size() ? list.items()[index] : std::string();
}

std::string bareName(const std::string& path) { return path.substr(path.find_last_of('\\') + 1); }

}  // namespace

FindingsAction::FindingsAction(AppContext& ctx, ui::ScanWindow& window, ScanHost& host, ScanDriver& driver)
    : ctx_(ctx), window_(window), host_(host), driver_(driver) {
    window_.Label12.onClick = [this] { label12Click(); };
}

// A scheduled run has nobody to read its results: the files stay unaccepted
// for the next run, and this one ends.
void FindingsAction::scannerFailed() {
    showOrLog(ctx_, scannerFailureMessage(window_.Text1.caption()), kAppTitle, box::OkOnly);
    endUnwatchedRun();
}

void FindingsAction::endUnwatchedRun() {
    if (ctx_.unattended && ctx_.shutAction == kNoShutdown) host_.endProgram();
}

// Walks List1 from its first index to one past its last, so that the last turn
// only flushes; each batch goes to both scanners before the next is cut.
// Without a scanner the walk stops at the first batch, which alone is logged.
FindingsAction::Handed FindingsAction::handToScanners(bool noScanner, std::vector<std::string>& all) {
    const ScannerPair scanners{window_.Text1.caption(), window_.Text2.caption(), window_.textav1.caption(),
                               window_.textav2.caption()};
    Handed handed = Handed::AllBatches;
    walkInBatches(ctx_, 0, window_.List1.items().size(),
                  [this](std::size_t index) { return withoutNewMark(itemAt(window_.List1, index)); },
                  [&](const FileItems& batch) {
                      all.insert(all.end(), batch.begin(), batch.end());
                      if (noScanner) handed = Handed::FirstBatchOnly;
                      else if (!batch.empty() && !startScanners(ctx_, scanners, batch)) handed = Handed::ScannerFailed;
                      return handed == Handed::AllBatches;
                  });
    return handed;
}

void FindingsAction::label12Click() {
    ScanRunState& scan = ctx_.scan;
    if (!scan.customFirstScan) {
        if (window_.Label12.caption() == kCloseCaption) return driver_.command1Click();
        const bool noScanner = !fileThere(ctx_, window_.Text1.caption());
        if (noScanner) showOrLog(ctx_, kNoScanner, kAppTitle, box::OkOnly);
        std::vector<std::string> all;
        const Handed handed = handToScanners(noScanner, all);
        if (handed == Handed::ScannerFailed) return scannerFailed();
        if (handed == Handed::AllBatches && ctx_.shutAction == kNoShutdown) {
            if (ctx_.primaryBuild) return;
            if (all.empty()) return host_.endProgram();
        }
        window_.Label13.setCaption("Logging Action...");
        // A report that cannot be written was told of; the findings stay unaccepted.
        if (writeLog(ctx_, noScanner ? kNoScannerHeading : kScannedHeading, all, noScanner) == LogOutcome::Failed)
            return endUnwatchedRun();
    }
    window_.Label13.setCaption("Updating Integrity File...");
    updateDatFile();
    if (scan.customFirstScan) {
        window_.setVisible(false);
        scan.customFirstScan = false;
        window_.List1.clearItems();
        ctx_.os.boxes.show("Initial Custom Folder Scan Completed Successfully!", kAppTitle, box::OkOnly);
        return;
    }
    if (!ctx_.cmdLine.empty() && ctx_.autoScanFailed && ctx_.shutAction == kNoShutdown) return host_.endProgram();
    window_.List1.clearItems();
}

void FindingsAction::updateDatFile() {
    const ui::Control& list = window_.List1;
    if (list.items().empty()) return;
    window_.setCaption("Updating - Please Wait...");
    hash::DoEvents pump(ctx_.os.loop);
    pump.setQueueUsed(queue::InputOrPaint);
    const std::string systemList = ctx_.scan.failList;
    const std::string customList = ctx_.scan.customFailList;
    const PendingListIndex systemIndex(systemList, ' ');
    const PendingListIndex customIndex(customList, '(');
    // Kept from one file to the next: a custom file behind a system file is
    // also written into the system baseline, with that file's value.
    std::string target, value;

    const std::size_t count = list.items().size();
    for (std::size_t index = 0; index < count; ++index) {
        std::string item = withoutNewMark(itemAt(list, index));
        const std::string section = upperCase(rightText(item, 3));
        const bool systemFile = !systemList.empty() &&
                                (systemIndex.afterComma(item) > 0 || systemList.find(item) != std::string::npos);
        if (systemFile) {
            // The value stands behind the first blank from the path's start (the
            // very first entry has no comma in front of it).
            value = getBetween(systemList, systemIndex.afterComma(item) + 1, " ", ",");
            if (value.empty()) value = getBetween(systemList, inStr(1, systemList, item + " ") + 1, " ", ",");
            // A path with a blank: the value came out as "Files\X.DLL 3A2B44C1".
            if (const std::size_t dot = inStr(1, value, ".")) value = midText(value, dot + 5, value.size());
            target = ctx_.intFile;
        } else {
            std::string inner = getBetween(customList, customIndex.afterComma(item) + 1, "(", ",");
            if (inner.empty()) inner = getBetween(customList, inStr(1, customList, item + "(") + 1, "(", ",");
            const std::string entry = inner.empty() ? std::string() : "(" + inner + ",";
            const auto slot = toInt32(getBetween(entry, 1, "(", ")"));
            if (slot && *slot >= 1 && *slot <= kSlotCount) passFolderList_[*slot] += item + entry;
        }
        if (index + 1 == count)
            for (int slot = 1; slot <= kSlotCount; ++slot)
                if (!passFolderList_[slot].empty()) specialSave(slot);
        ctx_.customFolder.clear();
        if (!target.empty()) {
            for (const char c : item)  // the search for the last backslash lets messages run at each one
                if (c == '\\') ctx_.os.loop.pump();
            writeEntry(ctx_, target, bareName(item), value + "*E", section);
        }
        pump.getInputState();
    }
    window_.setCaption("Integrity File(s) Updated");
    if (!saveIntFile(ctx_)) reportFailedWrite(ctx_, ctx_.intFile);
    loadIntFile(ctx_, ctx_.intFile);
    window_.Label13.setCaption("Integrity File Updated");
    window_.Label12.setCaption(kCloseCaption);
}

void FindingsAction::specialSave(int slot) {
    const std::string file = hash::getCustomDat(ctx_, static_cast<std::int16_t>(slot));
    loadCustomDat(ctx_, host_, file);
    ctx_.customFolder = "!";  // entries go to the custom folder's baseline in memory
    std::string_view rest = passFolderList_[slot];
    while (!rest.empty()) {
        const std::string path = leftText(rest, rest.find('('));
        const std::string value = getBetween(rest, 1, ") ", ",");
        const std::size_t comma = rest.find(',');
        rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
        writeEntry(ctx_, file, bareName(path), value + "*E", upperCase(rightText(path, 3)));
        ctx_.os.loop.pump();
    }
    passFolderList_[slot].clear();
    if (!saveCustomDat(ctx_, file)) reportFailedWrite(ctx_, file);
}

}  // namespace tv
