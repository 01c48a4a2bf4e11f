#include "avshell/scanner_catalogue.h"

#include "avshell/known_scanners.h"
#include "avshell/scanner_catalogue_form.h"
#include "avshell/scanner_choice_form.h"
#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/text.h"
#include "ui/main_actions.h"

namespace tv::ui {
namespace {

constexpr int kNoAssociation = 31;  // no program is set up for web pages

constexpr const char* kSearchNotice =
    "Tarvelon may become unresponsive during the file search. This is normal.\r\rClick OK to continue.";
constexpr const char* kNotFound =
    "The default executable for this program was not found! Make sure you selected the correct anti-virus "
    "program, and the correct operating system.";
constexpr const char* kNotListedNotice =
    "There is a very good chance that your anti-virus software is compatible.  As long as it supports command line "
    "arguments, then it will work.\r"
    "Tarvelon will now take you to the Quillfen Software web site.\r"
    "\r"
    "Simply click on Tarvelon, and click on Anti-Virus support.";

}  // namespace

ScannerCatalogue::ScannerCatalogue(AppContext& ctx, ScannerCatalogueForm& form, ScannerChoiceForm& choice,
                                   std::function<WizardFields()> wizard)
    : ctx_(ctx), form_(form), choice_(choice), wizard_(std::move(wizard)) {
    form_.Command4.onClick = [this] { search(); };
    form_.Command2.onClick = [this] { test(); };
    form_.Command3.onClick = [this] { use(); };
    form_.Command1.onClick = [this] { notListed(); };
    form_.onUnload = [this] { unload(); };
    formLoad();
}

void ScannerCatalogue::formLoad() {
    loaded_ = true;
    form_.tag.clear();
    form_.List1.clearItems();
    for (const KnownScanner& scanner : kKnownScanners) form_.List1.addItem(scanner.product);
    form_.Text2.setCaption("");
    form_.Text2.setEnabled(true);
    form_.Command2.setEnabled(false);
    form_.Command3.setEnabled(false);
}

void ScannerCatalogue::show(const std::string& tag) {
    if (!loaded_) formLoad();
    form_.tag = tag;
    form_.setVisible(true);
}

// The system's search holds the program until it ends, which is why the
// notice comes first; the first hit below Program Files wins, and only when
// there is none is the whole drive searched.
void ScannerCatalogue::search() {
    if (form_.List1.value() < 0) return;
    form_.Text2.setEnabled(false);
    ctx_.os.boxes.show(kSearchNotice, kAppTitle, box::OkOnly);
    const std::string program = catalogueProgram(form_.List1.selectedText());
    form_.Text2.setCaption("Searching...");
    std::string found = findInTree(ctx_, getSpecialFolder(ctx_, kProgramFilesFolder), program);
    if (trimBlanks(found).empty()) found = findInTree(ctx_, "C:\\", program);
    if (trimBlanks(found).empty()) {
        ctx_.os.boxes.show(kNotFound, kAppTitle, box::OkOnly);
        form_.Text2.setCaption("");
        form_.Command2.setEnabled(false);
        form_.Command3.setEnabled(false);
    } else {
        ctx_.os.boxes.show("Success!", kAppTitle, box::OkOnly);
        form_.Text2.setCaption(found);
        form_.Command2.setEnabled(true);
    }
    form_.Text2.setEnabled(true);
}

void ScannerCatalogue::test() {
    if (runScannerTest(ctx_, form_.Text2.caption())) form_.Command3.setEnabled(true);
}

// For the second scanner a Norton program becomes its own arguments as well:
// kept as the selection has always done it.
void ScannerCatalogue::use() {
    const std::string path = form_.Text2.caption();
    if (!form_.tag.empty()) {
        form_.tag.clear();
        choice_.Text1.setCaption(path);
        choice_.Text2.setCaption(scannerFamily(path) == ScannerFamily::Norton ? path : " ");
    } else {
        const WizardFields wizard = wizard_();
        wizard.vpath.setCaption(path);
        choice_.Text5.setCaption(path);
        wizard.varg.setCaption(defaultArguments(path));
        choice_.Text6.setCaption(defaultArguments(path));
    }
    form_.setVisible(false);
}

void ScannerCatalogue::notListed() {
    ctx_.os.boxes.show(kNotListedNotice, kAppTitle, box::OkOnly);
    if (ctx_.os.shell.openDocument("Open", kMakerWebPage, "") == kNoAssociation)
        ctx_.os.boxes.show(std::string("Tarvelon could not open your default web browser. Please visit ") +
                               kMakerWebPage + " by hand.",
                           kAppTitle, box::OkOnly);
}

// Closing the form forgets it: the next opening is a new form, for the first
// scanner unless told otherwise.
void ScannerCatalogue::unload() {
    form_.tag.clear();
    form_.setVisible(false);
    loaded_ = false;
}

}  // namespace tv::ui
