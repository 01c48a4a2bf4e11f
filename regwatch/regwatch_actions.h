// What the RegWatch page does: Refresh runs the registry pass; a warning row
// or a value's node becomes the selected entry, which can be deleted from the
// registry or handed to the scanners; Scan && Update hands every warning (or
// every pending boot file) to the scanners in one run and accepts the
// registry as it stands; the pending view lists what Windows will move or
// delete at its next start.
#pragma once

#include <optional>
#include <string>

#include "core/app_context.h"
#include "regwatch/watched_locations.h"

namespace tv {

namespace ui {
class RegWatchPage;
}

class RegistryPass;

class RegWatchActions {
public:
    RegWatchActions(AppContext& ctx, ui::RegWatchPage& page, RegistryPass& pass);

    // Command1: back from the pending view to the tree, and a new pass.
    void refresh();
    // Command3: removes the selected value, after a question, or offers the
    // registry editor for a shell\open\command value, which is never deleted.
    void deleteKey();
    // Command11: the selected value's file to both scanners; in the pending
    // view ("Scan all Files for Viruses") the same as scanAndUpdateWarnings.
    void scanFile();
    // cScnUpd, also without a click (the secure shut-down): every row of the
    // warnings, or of the pending view while it is shown, to the scanners in
    // one command line; then a recording pass accepts every value as it
    // stands, and the files go into a report.
    void scanAndUpdateWarnings();
    // cMod: the files of wininit.ini and of the pending rename value in
    // List6, over the tree.
    void showPendingOperations();

    // The user's choices in the lists and the tree.
    void warningChosen();  // List5
    void nodeChosen();     // TreeView1
    void nodeOpenedOrClosed();
    void pendingFileChosen();  // List6

    // The selected entry's root and location, "<root text>|<location label>".
    const std::string& selEntry() const { return selEntry_; }

private:
    void enableEntryButtons(bool enabled);

    AppContext& ctx_;
    ui::RegWatchPage& page_;
    RegistryPass& pass_;
    std::string selEntry_;
    std::optional<ValuePlace> selPlace_;  // where the chosen entry's value stands
};

}  // namespace tv
