// frmLogoff, the Secure Shut Down dialog: what the computer is to do once the
// scans are over. Each choice is a picture that lights up under the mouse;
// the lit pictures lie over the plain ones and take the clicks.
#pragma once

#include "platform/form.h"

namespace tv::ui {

class LogoffForm : public Form {
public:
    LogoffForm();

    Control& Timer1;  // the count-down, one tick a second
    // The lit pictures come first, so that they lie over the plain ones.
    Control& Image2;  // Standby (or Hibernate), lit
    Control& Image4;  // Turn Off, lit
    Control& Image6;  // Restart, lit
    Control& Image1;
    Control& Image3;
    Control& Image5;
    Control& Label4;  // "Standby", or "Hibernate" while SHIFT is down
    Control& Label6;
    Control& Label5;
    Control& Label3;
    Control& Label2;  // Log Off...
    Control& Label1;  // Cancel
};

}  // namespace tv::ui
