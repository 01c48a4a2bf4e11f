#include "ui/application.h"

#include "avshell/scanner_choice_form.h"
#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "hash/checksum.h"
#include "integrity/data_file.h"
#include "ui/load_settings.h"
#include "ui/main_window.h"

namespace tv::ui {

Application::Application(PlatformSet os) : ctx_(os), mForm1_(std::make_unique<MainWindow>()) {
    ctx_.os.renderer.attach(*mForm1_);
    mForm1_->onUnload = [this] { unloadMainForm(); };
    mForm1_->cButton9.onClick = [this] { unloadMainForm(); };
}

Application::~Application() = default;

ScannerChoiceForm& Application::scannerChoice() {
    if (!sAvir_) {
        sAvir_ = std::make_unique<ScannerChoiceForm>();
        ctx_.os.renderer.attach(*sAvir_);
    }
    return *sAvir_;
}

void Application::load() {
    fixPaths();
    ctx_.shutAction = kNoShutdown;
    makeDataFolders();
    checkSettFile(ctx_);
    loadSettings(ctx_, *mForm1_, scannerChoice());
    hash::setDatName(ctx_);  // the data file follows the chosen algorithm from here on
    if (fileThere(ctx_, ctx_.intFile)) loadIntFile(ctx_, ctx_.intFile);
    ctx_.cmdLine = trimBlanks(argumentsOf(ctx_.os.processes.commandLine()));
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
    case RunSwitch::AutoLoad:
        ctx_.autoLoadRun = true;
        break;
    case RunSwitch::Scheduled:
        ctx_.schedRun = true;
        break;
    case RunSwitch::SecureShutDown:
    case RunSwitch::Interactive:
        break;
    }
    // The scan and shut-down windows take over switched runs as they arrive;
    // until then every run that gets this far is an interactive one.
    mForm1_->setVisible(true);
}

// A switched run needs a completed primary full scan, which is exactly a
// readable integrity data file; without it the run ends with its message.
bool Application::passesBaselineTest(RunSwitch mode) {
    if (fileThere(ctx_, ctx_.intFile)) return true;
    ctx_.os.boxes.show(baselineRefusal(mode), kAppTitle, box::OkOnly);
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
