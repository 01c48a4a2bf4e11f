#include "shutdown/shutdown_sequence.h"

#include "avshell/scanner_choice_form.h"
#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/text.h"
#include "logging/unattended_boxes.h"
#include "logging/write_log.h"
#include "regwatch/pending_boot.h"
#include "regwatch/registry_text.h"
#include "shutdown/logoff_form.h"
#include "shutdown/power_off.h"
#include "shutdown/shutdown_progress_form.h"

namespace tv {
namespace {

constexpr const char* kCheckingEntries = "Status: Checking Startup/Delete/Replace Entries...";
constexpr const char* kScanningFiles = "Status: Scanning Files...";
constexpr const char* kScanningRegistry = "Status: Scanning Registry...";
constexpr const char* kModifiedEntries = "Status: Found Modified Registry Entries...";
constexpr const char* kCountingDown = "Status: Some files were scanned...Shutting Down in 2 minutes";
constexpr const char* kAllClean = "Status: All scans completed.  No suspicious files found!";

constexpr const char* kWininitTitle =
    "The following Files were scanned as a precaution (being renamed or deleted from Wininit),";
constexpr const char* kRegistryTitle =
    "The following Files were scanned as a precaution (being renamed or deleted from the Registry),";

constexpr int kCountDownSeconds = 120;

constexpr const char* kChooseAgain =
    "\r\n\r\nThe power options may not allow it, or you may not have the right to shut the computer down.\r\n\r\n"
    "Do you want to choose again? Click No to close Tarvelon.";

// What the system refused, as the user chose it.
std::string refusal(std::int16_t action) {
    switch (action) {
    case 0: return "Windows refused to hibernate the computer.";
    case 1: return "Windows refused to put the computer on standby.";
    case 2: return "Windows refused to restart the computer.";
    case 4: return "Windows refused to log you off.";
    default: return "Windows refused to turn off the computer.";
    }
}

}  // namespace

ShutdownSequence::ShutdownSequence(AppContext& ctx, ui::LogoffForm& logoff, ui::ShutdownProgressForm& progress,
                                   const ui::ScannerChoiceForm& scanners, const ui::Control& warnings,
                                   ShutdownHost& host)
    : ctx_(ctx), logoff_(logoff), progress_(progress), scanners_(scanners), warnings_(warnings), host_(host) {
    logoff_.Timer1.onTick = [this] { timerTick(); };
    progress_.Command1.onClick = [this] { powerAction(true); };
    progress_.onQueryUnload = [this] { return queryUnload(); };
}

void ShutdownSequence::status(const char* line) { progress_.Label2.setCaption(line); }

void ShutdownSequence::choose() {
    if (!scansDone_) return preShut0();
    logoff_.setVisible(false);
    powerAction(true);
}

// From here on nobody may be watching: the user chose and went away.
void ShutdownSequence::preShut0() {
    ctx_.unattended = true;
    checkWinInit();
}

// Nothing stops the sequence: a source that cannot be read gives no files,
// and a scanner that does not start is passed over.
void ShutdownSequence::checkWinInit() {
    status(kCheckingEntries);
    progress_.ProgressBar1.setValue(0);
    scanWininit();
    scanPendingRenames();
    preShut1();
}

// The first scanner only with files to scan; the second whenever it is set
// up, files or none. A scanner without a program is not started: its command
// line would begin with the first file.
void ShutdownSequence::runScanners(const std::vector<std::string>& batch) {
    const std::string& exe1 = scanners_.Text5.caption();
    const std::string& exe2 = scanners_.Text1.caption();
    if (!batch.empty() && !trimBlanks(exe1).empty()) runScannerWith(ctx_, exe1, scanners_.Text6.caption(), batch);
    if (!trimBlanks(exe2).empty()) runScannerWith(ctx_, exe2, scanners_.Text2.caption(), batch);
}

// A file as a batch holds it, shortened first when the settings ask for
// short names; files that are gone are left out.
std::string ShutdownSequence::batchItemIfThere(const std::string& file) {
    const std::string name = ctx_.shortPaths ? toShortPath(ctx_, file) : file;
    return fileThere(ctx_, name) ? ctx_.quoteChar + name + ctx_.quoteChar + " " : std::string();
}

void ShutdownSequence::scanWininit() {
    const std::string path = getWinDir(ctx_) + kWininitName;
    if (!fileThere(ctx_, path)) return;
    FileItems batch;
    if (const auto text = ctx_.os.files.readAll(path))
        for (const WininitEntry& entry : parseWininit(*text))
            if (std::string item = batchItemIfThere(entry.file); !item.empty()) batch.push_back(std::move(item));
    runScanners(batch);
    if (!batch.empty()) writeLog(ctx_, kWininitTitle, batch);
    progress_.ProgressBar1.setValue(50);
}

// The pending renames go out in runs of passCount files. A file already in
// the run being built is not taken twice; every file taken counts, whether
// it is still there or not.
void ShutdownSequence::scanPendingRenames() {
    const std::vector<std::string> parts = pendingRenameParts(readPendingRenames(ctx_.os.registry));
    if (parts.empty()) return;
    FileItems batch, collected;
    std::string batchText;  // the run being built, as the test for a file taken twice reads it
    std::int32_t taken = 0;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        if (!trimBlanks(parts[index]).empty()) {
            const std::string file = pendingRenameFile(parts[index]);
            if (batchText.find(file) == std::string::npos) {
                ++taken;
                if (std::string item = batchItemIfThere(file); !item.empty()) {
                    batchText += item;
                    batch.push_back(std::move(item));
                }
            }
        }
        if (index + 1 < parts.size() && taken < ctx_.passCount) continue;
        runScanners(batch);
        collected.insert(collected.end(), batch.begin(), batch.end());
        batch.clear();
        batchText.clear();
        taken = 0;
    }
    progress_.ProgressBar1.setValue(100);
    if (!collected.empty()) writeLog(ctx_, kRegistryTitle, collected);
}

void ShutdownSequence::preShut1() {
    ctx_.autoLoadRun = true;
    logoff_.setVisible(false);
    status(kScanningFiles);
    host_.startIntegrityScan();
    progress_.setVisible(true);
}

// In a shut-down every warning is scanned and accepted without a question.
void ShutdownSequence::preShut2() {
    status(kScanningRegistry);
    host_.runRegistryPass();
    const auto& rows = warnings_.items();
    if (rows.size() < 2 || rows[1] != kNoWarnings) {
        status(kModifiedEntries);
        host_.scanAndUpdateWarnings();
    }
    startCountDown();
}

void ShutdownSequence::startCountDown() {
    scansDone_ = true;
    if (ctx_.scanLogged == 0) {
        status(kAllClean);
        return powerAction(false);
    }
    status(kCountingDown);
    progress_.Command1.setVisible(true);
    progress_.ProgressBar1.setValue(0);
    progress_.ProgressBar1.setMaximum(kCountDownSeconds);
    if (ctx_.scanLogged == 1) logoff_.Timer1.setEnabled(true);
}

// The action comes at the 120th tick.
void ShutdownSequence::timerTick() {
    progress_.ProgressBar1.setValue(progress_.ProgressBar1.value() + 1);
    if (++secondsPast_ == 60) {
        secondsPast_ = 0;
        ++minutesPast_;
    }
    if (minutesPast_ == 2) powerAction(false);
}

// The count-down stops with the action, which is asked for once, whoever
// asks next. Standby and hibernation come back here when the machine wakes:
// the work is done, and the program ends.
void ShutdownSequence::powerAction(bool userWaiting) {
    if (actionSent_) return;
    actionSent_ = true;
    logoff_.Timer1.setEnabled(false);
    progress_.Command1.setVisible(false);
    if (!shutDown(ctx_, ctx_.shutAction)) return refused(userWaiting);
    if (ctx_.shutAction < 2) host_.endProgram();
}

// Said in one box that names the action, or for nobody written to the report
// and the status line; then the choice comes back (its Cancel ends the
// program), or the program ends.
void ShutdownSequence::refused(bool userWaiting) {
    const std::string what = refusal(ctx_.shutAction);
    progress_.Label2.setCaption("Status: " + what);
    const std::string prompt = what + kChooseAgain;
    const unsigned style = box::YesNo | box::Exclamation;
    int answer = box::Yes;
    if (userWaiting)
        answer = ctx_.os.boxes.show(prompt, kAppTitle, style);
    else
        logUnseenMessage(ctx_, prompt, style, answer);
    if (answer != box::Yes) return host_.endProgram();
    actionSent_ = false;
    logoff_.setVisible(true);
}

bool ShutdownSequence::queryUnload() {
    if (ctx_.os.boxes.show("Cancel Shutdown?", kAppTitle, box::YesNo) != box::Yes) return true;
    host_.endProgram();
    return false;
}

}  // namespace tv
