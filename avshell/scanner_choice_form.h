// s_avir, where the user names the two anti-virus scanners: the program file
// and the arguments of each. The settings are read into it at start-up, so it
// is created then, hidden, like every form on its first use.
#pragma once

#include "platform/form.h"

namespace tv::ui {

class ScannerChoiceForm : public Form {
public:
    ScannerChoiceForm()
        : Form("s_avir", "Anti-Virus Settings", {0, 0, 480, 220}),
          Text5(add(Kind::TextBox, "Text5", {16, 36, 440, 22})),
          Text6(add(Kind::TextBox, "Text6", {16, 64, 440, 22})),
          Text1(add(Kind::TextBox, "Text1", {16, 124, 440, 22})),
          Text2(add(Kind::TextBox, "Text2", {16, 152, 440, 22})) {}

    Control& Text5;  // first scanner: program
    Control& Text6;  // first scanner: arguments
    Control& Text1;  // second scanner: program
    Control& Text2;  // second scanner: arguments
};

}  // namespace tv::ui
