#include "avshell/scanner_catalogue_form.h"

namespace tv::ui {

ScannerCatalogueForm::ScannerCatalogueForm()
    : Form("aVirHelp", "Anti-Virus Shell Help", {0, 0, 440, 454}),
      Label1(add(Kind::Label, "Label1", {12, 10, 416, 18},
                 "Step 1) Choose your Anti Virus Software, then click on \"Search\":")),
      List1(add(Kind::ListBox, "List1", {12, 32, 416, 216})),  // all sixteen rows at once
      Command4(add(Kind::FlatButton, "Command4", {12, 256, 220, 26}, "Search for this Selection...")),
      Text2(add(Kind::TextBox, "Text2", {12, 290, 416, 22})),
      Label4(add(Kind::Label, "Label4", {12, 318, 416, 18})),
      Label2(add(Kind::Label, "Label2", {12, 350, 200, 18}, "Step 2) Click Test it!")),
      Command2(add(Kind::FlatButton, "Command2", {220, 346, 110, 26}, "Test It!")),
      Label3(add(Kind::Label, "Label3", {12, 384, 200, 18}, "Step 3) Click Use it!")),
      Command3(add(Kind::FlatButton, "Command3", {220, 380, 110, 26}, "Use It!")),
      Command1(add(Kind::FlatButton, "Command1", {12, 418, 270, 26}, "My Anti-Virus Program Isn't Listed!")) {
    defaultButton = &Command4;  // Enter searches for the chosen product
    closesOnEscape = true;
}

}  // namespace tv::ui
