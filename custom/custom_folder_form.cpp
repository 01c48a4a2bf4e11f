#include "custom/custom_folder_form.h"

namespace tv::ui {
namespace {

constexpr Bounds kClient{0, 0, 540, 452};
constexpr int kLeft = 16, kColumn = 249, kRight = kLeft + kColumn + 10, kWidth = 2 * kColumn + 10;
constexpr const char* kTypes[] = {"Scan DLL Files", "Scan DRV Files",      "Scan 386, SYS Files",
                                  "Scan OCX Files", "Scan EXE, COM Files", "Scan SCR, PIF Files!"};

void addTypes(Control& list) {
    for (const char* type : kTypes) list.addItem(type);
}

}  // namespace

CustomFolderForm::CustomFolderForm()
    : Form("iCust", "Add/Remove Custom Integrity Scan Folders", kClient),
      Label2(add(Kind::Label, "Label2", {kLeft, 12, kWidth, 18}, "Custom Folder List:")),
      List1(add(Kind::ListBox, "List1", {kLeft, 32, kWidth, 166})),
      Label3(add(Kind::Label, "Label3", {kLeft, 204, kWidth, 18}, "Click on a Folder, then Edit its properties below")),
      Label1(add(Kind::Label, "Label1", {kLeft, 226, kWidth, 18}, "Currently Selected:")),
      Check1(add(Kind::CheckBox, "Check1", {kLeft, 252, kColumn, 22}, "Scan this Folder at Startup (AutoLoad)")),
      List2(add(Kind::CheckList, "List2", {kLeft, 278, kColumn, 112})),
      Check2(add(Kind::CheckBox, "Check2", {kRight, 252, kColumn, 22}, "Scan this folder at Secure Shut Down")),
      List4(add(Kind::CheckList, "List4", {kRight, 278, kColumn, 112})),
      cButton2(add(Kind::FlatButton, "cButton2", {kLeft, 408, 140, 28}, "Add Folder...")),
      Command2(add(Kind::FlatButton, "Command2", {kLeft + 150, 408, 140, 28}, "Remove Folder")),
      Command3(add(Kind::FlatButton, "Command3", {kRight + kColumn - 140, 408, 140, 28}, "Save and Exit")),
      List3(add(Kind::ListBox, "List3", {0, 0, 0, 0})),
      List5(add(Kind::ListBox, "List5", {0, 0, 0, 0})) {
    addTypes(List2);
    addTypes(List4);
    List3.setVisible(false);
    List5.setVisible(false);
    defaultButton = &Command3;
    closesOnEscape = true;
    showAsNew();
}

void CustomFolderForm::showAsNew() {
    List1.setValue(-1);
    Label1.setCaption("Currently Selected:");
    for (Control* box : {&Check1, &Check2}) {
        box->setValue(0);
        box->setLook(kBlack);
        box->setBackColour(kSystemColour);
        box->setEnabled(false);
    }
    for (Control* types : {&List2, &List4}) {
        for (std::size_t type = 0; type < types->items().size(); ++type) types->setTicked(type, false);
        types->setEnabled(false);
    }
}

}  // namespace tv::ui
