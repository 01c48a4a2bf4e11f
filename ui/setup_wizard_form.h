// vDct, the "Tarvelon - Setup Wizard": nine pages drawn on one form, each a
// set of controls made visible under the same title and description labels,
// with Next, Back and Cancel as plain labels that light up under the mouse.
#pragma once

#include <array>

#include "platform/form.h"

namespace tv::ui {

class SetupWizardForm : public Form {
public:
    SetupWizardForm();

    Control& title;
    Control& desc;
    Control& vpath;    // the scanner's program
    Control& locate;   // its file box
    Control& Label4;
    Control& varg;     // the scanner's arguments
    Control& helpme;   // the catalogue
    Control& Command1;  // Test It!
    Control& aload;    // Auto-Load
    Control& Check1;   // settings: DLL
    Control& Check2;   // DRV
    Control& Check3;   // SYS
    Control& Check4;   // OCX
    Control& Check5;   // EXE
    Control& Check8;   // SCR, PIF
    Control& Check6;   // Auto-Scan
    Control& Check7;   // Logging
    Control& cButton1;  // the Secure Shut Down shortcut
    Control& Command2;  // Save
    Control& Label2;   // <<< Back
    Control& Label3;   // Cancel
    Control& Label1;   // Next >>>

    // The boxes in the order of the settings list's positions.
    std::array<Control*, 8> settingsBoxes() const;
};

}  // namespace tv::ui
