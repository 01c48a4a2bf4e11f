// s_avir, the "Anti-Virus/Trojan Selection Screen": the program file and the
// arguments of each of the user's two scanners. The settings are read into it
// at start-up, so it is created then, hidden, like every form on its first
// use; the Secure Shut Down sequence reads its scanners from these fields.
#pragma once

#include <array>
#include <string>

#include "platform/form.h"

namespace tv::ui {

inline constexpr const char* kNoScannerChosen = "Anti-Virus Software";

class ScannerChoiceForm : public Form {
public:
    ScannerChoiceForm();

    Control& Label8;
    Control& Text5;     // first scanner: program
    Control& cChoose;   // its file box
    Control& Label14;
    Control& Text6;     // first scanner: arguments
    Control& chlpFind;  // the catalogue, for the first scanner
    Control& Text1;     // second scanner: program
    Control& cButton10;  // its file box
    Control& Label1;
    Control& Text2;     // second scanner: arguments
    Control& cButton1;  // the catalogue, for the second scanner
    Control& cButton3;  // Save
    Control& cButton2;  // Cancel

    // Whether a scanner's fields differ from what the saved settings last
    // left in them: unsaved changes, typed or handed in by the catalogue, the
    // file box or the wizard.
    bool firstChanged() const;
    bool secondChanged() const;
    // The fields of both scanners, or of those named, as they stand count as
    // unchanged: just loaded, saved, or given up with Cancel.
    void settle(bool first = true, bool second = true);

private:
    std::array<std::string, 4> settled_;  // Text5, Text6, Text1, Text2
};

}  // namespace tv::ui
