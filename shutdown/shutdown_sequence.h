// The Secure Shut Down sequence between the user's choice and the power
// action: the files Windows is to move or delete at its next start go to the
// scanners, the integrity scan runs hidden, the registry pass scans and
// accepts its warnings, and the power action comes at once, or after a
// two-minute count-down when something was scanned. The action is asked for
// once; back from standby or hibernation the program ends, and an action the
// system refuses gives the choice back. A scheduled run (/a) makes the first
// two steps only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/app_context.h"

namespace tv::ui {
class Control;
class LogoffForm;
class ScannerChoiceForm;
class ShutdownProgressForm;
}  // namespace tv::ui

namespace tv {

// What the sequence asks of the rest of the program.
class ShutdownHost {
public:
    virtual ~ShutdownHost() = default;
    // intCheck's plan: the scan then runs on its own timer and, in a shut-down,
    // comes back to preShut2 at its end.
    virtual void startIntegrityScan() = 0;
    // The RegWatch page's registry pass, and its Scan && Update Warnings.
    virtual void runRegistryPass() = 0;
    virtual void scanAndUpdateWarnings() = 0;
    virtual void endProgram() = 0;
};

class ShutdownSequence {
public:
    // `scanners` holds the two scanners in Text5/Text6 and Text1/Text2;
    // `warnings` is the RegWatch page's List5.
    ShutdownSequence(AppContext& ctx, ui::LogoffForm& logoff, ui::ShutdownProgressForm& progress,
                     const ui::ScannerChoiceForm& scanners, const ui::Control& warnings, ShutdownHost& host);

    // A choice in the dialog: the sequence, or once its scans are done (the
    // system refused the action before), the new action at once.
    void choose();
    void preShut0();
    void checkWinInit();
    void preShut1();
    void preShut2();
    void startCountDown();

private:
    void scanWininit();
    void scanPendingRenames();
    void runScanners(const std::vector<std::string>& batch);
    std::string batchItemIfThere(const std::string& file);
    void status(const char* line);
    void timerTick();
    bool queryUnload();
    // ShutDown, once: `userWaiting` when the user asked for it just now.
    void powerAction(bool userWaiting);
    void refused(bool userWaiting);

    AppContext& ctx_;
    ui::LogoffForm& logoff_;
    ui::ShutdownProgressForm& progress_;
    const ui::ScannerChoiceForm& scanners_;
    const ui::Control& warnings_;
    ShutdownHost& host_;
    int secondsPast_ = 0;
    int minutesPast_ = 0;
    bool scansDone_ = false;
    bool actionSent_ = false;
};

}  // namespace tv
