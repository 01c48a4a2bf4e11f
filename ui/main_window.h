// mForm1, the program's main window: a navigation column beside a stack of
// page frames of which at most one is visible. It stays loaded for the whole
// run, shown or not, because its settings controls hold the user's choices.
#pragma once

#include <array>

#include "platform/form.h"

namespace tv::ui {

class MainWindow : public Form {
public:
    MainWindow();

    // Navigation column.
    Control& Image5;   // Integrity Scan
    Control& Image7;   // RegWatch
    Control& Image9;   // AppWatch
    Control& Image11;  // Options
    Control& cButton6;  // Help
    Control& cButton7;  // About
    Control& cButton9;  // Exit

    // Pages.
    Control& intF;
    Control& regF;
    Control& appF;
    Control& setFq;
    Control& settF;
    Control& qSett;
    Control& advF;
    Control& repF;
    Control& Frame2;  // About

    // Folder scan page: the folder to scan (item 0 the system directory, then
    // the custom folders, the index standing for the slot), a box per file
    // group in the order of the passes, and a button that toggles each box.
    Control& lFolder;
    Control& Combo1;
    std::array<Control*, 6> check{};
    std::array<Control*, 6> groupButtons{};  // bDLL, bDRV, bSYS, bOCX, bEXE, bEXE2
    Control& bFULL;
    Control& bCLEAR;
    Control& bSCAN;
    Control& addRem;

    // Options page.
    Control& Label15;
    Control& cSetW;
    Control& cSettings;
    Control& Label16;
    Control& cButton2;
    Control& Label23;
    Control& cCreateSS;
    Control& cReports;
    Control& cUpdates;
    Control& cAbout;
    Control& Label6;

    // About page.
    Control& Label32;
    Control& Label33;
    Control& Label36;
    Control& Label37;
    Control& cButton4;
    Control& cButton5;

    // Settings page: what is checked at log-on and at secure shut-down.
    Control& Check1;
    Control& Check2;
    Control& Check3;
    Control& Check4;
    Control& Check5;
    Control& Check6;
    Control& Check9;
    Control& Check8;
    Control& Check7;
    Control& Check15;
    Control& Check14;
    Control& Check13;
    Control& Check12;
    Control& Check16;
    Control& Check17;

    // Advanced page: scanner options.
    Control& Check10;
    Control& Check11;
    Control& avfocus;
    Control& wsh;

    // Hides every page.
    void norms2();
    // Resets the hover look of every flat control.
    void norms();

private:
    std::array<Control*, 6> addGroupRows();
    std::array<Control*, 6> groupButtonsAdded() const;
};

}  // namespace tv::ui
