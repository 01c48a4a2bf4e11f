// sProg, the window of the Secure Shut Down sequence: what it is doing, how far
// the task in hand has come, and, once the count-down runs, the way to go at
// once. Its close box is the way to stop.
#pragma once

#include "platform/form.h"

namespace tv::ui {

class ShutdownProgressForm : public Form {
public:
    ShutdownProgressForm();

    Control& Label1;
    Control& ProgressBar1;
    Control& Label2;    // the status line
    Control& Command1;  // ShutDown Now, shown with the count-down
};

}  // namespace tv::ui
