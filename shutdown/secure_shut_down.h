// The Secure Shut Down windows and what they do, created together on first
// use: the choice dialog frmLogoff, the progress window sProg, and the
// sequence between them.
#pragma once

#include <functional>

#include "core/app_context.h"
#include "shutdown/logoff_dialog.h"
#include "shutdown/logoff_form.h"
#include "shutdown/shutdown_progress_form.h"
#include "shutdown/shutdown_sequence.h"

namespace tv {

class SecureShutDown {
public:
    SecureShutDown(AppContext& ctx, const ui::ScannerChoiceForm& scanners, const ui::Control& warnings,
                   ShutdownHost& host);

    ui::LogoffForm frmLogoff;
    ui::ShutdownProgressForm sProg;
    ShutdownSequence sequence;
    LogoffDialog dialog;
};

}  // namespace tv
