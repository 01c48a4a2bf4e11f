// intCheck, the Integrity Checker's screen: the progress view (Frame1), the
// results (Frame2) and the list of new and failed files (Frame3), one shown at a
// time, under the heading Label13. The progress figures pb1max, pb2max and pbm
// are hidden labels whose captions the comparison engine reads back as text.
#pragma once

#include <array>

#include "core/scan_run_state.h"
#include "platform/form.h"

namespace tv::ui {

inline constexpr std::uint32_t kScanColour = 4210752;  // dark grey, labels of a running scan

class ScanWindow : public Form {
public:
    ScanWindow();

    Control& Label13;
    Control& Frame1;
    Control& Frame2;
    Control& Frame3;

    // Frame1, per pass and for the custom folder turn: title, file, percent.
    std::array<Control*, kPassCount> titles{};
    std::array<Control*, kPassCount> fileLabels{};
    std::array<Control*, kPassCount> percentLabels{};
    Control& l_cust2;
    Control& l_cust;
    Control& l_scust;
    Control& Image9;   // Pause
    Control& Label11;  // Resume
    Control& Image11;  // Cancel
    Control& Text1;
    Control& Text2;
    Control& textav1;
    Control& textav2;
    Control& Command1;
    Control& Timer1;

    // Frame2.
    Control& Label1;
    Control& Label6;  // total files scanned
    Control& Label3;
    Control& Label8;  // new files
    Control& Label4;
    Control& Label9;  // failed files
    Control& Label5;
    Control& Label7;  // passing files
    Control& Label14;
    Control& Label2;

    // Frame3.
    Control& Label10;
    Control& List1;
    Control& Label12;

    // Progress figures.
    Control& pb1max;
    Control& pb2max;
    Control& pbm;
};

}  // namespace tv::ui
