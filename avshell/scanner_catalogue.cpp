#include "avshell/scanner_catalogue.h"

#include "avshell/known_scanners.h"
#include "avshell/scanner_catalogue_form.h"
#include "avshell/scanner_choice_form.h"
#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/folder_search.h"
#include "core/text.h"
#include "ui/main_actions.h"

namespace tv::ui {
namespace {

constexpr int kNoAssociation = 31;  // no program is set up for web pages

constexpr const char* kSearchCaption = "Search for this Selection...";
constexpr const char* kStopCaption = "Cancel";
constexpr std::size_t kShownFolderChars = 56;  // what one line of the form holds

// A folder too long for its line keeps its drive and its last folders, so
// that the line says both where the search is and how deep.
std::string shownFolder(const std::string& folder) {
    if (folder.size() <= kShownFolderChars) return folder;
    std::string tail = folder.substr(folder.size() - (kShownFolderChars - 6));
    if (const std::size_t cut = tail.find('\\'); cut != std::string::npos) tail.erase(0, cut);
    return folder.substr(0, 3) + "..." + tail;
}

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

// The first hit below Program Files wins; only when there is none is the
// rest of the drive searched, Program Files not again. The window lives on
// meanwhile: what could change the search's target waits, and a search that
// is stopped leaves the form as it was before.
void ScannerCatalogue::search() {
    if (searching_) {
        stopAsked_ = true;
        return;
    }
    if (form_.List1.value() < 0) return;
    form_.Text2.setEnabled(false);
    const std::string program = catalogueProgram(form_.List1.selectedText());
    const std::string before = form_.Text2.caption();
    const bool testable = form_.Command2.enabled(), usable = form_.Command3.enabled();
    holdDuringSearch(true);
    form_.Text2.setCaption("Searching...");
    FolderSearch tree(ctx_, [this](const std::string& folder) { return lookingIn(folder); });
    std::string found = tree.findInTree(getSpecialFolder(ctx_, kProgramFilesFolder), program);
    if (trimBlanks(found).empty()) found = tree.findInTree("C:\\", program);
    holdDuringSearch(false);
    form_.Command2.setEnabled(testable);
    form_.Command3.setEnabled(usable);
    if (tree.stopped()) {
        form_.Text2.setCaption(before);
    } else if (trimBlanks(found).empty()) {
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

bool ScannerCatalogue::lookingIn(const std::string& folder) {
    form_.Label4.setCaption("Looking in " + shownFolder(folder));
    ctx_.os.loop.pump();
    return !stopAsked_;
}

// While a search runs its button stops it, by a click or Esc, and the list,
// Test It! and Use It! wait.
void ScannerCatalogue::holdDuringSearch(bool held) {
    searching_ = held;
    stopAsked_ = false;
    form_.Command4.setCaption(held ? kStopCaption : kSearchCaption);
    form_.cancelButton = held ? &form_.Command4 : nullptr;
    form_.defaultButton = held ? nullptr : &form_.Command4;
    for (Control* waiting : {&form_.List1, &form_.Command2, &form_.Command3}) waiting->setEnabled(!held);
    if (!held) form_.Label4.setCaption("");
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
    stopAsked_ = searching_;
    form_.tag.clear();
    form_.setVisible(false);
    loaded_ = false;
}

}  // namespace tv::ui
