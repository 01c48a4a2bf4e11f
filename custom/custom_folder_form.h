// iCust, the screen on which the twenty custom folder slots are edited: the
// slot list with a working copy of each slot's two type lists kept in hidden
// lists, and for the chosen row the log-on and shut-down boxes with their types.
#pragma once

#include "platform/form.h"

namespace tv::ui {

class CustomFolderForm : public Form {
public:
    CustomFolderForm();

    // The state a new load of the form starts from: no row chosen, nothing
    // ticked, the two boxes and their type lists disabled, in the system's colours.
    void showAsNew();

    Control& Label2;
    Control& List1;  // row index = slot - 1
    Control& Label3;
    Control& Label1;
    Control& Check1;  // log-on scans (position 6 of args)
    Control& List2;   // types of args
    Control& Check2;  // Secure Shut Down (position 6 of args2)
    Control& List4;   // types of args2
    Control& cButton2;  // Add Folder...
    Control& Command2;  // Remove Folder
    Control& Command3;  // Save and Exit
    Control& List3;  // args of each slot, hidden
    Control& List5;  // args2 of each slot, hidden
};

}  // namespace tv::ui
