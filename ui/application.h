// One run of the program: its state and its windows, and the start-up that the
// Load of the main window performs.
#pragma once

#include <memory>

#include "core/app_context.h"
#include "core/run_switch.h"

namespace tv::ui {

class MainWindow;
class ScannerChoiceForm;

class Application {
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

    // The Load of the main window: paths, data folders, settings, and the run
    // mode of the command line. Failing steps are passed over; start-up never
    // stops half way but for the refusal of a switched run.
    void load();

    // Unloading the main window ends the process at once: nothing is saved.
    void unloadMainForm();
    bool ended() const { return ended_; }

    // load(), then the window events until the process ends; the exit code.
    int run();

private:
    void fixPaths();
    void makeDataFolders();
    void actOnCommandLine();
    bool passesBaselineTest(RunSwitch mode);
    void endProcess();

    AppContext ctx_;
    std::unique_ptr<MainWindow> mForm1_;
    std::unique_ptr<ScannerChoiceForm> sAvir_;
    bool ended_ = false;
};

}  // namespace tv::ui
