#include "integrity/folder_scan_actions.h"

#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "custom/custom_slots.h"
#include "hash/checksum.h"
#include "integrity/check_int_file.h"
#include "integrity/custom_baseline.h"
#include "integrity/data_file.h"
#include "integrity/folder_scan_page.h"
#include "integrity/scan_driver.h"

namespace tv {
namespace {

constexpr const char* kMissingBaseline =
    "You have not yet completed the full system scan.  This is required before using the Integrity Checker.  "
    "Perform scan now?";

}  // namespace

FolderScanActions::FolderScanActions(AppContext& ctx, ui::FolderScanPage& page, ScanHost& host,
                                     std::function<ScanDriver&()> driver, std::function<void()> resetPages)
    : ctx_(ctx), page_(page), host_(host), driver_(std::move(driver)), resetPages_(std::move(resetPages)) {
    page_.Combo1.onChange = [this] { combo1Click(); };
    for (int group = 0; group < kPassCount; ++group)
        page_.groupButtons[group]->onClick = [this, group] { toggleGroup(group); };
    page_.bFULL.onClick = [this] { setAllGroups(true); };
    page_.bCLEAR.onClick = [this] { setAllGroups(false); };
    page_.bSCAN.onClick = [this] { bScanClick(); };
}

void FolderScanActions::enter() {
    loadf();
    resetPages_();
    if (!fileThere(ctx_, ctx_.intFile)) {
        if (ctx_.os.boxes.show(kMissingBaseline, "Missing File", box::YesNo) != box::Yes) return;
        restartWithoutBackup(ctx_, host_, backupName(ctx_.intFile));
        return;
    }
    page_.intF.setVisible(true);
}

void FolderScanActions::loadf() {
    checkSettFile(ctx_);
    ui::Control& combo = page_.Combo1;
    combo.clearItems();
    combo.addItem(getSysDir(ctx_));
    for (int slot = 1; slot <= kSlotCount; ++slot) {
        const std::string folder = trimBlanks(readSlot(ctx_, slot).path);
        if (folder != "NULL") combo.addItem(folder);
    }
    combo.setValue(0);
}

// The list index stands for the slot number: after a removal in front of a
// folder the two part, and the folder is then read from the wrong slot.
void FolderScanActions::combo1Click() {
    ui::Control& combo = page_.Combo1;
    const int index = combo.value();
    if (index <= 0) return;
    const std::string datFile = hash::getCustomDat(ctx_, index);
    if (!fileThere(ctx_, datFile) &&
        !buildCustomDat(ctx_, host_, combo.selectedText(), datFile, std::to_string(index))) {
        combo.setValue(0);
        return;
    }
    const auto groups = wantedGroups(readSlot(ctx_, index).args);
    for (int group = 0; group < kPassCount; ++group) page_.check[group]->setValue(groups[group] ? 1 : 0);
}

void FolderScanActions::toggleGroup(int group) {
    ui::Control& box = *page_.check[group];
    box.setValue(box.value() == 0 ? 1 : 0);
}

void FolderScanActions::setAllGroups(bool ticked) {
    for (ui::Control* box : page_.check) box->setValue(ticked ? 1 : 0);
}

void FolderScanActions::bScanClick() {
    ScanRunState& scan = ctx_.scan;
    checkIntFile(ctx_, host_);
    for (int group = 0; group < kPassCount; ++group) scan.wanted[group] = page_.check[group]->value() != 0;
    if (scan.wanted == decltype(scan.wanted){}) {
        ctx_.os.boxes.show("Please select the files to scan.", kAppTitle, box::OkOnly);
        return;
    }
    ctx_.customFolder.clear();
    scan.noAutoAction = true;
    scan.pageScan = true;
    scan.customFirstScan = false;
    ScanDriver& driver = driver_();
    driver.command1Click();
    ctx_.os.loop.pump();
    const ui::Control& combo = page_.Combo1;
    if (combo.value() > 0) {
        loadCustomDat(ctx_, host_, hash::getCustomDat(ctx_, combo.value()));
        ctx_.customFolder = combo.selectedText();
        scan.customIndex = static_cast<std::int16_t>(combo.value());
        ctx_.os.loop.pump();
    }
    driver.loadUp();
}

}  // namespace tv
