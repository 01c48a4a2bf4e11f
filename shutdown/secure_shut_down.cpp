#include "shutdown/secure_shut_down.h"

namespace tv {

SecureShutDown::SecureShutDown(AppContext& ctx, const ui::ScannerChoiceForm& scanners, const ui::Control& warnings,
                               ShutdownHost& host)
    : sequence(ctx, frmLogoff, sProg, scanners, warnings, host),
      dialog(ctx, frmLogoff, [this] { sequence.choose(); }, [&host] { host.endProgram(); }) {
    ctx.os.renderer.attach(frmLogoff);
    ctx.os.renderer.attach(sProg);
    // The integrity scan of a shut-down shows its progress here.
    ctx.shutDownProgress = &sProg.ProgressBar1;
}

}  // namespace tv
