#include "ui/main_actions.h"

#include "core/text.h"
#include "regwatch/reg_class.h"
#include "ui/main_window.h"

namespace tv::ui {
namespace {

constexpr int kFileNotFound = 2;   // the system's answer for a missing document
constexpr int kNoAssociation = 31;  // no program is set up for the link
constexpr int kLastFailure = 32;    // the system's answers up to here are failures

constexpr const char* kUpdateUtilityKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Orbexa_is1";
constexpr const char* kUpdateUtilityMissing =
    "Tarvelon requires Orbexa (Orbexa Update Utility) to check for updates.\r\n\r\nWould you like to download Orbexa?";

constexpr const char* kHelpMissing =
    "The Help file wasn't found or cannot be executed! Would you like to browse Tarvelon help on the web?";

}  // namespace

MainActions::MainActions(AppContext& ctx, MainWindow& window, std::function<void()> reloadSettings)
    : ctx_(ctx), window_(window), reloadSettings_(std::move(reloadSettings)) {
    window_.Image7.onClick = [this] { showRegWatch(); };
    window_.Image9.onClick = [this] { showAppWatch(); };
    window_.Image11.onClick = [this] { showOptions(); };
    window_.options.cAbout.onClick = window_.cButton7.onClick = [this] { showAbout(); };
    window_.about.cButton4.onClick = window_.cButton6.onClick = window_.settings.chlp.onClick = [this] {
        openHelp();
    };
    window_.about.cButton5.onClick = [this] { visitWebPage(); };
    window_.about.Label37.onClick = [this] { mailMaker(); };
    window_.options.cUpdates.onClick = [this] { checkForUpdates(); };
}

// The page shows what the last registry pass left: it is not refreshed on entry.
void MainActions::showRegWatch() {
    window_.norms2();
    for (Control* button : {&window_.regWatch.cScnUpd, &window_.regWatch.Command3, &window_.regWatch.Command11})
        button->setEnabled(false);
    window_.regF.setVisible(true);
}

void MainActions::showAppWatch() {
    window_.norms2();
    window_.appF.setVisible(true);
}

void MainActions::showOptions() {
    window_.norms2();
    reloadSettings_();
    window_.setFq.setVisible(true);
    window_.logBrowser.cViewReport.setEnabled(false);  // until a report's time is chosen in the tree
}

void MainActions::showAbout() {
    window_.norms2();
    window_.about.Label33.setCaption("Version: " + ctx_.os.processes.versionNumbers());
    window_.Frame2.setVisible(true);
}

void MainActions::openHelp() {
    const int result = ctx_.os.shell.openDocument("Open", "index.html", ctx_.appPath + "Help\\");
    if (result != kFileNotFound) return;
    if (ctx_.os.boxes.show(kHelpMissing, kAppTitle, box::YesNo) != box::Yes) return;
    ctx_.os.boxes.show(std::string("Click on the Tarvelon page, then choose 'Online Help'.\r\n\r\n"
                                   "The Quillfen Software web page will open now: ") + kMakerWebPage,
                       kAppTitle, box::OkOnly);
    if (!openWebPage(kMakerWebPage))
        ctx_.os.boxes.show(std::string("The link could not be executed. Please open ") + kMakerWebPage +
                               " in your web browser.",
                           kAppTitle, box::OkOnly);
}

void MainActions::visitWebPage() { visitPage(kMakerWebPage); }

void MainActions::visitPage(const char* page) {
    if (ctx_.os.boxes.show("Would you like to visit the Quillfen Software web site?", kAppTitle, box::YesNo) !=
        box::Yes)
        return;
    if (!openWebPage(page))
        ctx_.os.boxes.show(std::string("The web site could not be opened. Please visit ") + page + " by hand.",
                           kAppTitle, box::OkOnly);
}

void MainActions::checkForUpdates() {
    RegClass reg(ctx_.os.registry);
    reg.openRegistry(hive::LocalMachine, kUpdateUtilityKey);
    const std::string folder = reg.getValue(RegText("Inno Setup: App Path")).text;
    reg.closeRegistry();
    if (folder.empty()) {
        if (ctx_.os.boxes.show(kUpdateUtilityMissing, kAppTitle, box::YesNo) == box::Yes) visitPage(kUpdateUtilityPage);
        return;
    }
    // The word behind the program tells the utility which product to update;
    // a utility that does not start is passed over without a word.
    ctx_.os.processes.start(withTrailingBackslash(folder) + "Orbexa.exe Tarvelon2", show::MinimizedFocus);
}

void MainActions::mailMaker() {
    const std::string link = std::string("mailto:") + kSupportMail + "?subject=Tarvelon(v" +
                             ctx_.os.processes.versionNumbers() + ")";
    if (ctx_.os.shell.openDocument("Open", link, {}) == kNoAssociation)
        ctx_.os.boxes.show(std::string("Could not execute default mail client.\r\nPlease write to ") + kSupportMail,
                           kAppTitle, box::OkOnly);
}

bool MainActions::openWebPage(const char* page) { return ctx_.os.shell.openDocument("Open", page, {}) > kLastFailure; }

}  // namespace tv::ui
