#include "ui/application.h"

#include "avshell/scanner_catalogue.h"
#include "avshell/scanner_catalogue_form.h"
#include "avshell/scanner_choice.h"
#include "appwatch/appwatch_actions.h"
#include "avshell/scanner_choice_form.h"
#include "core/file_utils.h"
#include "custom/custom_folder_form.h"
#include "custom/custom_folder_manager.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "core/write_failures.h"
#include "hash/checksum.h"
#include "integrity/check_int_file.h"
#include "integrity/data_file.h"
#include "integrity/findings_action.h"
#include "integrity/folder_scan_actions.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "regwatch/registry_pass.h"
#include "regwatch/regwatch_actions.h"
#include "shutdown/secure_shut_down.h"
#include "ui/advanced_actions.h"
#include "logging/log_browser.h"
#include "logging/unattended_boxes.h"
#include "ui/load_settings.h"
#include "ui/main_actions.h"
#include "ui/main_window.h"
#include "ui/settings_actions.h"
#include "ui/setup_wizard.h"
#include "ui/setup_wizard_form.h"
#include "ui/shortcut_maker.h"

namespace tv::ui {

Application::Application(PlatformSet os) : ctx_(os), mForm1_(std::make_unique<MainWindow>()) {
    ctx_.os.renderer.attach(*mForm1_);
    mForm1_->onUnload = [this] { unloadMainForm(); };
    mForm1_->cButton9.onClick = [this] { unloadMainForm(); };
    const auto reloadSettings = [this] { loadSettings(ctx_, *mForm1_, scannerChoice()); };
    actions_ = std::make_unique<MainActions>(ctx_, *mForm1_, reloadSettings);
    settingsActions_ = std::make_unique<SettingsActions>(ctx_, *mForm1_, reloadSettings,
                                                         [this] { scannerChoice().setVisible(true); });
    advancedActions_ = std::make_unique<AdvancedActions>(ctx_, *mForm1_, reloadSettings);
    mForm1_->options.cCreateSS.onClick = [this] { createShutDownShortcut(ctx_); };
    mForm1_->options.cSetW.onClick = [this] {
        loadSettings(ctx_, *mForm1_, scannerChoice());
        wizardPages().LoadUp();
    };
    folderScan_ = std::make_unique<FolderScanActions>(
        ctx_, mForm1_->folderScan, *this, [this]() -> ScanDriver& { return scanDriver(); },
        [this] { mForm1_->norms2(); });
    mForm1_->Image5.onClick = [this] { folderScan_->enter(); };
    mForm1_->folderScan.addRem.onClick = [this] { customFolderManager().show(); };
    regPass_ = std::make_unique<RegistryPass>(ctx_, mForm1_->regWatch);
    regActions_ = std::make_unique<RegWatchActions>(ctx_, mForm1_->regWatch, *regPass_);
    appWatch_ = std::make_unique<AppWatchActions>(ctx_, mForm1_->appWatch);
    logBrowser_ = std::make_unique<LogBrowser>(ctx_, mForm1_->logBrowser, mForm1_->report, mForm1_->setFq,
                                               [this] { mForm1_->norms2(); });
    ctx_.autoLogging = &mForm1_->settings.Check7;
    ctx_.scannerFocus = &mForm1_->advanced.avfocus;
}

Application::~Application() = default;

// The three scanner forms reach one another through these accessors, so that
// each is made only when it is used. The file box is owned by the catalogue's window.
ScannerChoiceForm& Application::scannerChoice() {
    if (!sAvir_) {
        sAvir_ = std::make_unique<ScannerChoiceForm>();
        scannerChoice_ = std::make_unique<ScannerChoice>(
            ctx_, *sAvir_,
            ScannerChoice::Links{[this]() -> Control& { return setupWizard().varg; },
                                 [this] { return scannerCatalogue().nativeWindow(); },
                                 [this](const std::string& tag) { catalogueSearch().show(tag); }});
        ctx_.os.renderer.attach(*sAvir_);
        scannerChoice_->formLoad();
    }
    return *sAvir_;
}

ScannerCatalogueForm& Application::scannerCatalogue() {
    if (!aVirHelp_) {
        aVirHelp_ = std::make_unique<ScannerCatalogueForm>();
        catalogue_ = std::make_unique<ScannerCatalogue>(ctx_, *aVirHelp_, scannerChoice(), [this] {
            return ScannerCatalogue::WizardFields{setupWizard().vpath, setupWizard().varg};
        });
        ctx_.os.renderer.attach(*aVirHelp_);
    }
    return *aVirHelp_;
}

ScannerCatalogue& Application::catalogueSearch() {
    scannerCatalogue();
    return *catalogue_;
}

SetupWizardForm& Application::setupWizard() {
    if (!vDct_) {
        vDct_ = std::make_unique<SetupWizardForm>();
        wizard_ = std::make_unique<SetupWizard>(
            ctx_, *vDct_, scannerChoice(),
            SetupWizard::Links{[this] { catalogueSearch().show(""); },
                               [this] { return scannerCatalogue().nativeWindow(); },
                               [this] { loadSettings(ctx_, *mForm1_, scannerChoice()); }});
        ctx_.os.renderer.attach(*vDct_);
    }
    return *vDct_;
}

SetupWizard& Application::wizardPages() {
    setupWizard();
    return *wizard_;
}

ScanWindow& Application::scanWindow() {
    if (!intCheck_) {
        intCheck_ = std::make_unique<ScanWindow>();
        scanDriver_ = std::make_unique<ScanDriver>(ctx_, *intCheck_, *this);
        findings_ = std::make_unique<FindingsAction>(ctx_, *intCheck_, *this, *scanDriver_);
        ctx_.os.renderer.attach(*intCheck_);
    }
    return *intCheck_;
}

ScanDriver& Application::scanDriver() {
    scanWindow();
    return *scanDriver_;
}

SecureShutDown& Application::secureShutDown() {
    if (!shutDown_)
        shutDown_ = std::make_unique<SecureShutDown>(ctx_, scannerChoice(), mForm1_->regWatch.List5, *this);
    return *shutDown_;
}

void Application::startIntegrityScan() { scanDriver().loadUp(); }

void Application::runRegistryPass() { regPass_->setReg(); }

void Application::scanAndUpdateWarnings() { regActions_->scanAndUpdateWarnings(); }

void Application::afterShutDownScan() { secureShutDown().sequence.preShut2(); }

CustomFolderForm& Application::customFolders() {
    if (!iCust_) {
        iCust_ = std::make_unique<CustomFolderForm>();
        custManager_ = std::make_unique<CustomFolderManager>(ctx_, *iCust_, [this] { folderScan_->loadf(); });
        ctx_.os.renderer.attach(*iCust_);
    }
    return *iCust_;
}

CustomFolderManager& Application::customFolderManager() {
    customFolders();
    return *custManager_;
}

void Application::setMainCaption(const std::string& caption) { mForm1_->setCaption(caption); }

void Application::showMainWindow(bool visible) { mForm1_->setVisible(visible); }

void Application::startScanWindow() {
    scanWindow().setVisible(true);
    scanDriver().loadUp();
}

void Application::startFirstCustomScan(const std::string& folder, const std::string& datFile) {
    const Control& combo = mForm1_->folderScan.Combo1;
    scanDriver().firstCustomScan(folder, datFile, {combo.selectedText(), combo.value()});
}

void Application::pressResultAction() {
    scanWindow();
    findings_->label12Click();
}

void Application::load() {
    const std::string commandLine = trimBlanks(argumentsOf(ctx_.os.processes.commandLine()));
    // Nobody answers the boxes of a scheduled run, from its first question on.
    ctx_.unattended = parseRunSwitch(commandLine) == RunSwitch::Scheduled;
    fixPaths();
    ctx_.shutAction = kNoShutdown;
    makeDataFolders();
    // Without a Data\ it may write, the program could never save a baseline
    // and would only ask for its first scan again and again. A settings file
    // that is there but held by another program is no such case.
    const bool settingsThere = checkSettFile(ctx_) || ctx_.os.files.length(ctx_.settFile);
    if (!settingsThere || !ctx_.os.files.isFolder(ctx_.appPath + "Data\\")) {
        showUnwritableData(ctx_);
        return endProcess();
    }
    checkIntFile(ctx_, *this);  // on the plain CRC-32 name, before any setting is read
    if (ended_) return;
    regPass_->checkRegFile();
    loadSettings(ctx_, *mForm1_, scannerChoice());
    hash::setDatName(ctx_);  // the data file follows the chosen algorithm from here on
    checkIntFile(ctx_, *this);
    if (ended_) return;
    if (fileThere(ctx_, ctx_.intFile)) loadIntFile(ctx_, ctx_.intFile);
    ctx_.cmdLine = commandLine;
    actOnCommandLine();
}

void Application::fixPaths() {
    const std::string program = ctx_.os.processes.modulePath();
    const auto slash = program.find_last_of('\\');
    ctx_.appPath = withTrailingBackslash(slash == std::string::npos ? "" : program.substr(0, slash));
    ctx_.settFile = ctx_.appPath + "Data\\Tarvelon.dat";
    ctx_.intFile = ctx_.appPath + "Data\\Integrity.dat";
    ctx_.regFile = ctx_.appPath + "Data\\Registry.dat";
}

void Application::makeDataFolders() {
    for (const char* folder : {"Data\\", "Data\\Log\\"}) {
        const std::string path = ctx_.appPath + folder;
        if (!ctx_.os.files.isFolder(path)) ctx_.os.files.makeFolder(path);
    }
}

void Application::actOnCommandLine() {
    const RunSwitch mode = parseRunSwitch(ctx_.cmdLine);
    if (mode != RunSwitch::Interactive && !passesBaselineTest(mode)) return;
    switch (mode) {
    case RunSwitch::AutoLoad: {
        ctx_.autoLoadRun = true;
        mForm1_->setVisible(false);
        startScanWindow();
        scanWindow().setMinimised(true);  // a log-on check keeps out of the way
        return;
    }
    case RunSwitch::SecureShutDown:
        mForm1_->setVisible(false);
        if (secureShutDown().dialog.load()) secureShutDown().frmLogoff.setVisible(true);
        return;
    case RunSwitch::Scheduled:
        // Nobody waits at a scheduled run: the dialog is skipped.
        mForm1_->setVisible(false);
        ctx_.schedRun = true;
        if (secureShutDown().dialog.load()) secureShutDown().sequence.preShut0();
        return;
    case RunSwitch::Interactive: break;
    }
    mForm1_->setVisible(true);
}

// A switched run needs a completed primary full scan, which is exactly a
// readable integrity data file; without it the run ends with its message.
bool Application::passesBaselineTest(RunSwitch mode) {
    if (fileThere(ctx_, ctx_.intFile)) return true;
    showOrLog(ctx_, baselineRefusal(mode), kAppTitle, box::OkOnly);
    endProcess();
    return false;
}

void Application::unloadMainForm() { endProcess(); }

void Application::endProcess() {
    if (ended_) return;
    ended_ = true;
    ctx_.os.loop.quit(0);
}

int Application::run() {
    load();
    if (ended_) return 0;
    return ctx_.os.loop.run();
}

}  // namespace tv::ui
