// advF, the advanced page inside settF: the read buffer, the files handed to
// a scanner at a time, the scanners' options, the checksum algorithm and the
// way shortcuts are made; and the speed comparison with its report.
#pragma once

#include <array>

#include "platform/form.h"

namespace tv::ui {

class AdvancedPage {
public:
    AdvancedPage(Form& form, Control& advF);

    Control& advF;
    Control& Label22;
    std::array<Control*, 4> bufferOptions{};   // Option1 to Option4: 64, 128, 256, 512 Kb
    Control& Frame1;
    std::array<Control*, 6> batchOptions{};    // Option5 to Option10: all, 50, 100, 200, 350, 500
    Control& Label28;
    Control& Check10;  // Enclose Files with Quotes
    Control& Check11;  // Use ShortPath File Names
    Control& avfocus;  // Give anti-virus program Focus
    Control& Label1;   // the warning while neither of the first two is ticked
    Control& Frame3;
    std::array<Control*, 4> algorithmOptions{};  // Option11 to Option14: CRC32, MD5, SHA-1, MD4
    Control& Label30;
    Control& wsh;
    Control& cSave2;
    Control& cButton1;  // Cancel
    Control& cSpeeds;   // Compare Speeds
    Control& List1;     // the comparison's report

private:
    template <std::size_t N>
    std::array<Control*, N> addOptions(Form& form, int firstNumber, const char* const (&captions)[N], Control* parent,
                                       int left, int top, int width);
};

}  // namespace tv::ui
