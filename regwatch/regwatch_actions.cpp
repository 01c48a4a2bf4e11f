#include "regwatch/regwatch_actions.h"

#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/text.h"
#include "logging/write_log.h"
#include "regwatch/file_path_cut.h"
#include "regwatch/pending_boot.h"
#include "regwatch/autostart_groups.h"
#include "regwatch/reg_class.h"
#include "regwatch/registry_pass.h"
#include "regwatch/regwatch_page.h"
#include "regwatch/snapshot_encoding.h"

namespace tv {
namespace {

constexpr const char* kScanOneCaption = "Scan File for Viruses";
constexpr const char* kScanAllCaption = "Scan all Files for Viruses";
// The words the pending view's selection skips; its heading has other words.
constexpr const char* kOldPendingHeading =
    "The Following Files are to be Deleted or Overwritten on the next Reboot.";
constexpr const char* kRegistryLogTitle = "Registry Action - Scan and Update Multiple Entries,";
constexpr const char* kPendingLogTitle =
    "Precautionary Scan - These files were to be renamed/deleted/overwritten at startup,";

// The text in front of the first `mark`, or all of it.
std::string inFrontOf(const std::string& text, const char* mark) {
    const std::size_t at = inStr(1, text, mark);
    return at == 0 ? text : leftText(text, at - 1);
}

}  // namespace

RegWatchActions::RegWatchActions(AppContext& ctx, ui::RegWatchPage& page, RegistryPass& pass)
    : ctx_(ctx), page_(page), pass_(pass) {
    page_.Command1.onClick = [this] { refresh(); };
    page_.Command3.onClick = [this] { deleteKey(); };
    page_.Command11.onClick = [this] { scanFile(); };
    page_.cScnUpd.onClick = [this] { scanAndUpdateWarnings(); };
    page_.cMod.onClick = [this] { showPendingOperations(); };
    page_.List5.onChange = [this] { warningChosen(); };
    page_.TreeView1.onNodeClick = [this] { nodeChosen(); };
    page_.TreeView1.onExpand = [this](std::size_t, bool) { nodeOpenedOrClosed(); };
    page_.List6.onChange = [this] { pendingFileChosen(); };
}

void RegWatchActions::enableEntryButtons(bool enabled) {
    page_.Command11.setEnabled(enabled);
    page_.Command3.setEnabled(enabled);
    if (!enabled) selPlace_.reset();
}

// A watched file is scanned like a value, but Delete Key does not apply to it.
void RegWatchActions::choosePlace(std::optional<ValuePlace> place) {
    enableEntryButtons(true);
    selPlace_ = std::move(place);
    if (selPlace_ && selPlace_->removal == Removal::NotAValue) page_.Command3.setEnabled(false);
}

// A Refresh while a pass runs is the running pass's own: it starts nothing.
void RegWatchActions::refresh() {
    if (pass_.running()) return;
    page_.Command11.setCaption(kScanOneCaption);
    page_.TreeView1.setVisible(true);
    page_.List6.setVisible(false);
    pass_.setReg();
}

// A warning row: its root and "Loaded in <tail>" in front of the first
// backslash become the selected entry, and "<name> (<value>)" the text. The
// ") " put behind the row on its first choice gives a value cut at a NUL an
// end for that text.
void RegWatchActions::warningChosen() {
    ui::Control& list = page_.List5;
    const auto& rows = list.items();
    const int index = list.value();
    if ((rows.size() > 1 && rows[1] == kNoWarnings) || index <= 0 || static_cast<std::size_t>(index) >= rows.size()) {
        enableEntryButtons(false);
        return;
    }
    choosePlace(pass_.warningPlace(static_cast<std::size_t>(index)));
    std::string row = rows[static_cast<std::size_t>(index)];
    selEntry_ = inFrontOf(withTrailingBackslash(row), "\\");
    if (rightText(row, 2) != ") ") {
        row += ") ";
        list.setItem(static_cast<std::size_t>(index), row);
    }
    page_.Text4.setCaption(getBetween(row, selEntry_.size(), "\\", ") ") + ")");
    page_.Label19.setCaption(page_.Text4.caption());
    list.setToolTip(row);
}

// A value's node: roots and locations (whose parent reads "HKEY..." or is
// the root of the watched files) are no entries. The full path gives the root and the location's label.
void RegWatchActions::nodeChosen() {
    const ui::Control& tree = page_.TreeView1;
    const std::size_t node = tree.selectedNode();
    if (node == ui::kNoNode) return;
    const auto& nodes = tree.nodes();
    std::string parentText = nodes[node].parent == ui::kNoNode ? std::string() : nodes[nodes[node].parent].text;
    if (parentText.empty()) parentText = "HKEY";
    if (leftText(parentText, 4) == "HKEY" || parentText == kFilesRootText) {
        enableEntryButtons(false);
        return;
    }
    choosePlace(pass_.nodePlace(node));
    page_.Label19.setCaption(nodes[node].text);
    page_.Text4.setCaption(nodes[node].text);
    const std::string path = withTrailingBackslash(tree.fullPath(node));
    selEntry_ = inFrontOf(path, "\\") + "|" + getBetween(path, 1, "\\", "\\");
}

void RegWatchActions::nodeOpenedOrClosed() { enableEntryButtons(false); }

void RegWatchActions::pendingFileChosen() {
    const ui::Control& list = page_.List6;
    if (list.value() < 0) return;
    const std::string row = list.selectedText();
    if (row != kOldPendingHeading) page_.Text4.setCaption(row);
}

// The chosen row's or node's own value goes: under the root, in the view and
// in the key where the pass found it, by its exact name. A shell\open\command
// value is part of how programs start at all, and is never deleted.
void RegWatchActions::deleteKey() {
    if (!selPlace_ || selPlace_->removal == Removal::NotAValue) return;
    const ValuePlace place = *selPlace_;
    if (place.removal == Removal::EditByHand) {
        if (ctx_.os.boxes.show("This key will not be deleted.\r\nYou must change the value manually. Would you "
                               "like to open the Registry for Editing now?",
                               "Caution", box::YesNo) != box::No)
            ctx_.os.processes.start("regedit.exe", show::MinimizedFocus);
        return;
    }
    const WatchedRoot* root = watchedRootOf(place.hive);
    if (!root) return;
    const std::string question = "WARNING!\r\nYou are about to Delete the key: " + shownName(place.name) +
                                 "\r\nFrom: " + rootTextOf(*root, place.viewBits) + "\\" + shownName(place.keyPath) +
                                 "\r\nDoing this may have unpredictable results!\r\n\r\nContinue?";
    if (ctx_.os.boxes.show(question, kAppTitle, box::YesNo) == box::No) return;
    RegClass reg(ctx_.os.registry);
    reg.openRegistry(place.hive, place.keyPath, place.viewBits == 0 ? RegView::Native : RegView::Other);
    reg.deleteKey(place.name);  // says nothing: the refresh shows whether the value went
    reg.closeRegistry();
    page_.Text4.setCaption({});
    page_.Command3.setEnabled(false);
    refresh();
}

void RegWatchActions::scanFile() {
    if (page_.Command11.caption() == kScanAllCaption) {
        scanAndUpdateWarnings();
        return;
    }
    const ScannerPair scanners = scannersFromSettings(ctx_);
    const FilePathCut cut = cutToFilePath(page_.Label19.caption(), {getWinDir(ctx_), getSysDir(ctx_)},
                                          [this](const std::string& path) { return fileThere(ctx_, path); });
    if (!cut.found) {
        ctx_.os.boxes.show("Cannot find file, please scan manually", kAppTitle, box::OkOnly);
        return;
    }
    startEachScanner(ctx_, scanners, {singleFileItem(ctx_, cut.path)});
}

// Accepting is unconditional: whatever the scanners find, the values as
// they stand now become the snapshot's.
void RegWatchActions::scanAndUpdateWarnings() {
    // While a pass runs its warnings are not all there, and its recording
    // could not start: the click waits for the pass's end.
    if (pass_.running()) return;
    const bool pending = page_.List6.visible();
    ui::Control& source = pending ? page_.List6 : page_.List5;
    // A list holding no more than its heading has nothing to scan, and
    // nothing is accepted unseen.
    if (source.items().size() < 2) return;
    const ScannerPair scanners = scannersFromSettings(ctx_);
    const SearchFolders folders{getWinDir(ctx_), getSysDir(ctx_)};
    FileItems files;
    // The list is read again for every row: a message box lets clicks in.
    for (std::size_t row = 1; row < source.items().size(); ++row) {
        std::string text = source.items()[row];
        if (pending)
            text = replaceText(replaceText(text, kDeletedSuffix, ""), kOverwrittenSuffix, "");
        else if (rightText(text, 2) != ") ")
            text += ") ";
        source.setItem(row, text);
        const FilePathCut cut =
            cutToFilePath(text, folders, [this](const std::string& path) { return fileThere(ctx_, path); });
        if (!cut.found && ctx_.shutAction == kNoShutdown)
            ctx_.os.boxes.show("Unable to find the file: " + cut.text + "\r\nPlease scan manually.", kAppTitle,
                               box::OkOnly);
        files.push_back(singleRunItem(ctx_, cut.found ? cut.path : std::string()));
    }
    startEachScanner(ctx_, scanners, files);
    ctx_.regNew = true;
    pass_.setReg();
    writeLog(ctx_, pending ? kPendingLogTitle : kRegistryLogTitle, files);
    ctx_.regNew = false;
}

void RegWatchActions::showPendingOperations() {
    for (ui::Control* button : {&page_.Command3, &page_.Command11, &page_.cScnUpd}) button->setEnabled(false);
    page_.Command11.setCaption(kScanAllCaption);
    page_.TreeView1.setVisible(false);
    page_.List6.setVisible(true);
    // The rows go to the list at once: a wininit.ini can hold very many.
    std::vector<std::string> rows{kPendingHeading};
    const std::string wininit = getWinDir(ctx_) + kWininitName;
    if (fileThere(ctx_, wininit)) {
        const auto text = ctx_.os.files.readAll(wininit);
        if (!text) {  // gone or locked since: the list stays as far as it got
            page_.List6.setItems(std::move(rows));
            return;
        }
        for (const WininitEntry& entry : parseWininit(*text)) rows.push_back(pendingRow(entry));
    }
    for (std::string& file : parsePendingRenames(readPendingRenames(ctx_.os.registry))) rows.push_back(std::move(file));
    page_.List6.setItems(std::move(rows));
    if (page_.List6.items().size() >= 2)
        page_.Command11.setEnabled(true);
    else
        ctx_.os.boxes.show("No files will be modified or deleted on Restart!", kAppTitle, box::OkOnly);
}

}  // namespace tv
