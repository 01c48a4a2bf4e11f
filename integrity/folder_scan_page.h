// intF, the main window's folder scan page: the folder to check (item 0 the
// system directory, then the custom folders, the index standing for the slot),
// a box per file group in the order of the passes with a button that toggles
// it, and the buttons that start a scan or open the folder manager.
#pragma once

#include <array>

#include "core/scan_run_state.h"
#include "platform/form.h"

namespace tv::ui {

class FolderScanPage {
public:
    FolderScanPage(Form& form, Control& intF);

    Control& intF;
    Control& lFolder;
    Control& Combo1;
    std::array<Control*, kPassCount> check{};
    std::array<Control*, kPassCount> groupButtons{};  // bDLL, bDRV, bSYS, bOCX, bEXE, bEXE2
    Control& bFULL;
    Control& bCLEAR;
    Control& bSCAN;
    Control& addRem;

private:
    std::array<Control*, kPassCount> addGroupRows(Form& form);
    static std::array<Control*, kPassCount> groupButtonsOf(const Form& form);
};

}  // namespace tv::ui
