// Frame2, the main window's About page, on which the window opens.
#pragma once

#include "platform/form.h"

namespace tv::ui {

class AboutPage {
public:
    AboutPage(Form& form, Control& Frame2);

    Control& Frame2;
    Control& Label32;  // the product's name
    Control& Label33;  // its version, read from the program file when the page is shown
    Control& Label36;
    Control& Label37;  // the maker, a mail link
    Control& cButton4;  // View Help Files
    Control& cButton5;  // Visit Quillfen Online
};

}  // namespace tv::ui
