// regF, the main window's RegWatch page: the warnings of the last registry
// pass above the tree of every watched value, or, in its place, the files of
// the pending boot operations; the selected entry, and the page's buttons.
#pragma once

#include "platform/form.h"

namespace tv::ui {

class RegWatchPage {
public:
    RegWatchPage(Form& form, Control& regF);

    Control& regF;
    Control& List5;      // new and modified entries
    Control& TreeView1;  // every watched value under its location
    Control& List6;      // pending boot operations, over the tree while shown
    Control& Text4;      // the selected entry
    Control& Label19;    // a copy of the selected entry, read back by the actions
    Control& Command1;   // Refresh
    Control& Command3;   // Delete Key
    Control& Command11;  // Scan File for Viruses / Scan all Files for Viruses
    Control& cScnUpd;    // Scan && Update Warnings
    Control& cMod;       // the pending boot operations
    Control& Label18;    // says once that the places new to a snapshot were recorded
    Control& List2;      // emptied by every pass; nothing fills them
    Control& List3;
};

}  // namespace tv::ui
