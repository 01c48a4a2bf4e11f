// appF, the main window's AppWatch page: the desktop's titled windows with
// the process of each, what is known of the selected one, and the buttons
// that raise it, ask it to close, or list the windows again.
#pragma once

#include "platform/form.h"

namespace tv::ui {

class AppWatchPage {
public:
    AppWatchPage(Form& form, Control& appF);

    Control& appF;
    Control& lstOpenWindows;
    Control& lblCount;
    Control& txtTitle;
    Control& lblClassName;
    Control& lblProcessID;
    Control& act;  // Activate Window
    Control& cl;   // Close Window
    Control& ref;  // Refresh
};

}  // namespace tv::ui
