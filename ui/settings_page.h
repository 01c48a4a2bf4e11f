// qSett, the settings page inside settF: Auto-Load, the file groups checked at
// log-on and at secure shut-down, Auto-Scan and Auto-Logging.
#pragma once

#include <array>

#include "platform/form.h"

namespace tv::ui {

class SettingsPage {
public:
    SettingsPage(Form& form, Control& qSett);

    Control& qSett;
    Control& Label21;
    Control& Check1;  // Auto-Load at Startup: the Startup shortcut itself
    Control& Label20;
    Control& Check2;  // settings: DLL
    Control& Check3;  // DRV
    Control& Check4;  // SYS, 386
    Control& Check5;  // OCX
    Control& Check6;  // EXE, COM
    Control& Check9;  // SCR, PIF
    Control& Check8;  // Auto-Scan Failed Files
    Control& Check7;  // Auto-Logging
    Control& Label2;
    Control& Check15;  // settings2: DLL
    Control& Check14;  // DRV
    Control& Check13;  // SYS, 386
    Control& Check12;  // OCX
    Control& Check16;  // EXE, COM
    Control& Check17;  // SCR, PIF
    Control& cButton10;  // the scanners
    Control& cSave;
    Control& cCancelSett;
    Control& chlp;

    // The boxes of the settings list and of the shut-down list, by position.
    std::array<Control*, 8> logOnBoxes() const;
    std::array<Control*, 6> shutDownBoxes() const;
};

}  // namespace tv::ui
