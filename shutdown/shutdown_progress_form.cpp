#include "shutdown/shutdown_progress_form.h"

namespace tv::ui {

ShutdownProgressForm::ShutdownProgressForm()
    : Form("sProg", "Scanning and Shutting Down...Please Wait", {0, 0, 420, 140}),
      Label1(add(Kind::Label, "Label1", {12, 12, 396, 18}, "Current Task Progress:")),
      ProgressBar1(add(Kind::ProgressBar, "ProgressBar1", {12, 34, 396, 20})),
      Label2(add(Kind::Label, "Label2", {12, 64, 396, 34}, "Status: ")),
      Command1(add(Kind::FlatButton, "Command1", {140, 102, 140, 28}, "ShutDown Now")) {
    Command1.setVisible(false);
    closesOnEscape = true;  // Esc asks, as the close box does, whether to cancel
}

}  // namespace tv::ui
