// One run of the program: its state and its windows, and the start-up that the
// Load of the main window performs.
#pragma once

#include <memory>

#include "core/app_context.h"
#include "core/run_switch.h"
#include "integrity/scan_host.h"

namespace tv {
class AppWatchActions;
class ScanDriver;
class FindingsAction;
class FolderScanActions;
class LogBrowser;
}

namespace tv::ui {

class CustomFolderForm;
class CustomFolderManager;
class MainWindow;
class MainActions;
class ScannerChoiceForm;
class ScanWindow;

class Application final : public ScanHost {
public:
    explicit Application(PlatformSet os);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    AppContext& context() { return ctx_; }

    // The main window, created (and attached to the renderer) with the application.
    MainWindow& mainForm() { return *mForm1_; }
    // The scanner form, created hidden on first use.
    ScannerChoiceForm& scannerChoice();
    // intCheck, the scan window, with the driver of its scans; created hidden on first use.
    ScanWindow& scanWindow();
    ScanDriver& scanDriver();
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
    void afterShutDownScan() override {}
    void startFirstCustomScan(const std::string& folder, const std::string& datFile) override;

private:
    void fixPaths();
    void makeDataFolders();
    void actOnCommandLine();
    bool passesBaselineTest(RunSwitch mode);
    void endProcess();

    AppContext ctx_;
    std::unique_ptr<MainWindow> mForm1_;
    std::unique_ptr<MainActions> actions_;
    std::unique_ptr<FolderScanActions> folderScan_;
    std::unique_ptr<AppWatchActions> appWatch_;
    std::unique_ptr<LogBrowser> logBrowser_;
    std::unique_ptr<ScannerChoiceForm> sAvir_;
    std::unique_ptr<ScanWindow> intCheck_;
    std::unique_ptr<ScanDriver> scanDriver_;
    std::unique_ptr<FindingsAction> findings_;
    std::unique_ptr<CustomFolderForm> iCust_;
    std::unique_ptr<CustomFolderManager> custManager_;
    bool ended_ = false;
};

}  // namespace tv::ui
