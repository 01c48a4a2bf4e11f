// One run of the program: its state and its windows, and the start-up that the
// Load of the main window performs.
#pragma once

#include <memory>

#include "core/app_context.h"
#include "core/run_switch.h"
#include "integrity/scan_host.h"
#include "shutdown/shutdown_sequence.h"

namespace tv {
class AppWatchActions;
class ScanDriver;
class FindingsAction;
class FolderScanActions;
class RegistryPass;
class RegWatchActions;
class SecureShutDown;
class LogBrowser;
}

namespace tv::ui {

class CustomFolderForm;
class CustomFolderManager;
class MainWindow;
class MainActions;
class SettingsActions;
class AdvancedActions;
class ScannerChoiceForm;
class ScannerChoice;
class ScannerCatalogueForm;
class ScannerCatalogue;
class SetupWizardForm;
class SetupWizard;
class ScanWindow;

class Application final : public ScanHost, public ShutdownHost {
public:
    explicit Application(PlatformSet os);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    AppContext& context() { return ctx_; }

    // The main window, created (and attached to the renderer) with the application.
    MainWindow& mainForm() { return *mForm1_; }
    // s_avir, the scanner selection, created hidden on first use.
    ScannerChoiceForm& scannerChoice();
    // aVirHelp, the scanner catalogue, with its search; created hidden on first use.
    ScannerCatalogueForm& scannerCatalogue();
    ScannerCatalogue& catalogueSearch();
    // vDct, the Setup Wizard, created hidden on first use.
    SetupWizardForm& setupWizard();
    SetupWizard& wizardPages();
    // intCheck, the scan window, with the driver of its scans; created hidden on first use.
    ScanWindow& scanWindow();
    ScanDriver& scanDriver();
    // The RegWatch page's registry pass (setReg) and its actions, among them
    // Scan && Update Warnings (cScnUpd), which the secure shut-down calls too.
    RegistryPass& registryPass() { return *regPass_; }
    RegWatchActions& regWatch() { return *regActions_; }
    // The Secure Shut Down windows and sequence, created on first use.
    SecureShutDown& secureShutDown();
    // iCust, the custom folder manager, created hidden on first use.
    CustomFolderForm& customFolders();
    CustomFolderManager& customFolderManager();

    // The Load of the main window: paths, data folders, settings, and the run
    // mode of the command line. Failing steps are passed over; start-up never
    // stops half way but for the refusal of a switched run.
    void load();

    // Unloading the main window ends the process at once: nothing is saved.
    void unloadMainForm();
    bool ended() const { return ended_; }

    // load(), then the window events until the process ends; the exit code.
    int run();

    // What a scan asks of the program.
    void setMainCaption(const std::string& caption) override;
    void showMainWindow(bool visible) override;
    void startScanWindow() override;
    void endProgram() override { endProcess(); }
    void pressResultAction() override;
    void afterShutDownScan() override;
    void startFirstCustomScan(const std::string& folder, const std::string& datFile) override;

    // What the Secure Shut Down sequence asks of the program.
    void startIntegrityScan() override;
    void runRegistryPass() override;
    void scanAndUpdateWarnings() override;

private:
    void fixPaths();
    void makeDataFolders();
    void actOnCommandLine();
    bool passesBaselineTest(RunSwitch mode);
    void endProcess();

    AppContext ctx_;
    std::unique_ptr<MainWindow> mForm1_;
    std::unique_ptr<MainActions> actions_;
    std::unique_ptr<SettingsActions> settingsActions_;
    std::unique_ptr<AdvancedActions> advancedActions_;
    std::unique_ptr<FolderScanActions> folderScan_;
    std::unique_ptr<RegistryPass> regPass_;
    std::unique_ptr<RegWatchActions> regActions_;
    std::unique_ptr<AppWatchActions> appWatch_;
    std::unique_ptr<LogBrowser> logBrowser_;
    std::unique_ptr<ScannerChoiceForm> sAvir_;
    std::unique_ptr<ScannerChoice> scannerChoice_;
    std::unique_ptr<ScannerCatalogueForm> aVirHelp_;
    std::unique_ptr<ScannerCatalogue> catalogue_;
    std::unique_ptr<SetupWizardForm> vDct_;
    std::unique_ptr<SetupWizard> wizard_;
    std::unique_ptr<ScanWindow> intCheck_;
    std::unique_ptr<ScanDriver> scanDriver_;
    std::unique_ptr<FindingsAction> findings_;
    std::unique_ptr<CustomFolderForm> iCust_;
    std::unique_ptr<CustomFolderManager> custManager_;
    std::unique_ptr<SecureShutDown> shutDown_;
    bool ended_ = false;
};

}  // namespace tv::ui
