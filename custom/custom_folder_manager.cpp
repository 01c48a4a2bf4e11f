#include "custom/custom_folder_manager.h"

#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "core/write_failures.h"
#include "custom/custom_folder_form.h"
#include "custom/custom_slots.h"
#include "hash/checksum.h"

namespace tv::ui {
namespace {

constexpr const char* kNoPositions = "0,0,0,0,0,0,0";
constexpr const char* kEmptyRow = ") Empty:";
constexpr std::uint32_t kDarkBlue = 0x800000;
constexpr std::uint32_t kRed = 0x0000FF;
constexpr const char* kDataFileEndings[] = {".dat",     ".bak",     "-md4.dat",  "-md4.bak",
                                            "-md5.dat", "-md5.bak", "-sha1.dat", "-sha1.bak"};

std::string emptyRow(int slot) { return std::to_string(slot) + kEmptyRow; }
bool isEmptyRow(const std::string& row) { return row.find(kEmptyRow) != std::string::npos; }
// The folder of a used row: the text from its fourth character on, trimmed.
std::string folderOfRow(const std::string& row) { return trimBlanks(midText(row, 4)); }

}  // namespace

CustomFolderManager::CustomFolderManager(AppContext& ctx, CustomFolderForm& form,
                                         std::function<void()> reloadFolderList)
    : ctx_(ctx), form_(form), reloadFolderList_(std::move(reloadFolderList)) {
    form_.List1.onChange = [this] { list1Click(); };
    form_.Check1.onClick = [this] { check1Click(); };
    form_.Check2.onClick = [this] { check2Click(); };
    form_.List2.onClick = [this] { list2Click(); };
    form_.List4.onClick = [this] { list4Click(); };
    form_.cButton2.onClick = [this] { addFolder(); };
    form_.Command2.onClick = [this] { removeFolder(); };
    form_.Command3.onClick = [this] { saveAndExit(); };
    form_.onUnload = [this] { unload(); };
}

void CustomFolderManager::show() {
    if (!loaded_) formLoad();
    form_.setVisible(true);
}

void CustomFolderManager::formLoad() {
    loaded_ = true;
    custDirty = 0;
    form_.showAsNew();  // a form closed before is loaded anew
    startup();
}

void CustomFolderManager::startup() {
    custLoading = true;
    form_.List1.clearItems();
    form_.List3.clearItems();
    form_.List5.clearItems();
    for (int slot = 1; slot <= kSlotCount; ++slot) {
        CustomSlot record = readSlot(ctx_, slot);
        // Each list stands on its own: one that is missing does not reset the other.
        if (record.args.empty()) record.args = kNoPositions;
        if (record.args2.empty()) record.args2 = kNoPositions;
        const std::string folder = trimBlanks(record.path);
        form_.List1.addItem(folder == "NULL" ? emptyRow(slot) : std::to_string(slot) + ") " + folder);
        form_.List3.addItem(record.args);
        form_.List5.addItem(record.args2);
    }
    custLoading = false;
}

void CustomFolderManager::list1Click() {
    custLoading = true;
    const std::string row = form_.List1.selectedText();
    if (form_.List1.value() >= 0) {
        const auto behind = row.find(") ");
        const bool empty = behind != std::string::npos && row.substr(behind + 2) == "Empty:";
        form_.Check1.setEnabled(!empty);
        form_.Check2.setEnabled(!empty);
    }
    showRow(logOn());
    showRow(shutDown());
    form_.Label1.setCaption("Currently Selected: " + row);
    form_.List2.setEnabled(form_.Check1.value() == 1);
    form_.List4.setEnabled(form_.Check2.value() == 1);
    custLoading = false;
}

CustomFolderManager::Column CustomFolderManager::logOn() { return {form_.Check1, form_.List2, form_.List3}; }
CustomFolderManager::Column CustomFolderManager::shutDown() { return {form_.Check2, form_.List4, form_.List5}; }

// The chosen slot's positions onto the column's type list and box. A box set
// here raises its click as a user's would, but only when its value changes.
void CustomFolderManager::showRow(const Column& column) {
    const int index = form_.List1.value();
    if (index < 0) return;
    const auto& rows = column.args.items();
    const auto positions = splitPositions(static_cast<std::size_t>(index) < rows.size() ? rows[index] : "");
    for (std::size_t type = 0; type < 6; ++type) column.types.setTicked(type, positions[type]);
    const int value = positions[6] ? 1 : 0;
    if (column.box.value() == value) return;
    column.box.setValue(value);
    boxClick(column);
}

void CustomFolderManager::check1Click() { boxClick(logOn()); }
void CustomFolderManager::check2Click() { boxClick(shutDown()); }

// A ticked box shows white on dark blue and opens its type list; a cleared one
// shows red and closes it, keeping the list's ticks.
void CustomFolderManager::boxClick(const Column& column) {
    const bool ticked = column.box.value() == 1;
    column.box.setLook(ticked ? kWhite : kBlack);
    column.box.setBackColour(ticked ? kDarkBlue : kRed);
    column.types.setEnabled(ticked);
    typesClick(column);
}

void CustomFolderManager::list2Click() { typesClick(logOn()); }
void CustomFolderManager::list4Click() { typesClick(shutDown()); }

// The column's six ticks and its box, as "1" and "0", become the slot's row of
// its hidden list.
void CustomFolderManager::typesClick(const Column& column) {
    if (custLoading) return;
    custDirty = 1;
    const int index = form_.List1.value();
    if (index < 0) {
        ctx_.os.boxes.show("Please select a folder to edit its properties!", kAppTitle, box::OkOnly);
        return;
    }
    std::string row;
    for (std::size_t type = 0; type < 6; ++type) row += column.types.ticked(type) ? "1," : "0,";
    row += column.box.value() == 1 ? "1" : "0";
    column.args.setItem(static_cast<std::size_t>(index), row);
}

void CustomFolderManager::addFolder() {
    custDirty = 1;
    const std::string chosen = browseFolder(ctx_, "Please Choose a Folder to Add");
    if (chosen.empty()) return;
    const std::string folder = withTrailingBackslash(chosen);
    if (sameText(folder, getSysDir(ctx_))) {
        ctx_.os.boxes.show(
            "This is the default folder that Tarvelon scans. It cannot be added to the Custom Integrity Checker",
            kAppTitle, box::OkOnly);
        return;
    }
    const auto& rows = form_.List1.items();
    for (const auto& row : rows) {
        if (upperCase(folder) == upperCase(folderOfRow(row))) {
            ctx_.os.boxes.show("This folder is already being scanned.", kAppTitle, box::OkOnly);
            return;
        }
    }
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (!isEmptyRow(rows[index])) continue;
        form_.List1.setItem(index, withTrailingBackslash(std::to_string(index + 1) + ") " + folder));
        ctx_.os.boxes.show("Folder Added.", kAppTitle, box::OkOnly);
        return;
    }
    // Twenty folders in use: the limit says nothing.
}

void CustomFolderManager::removeFolder() {
    custDirty = 1;
    const int index = form_.List1.value();
    if (index < 0 || isEmptyRow(form_.List1.selectedText())) return;
    if (ctx_.os.boxes.show("Are you sure you want to remove this folder? Doing so will lose all Integrity Checker "
                           "data for this folder!",
                           "Caution!", box::OkCancel) != box::Ok)
        return;
    const int slot = index + 1;
    const std::string section = std::to_string(slot);
    checkSettFile(ctx_);
    writeEntry(ctx_, ctx_.settFile, "path", "NULL", section);
    writeEntry(ctx_, ctx_.settFile, "args", kNoPositions, section);
    writeEntry(ctx_, ctx_.settFile, "args2", kNoPositions, section);
    form_.List1.setItem(static_cast<std::size_t>(index), emptyRow(slot));
    form_.List3.setItem(static_cast<std::size_t>(index), kNoPositions);
    form_.List5.setItem(static_cast<std::size_t>(index), kNoPositions);
    for (const char* ending : kDataFileEndings)
        ctx_.os.files.remove(ctx_.appPath + "Data\\" + section + ending);
}

void CustomFolderManager::saveAndExit() {
    custDirty = 0;
    const WriteCheck written(ctx_);
    checkSettFile(ctx_);
    const auto& rows = form_.List1.items();
    for (int slot = 1; slot <= kSlotCount && static_cast<std::size_t>(slot) <= rows.size(); ++slot) {
        const std::string& row = rows[slot - 1];
        const std::string section = std::to_string(slot);
        writeEntry(ctx_, ctx_.settFile, "path", isEmptyRow(row) ? "NULL" : folderOfRow(row), section);
        writeEntry(ctx_, ctx_.settFile, "args", form_.List3.items()[slot - 1], section);
        writeEntry(ctx_, ctx_.settFile, "args2", form_.List5.items()[slot - 1], section);
    }
    // The last named folder without a data file; its first scan waits for its
    // choice on the folder scan page.
    for (int slot = 1; slot <= kSlotCount && static_cast<std::size_t>(slot) <= rows.size(); ++slot)
        if (!fileThere(ctx_, hash::getCustomDat(ctx_, slot)) && !isEmptyRow(rows[slot - 1]))
            ctx_.scan.customIndex = static_cast<std::int16_t>(slot);
    if (written.allWritten()) ctx_.os.boxes.show("Save Successful!", kAppTitle, box::OkOnly);
    reloadFolderList_();
    form_.setVisible(false);
}

void CustomFolderManager::unload() {
    if (custDirty == 1 &&
        ctx_.os.boxes.show("Do you wish to Save your changes?", kAppTitle, box::YesNo) == box::Yes)
        saveAndExit();
    reloadFolderList_();
    form_.setVisible(false);
    loaded_ = false;
}

}  // namespace tv::ui
