#include "ui/setup_wizard.h"

#include <array>
#include <cmath>
#include <string_view>

#include "avshell/known_scanners.h"
#include "avshell/scanner_choice.h"
#include "avshell/scanner_choice_form.h"
#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/write_failures.h"
#include "ui/settings_boxes.h"
#include "ui/setup_wizard_form.h"
#include "ui/shortcut_maker.h"
#include "ui/startup_folder.h"

namespace tv::ui {
namespace {

// The hover number of each label.
constexpr std::int16_t kNoLabel = 0, kBack = 1, kCancel = 2, kNext = 3, kReleased = 6;
constexpr std::uint32_t kPressed = 0xFF8080;  // 0xBBGGRR: a light blue

constexpr std::int16_t kLastPage = 8;

struct WizardPage {
    const char* title;
    const char* description;  // its paragraphs joined by CR or line breaks as they are shown
    std::array<std::string_view, 6> shown;  // the page's own controls
};

// Page 8 writes its description itself: it tells how long the setup took.
constexpr std::array<WizardPage, kLastPage + 1> kPages{{
    {"Welcome to the Setup Wizard",
     "Just click the 'Next' button to continue.\r"
     "-If you make any mistakes, just click on the back button.\r"
     "-Hit Cancel if you want to quit the setup without changing any settings.",
     {}},
    {"Anti-Virus Setup (1/2)",
     "Step 1: Locate your main anti-virus software program.\r\r"
     "-If you aren't sure where to find it, click on the 'Help Me' button.",
     {"vpath", "varg", "Label4", "helpme", "locate"}},
    {"Anti-Virus Setup (2/2)",
     "Step 2: Make sure it works!\r\r"
     "-Click the 'Test It!' button to make sure you selected the correct program.",
     {"Command1"}},
    {"Main Settings (1/3)",
     "-The most powerful aspect of Tarvelon is the Integrity Checker and the auto-loading and auto-scanning "
     "features.\r\r"
     "-This loads Tarvelon whenever a user logs into Windows, and performs a quick Integrity Check of your system "
     "files. This will provide an early warning of potential threats and will allow the elimination of malicious "
     "files before they cause serious damage.",
     {"aload"}},
    {"Main Settings (2/3)",
     "-Please choose the types of files you would like to scan at startup.\r\r"
     "-We recommend scanning of at least these files types:\r"
     "DRV,SYS,EXE,SCR and PIF files.",
     {"Check1", "Check2", "Check3", "Check4", "Check5", "Check8"}},
    {"Main Settings (3/3)",
     "Auto-Scan:\r"
     "-If this option is enabled, then if any files fail the Integrity Check, they will be scanned automatically "
     "(only applies if Tarvelon is loaded at Start Up of Windows).\r\n\r\n"
     "-If you enable this option, then it is very highly recommended that you also enable the 'Logging' feature in "
     "Tarvelon (so that files can be re-scanned after your Anti-Virus definition files are updated).",
     {"Check6"}},
    {"Other Settings (1/2)",
     "Tarvelon's Logging Feature\r"
     "-If this option is enabled, then if any files fail the Integrity Check or if any New or Modified Registry "
     "entries are scanned, they will be added to the log.  Users can pull up the logs later on to see what files "
     "were scanned, and have the option to scan them again.  This feature is useful to protect the user from not "
     "finding viruses or trojans due to older Virus Definition files.",
     {"Check7"}},
    {"Other Settings (2/2)",
     "Tarvelon's 'Secure Shut Down' Feature\r\n"
     "-This button will create a shortcut on your Desktop that will provide an alternative to shutting down your "
     "computer via the ShutDown button in Windows.\r\n"
     "-Using the 'Secure Shut Down' method will perform the same actions as the Auto-Load feature, as well as "
     "scanning the registry and also your wininit.ini files for suspicious entries. Using this method of shutting "
     "down is HIGHLY recommended.",
     {"cButton1"}},
    {"You're done!", nullptr, {"Command2"}},
}};

// Whole numbers the way the program has always rounded them: half to even.
std::int32_t wholeNumber(double value) { return static_cast<std::int32_t>(std::nearbyint(value)); }

}  // namespace

SetupWizard::SetupWizard(AppContext& ctx, SetupWizardForm& form, ScannerChoiceForm& choice, Links links)
    : ctx_(ctx), form_(form), choice_(choice), links_(std::move(links)) {
    form_.Label1.onMouseMove = [this] { hoverOver(kNext); };
    form_.Label2.onMouseMove = [this] { hoverOver(kBack); };
    form_.Label3.onMouseMove = [this] { hoverOver(kCancel); };
    for (Control* label : {&form_.Label1, &form_.Label2, &form_.Label3})
        label->onMouseDown = [this, label] { press(*label); };
    form_.Label1.onMouseUp = [this] {
        release(form_.Label1);
        next();
    };
    form_.Label2.onMouseUp = [this] {
        release(form_.Label2);
        back();
    };
    form_.Label3.onMouseUp = [this] { release(form_.Label3); };
    form_.Label3.onClick = [this] { cancel(); };
    form_.onMouseMove = form_.desc.onMouseMove = [this] { plainLabels(); };
    form_.locate.onClick = [this] { locate(); };
    form_.helpme.onClick = [this] { links_.showCatalogue(); };
    form_.Command1.onClick = [this] { runScannerTest(ctx_, form_.vpath.caption()); };
    form_.cButton1.onClick = [this] { createShutDownShortcut(ctx_); };
    form_.Command2.onClick = [this] { save(); };
    form_.onUnload = [this] { form_.setVisible(false); };
}

void SetupWizard::LoadUp() {
    form_.setVisible(true);
    page_ = 0;
    norms();
    form_.Label1.setVisible(true);
    form_.aload.setValue(fileThere(ctx_, autoLoadShortcutPath(ctx_)) ? 1 : 0);
    if (const auto settings = getSetting(ctx_, "GETSETT")) applyFlagList(*settings, form_.settingsBoxes());
    putScannerSetting(getSetting(ctx_, "ANTIVIRUS"), form_.vpath, form_.varg);
    NextFrame();
}

void SetupWizard::norms() {
    for (Control* control : form_.settingsBoxes()) control->setVisible(false);
    for (Control* control : {&form_.Label4, &form_.helpme, &form_.locate, &form_.aload, &form_.vpath, &form_.varg,
                             &form_.Command1, &form_.Command2, &form_.cButton1})
        control->setVisible(false);
    form_.Label1.setVisible(true);
    form_.Label2.setVisible(true);
}

// Arriving at page 0 starts the clock again, also when coming back to it.
void SetupWizard::NextFrame() {
    norms();
    if (page_ < 0 || page_ > kLastPage) return;
    const WizardPage& page = kPages[static_cast<std::size_t>(page_)];
    if (page_ == 0) startTime_ = wholeNumber(ctx_.os.clock.secondsSinceMidnight());
    form_.title.setCaption(page.title);
    form_.desc.setCaption(page.description ? page.description : lastPageText());
    for (std::string_view name : page.shown)
        if (!name.empty()) form_.at(std::string(name)).setVisible(true);
    if (page_ == 0) form_.Label2.setVisible(false);
    if (page_ == kLastPage) form_.Label1.setVisible(false);
}

std::string SetupWizard::lastPageText() const {
    const double elapsed = ctx_.os.clock.secondsSinceMidnight() - startTime_;
    std::string text = "Just click on the Save button to save the settings!\r\rThis setup took: " +
                       std::to_string(wholeNumber(elapsed / 60)) + " minutes to complete.";
    if (elapsed < 3.0) text += "\r\rThat was quick! Go Speed Racer Go!";
    return text;
}

// Leaving the test page without a scanner is allowed, after a word.
void SetupWizard::next() {
    if (page_ >= kLastPage) return;  // Next is hidden there
    if (page_ == 2 && !fileThere(ctx_, form_.vpath.caption()))
        ctx_.os.boxes.show(kNoScannerMessage, kAppTitle, box::OkOnly);
    ++page_;
    NextFrame();
}

void SetupWizard::back() {
    if (page_ <= 0) return;  // Back is hidden there
    --page_;
    NextFrame();
}

void SetupWizard::cancel() {
    if (ctx_.os.boxes.show("Are you sure you want to disregard all changes and exit the setup wizard?", kAppTitle,
                           box::YesNo) != box::No)
        form_.setVisible(false);
}

// The arguments follow the path, in the wizard and in the scanner selection.
// A cancelled box keeps the path that was there.
void SetupWizard::locate() {
    const std::string chosen = chooseScannerFile(ctx_, links_.fileBoxOwner());
    if (chosen.empty()) return;
    form_.vpath.setCaption(chosen);
    const std::string arguments = defaultArguments(form_.vpath.caption());
    form_.varg.setCaption(arguments);
    choice_.Text6.setCaption(arguments);
}

// Each step goes on whatever the one before it did. Unlike the settings page,
// a shortcut that is there already is kept when Auto-Load stays on.
void SetupWizard::save() {
    const WriteCheck written(ctx_);
    checkSettFile(ctx_);
    const bool autoLoadSaved = saveAutoLoad(ctx_, form_.aload.value() == 1, false);
    writeEntry(ctx_, ctx_.settFile, "settings", joinValues(form_.settingsBoxes()), "Tarvelon");
    if (!fileThere(ctx_, form_.vpath.caption())) {
        ctx_.os.boxes.show(kNoScannerMessage, kAppTitle, box::OkOnly);
        form_.vpath.setCaption(kNoScannerChosen);
        form_.varg.setCaption(" ");
    }
    writeEntry(ctx_, ctx_.settFile, "antivirus", form_.vpath.caption() + "|" + form_.varg.caption(), "Tarvelon");
    ctx_.autoScanFailed = form_.Check6.value() == 1;
    // The scanner just saved is the scanner window's first one, whatever that
    // window held unsaved (the wizard hands it arguments as well).
    choice_.settle(true, false);
    links_.reloadSettings();  // Auto-Logging, say, is read from the settings page
    if (autoLoadSaved && written.allWritten())
        ctx_.os.boxes.show("Settings Saved Successfully!", kAppTitle, box::OkOnly);
    form_.setVisible(false);
}

void SetupWizard::hoverOver(std::int16_t label) {
    if (hover_ == label) return;
    hover_ = label;
    for (const auto& [control, number] : {std::pair{&form_.Label1, kNext}, std::pair{&form_.Label2, kBack},
                                          std::pair{&form_.Label3, kCancel}}) {
        const bool lit = number == label;
        control->setLook(lit ? kBlue : kBlack, lit);
    }
}

void SetupWizard::press(Control& label) { label.setLook(kPressed, label.underlined()); }

void SetupWizard::release(Control& label) {
    label.setLook(kBlack, false);
    hover_ = kReleased;
}

void SetupWizard::plainLabels() {
    if (hover_ == kNoLabel) return;
    hover_ = kNoLabel;
    for (Control* label : {&form_.Label1, &form_.Label2, &form_.Label3}) label->setLook(kBlack, false);
}

}  // namespace tv::ui
