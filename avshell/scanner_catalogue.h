// What aVirHelp does: the user picks a known product, the program searches
// the disk for the file of it that takes a command line, tests it, and hands
// it to the scanner selection (first or second scanner, by the form's tag) and,
// for the first scanner, to the Setup Wizard.
#pragma once

#include <functional>
#include <string>

#include "core/app_context.h"

namespace tv::ui {

class Control;
class ScannerCatalogueForm;
class ScannerChoiceForm;

class ScannerCatalogue {
public:
    // The wizard's fields of the first scanner, reached when they are written.
    struct WizardFields {
        Control& vpath;
        Control& varg;
    };
    ScannerCatalogue(AppContext& ctx, ScannerCatalogueForm& form, ScannerChoiceForm& choice,
                     std::function<WizardFields()> wizard);

    // Shows the form for the first scanner (tag "") or the second (any other
    // tag); after the form was closed it comes back as new.
    void show(const std::string& tag);

    // Command4: searches for the chosen product's program, first below
    // Program Files, then below the rest of C:\; while it searches, the
    // button (and Esc) stops it.
    void search();
    void test();       // Command2
    void use();        // Command3
    void notListed();  // Command1
    void unload();     // the close box

private:
    void formLoad();
    bool lookingIn(const std::string& folder);
    void holdDuringSearch(bool held);

    AppContext& ctx_;
    ScannerCatalogueForm& form_;
    ScannerChoiceForm& choice_;
    std::function<WizardFields()> wizard_;
    bool loaded_ = false;
    bool searching_ = false;
    bool stopAsked_ = false;
};

}  // namespace tv::ui
