#include "core/write_failures.h"

#include "core/text.h"

namespace tv {

std::string unwritableDataMessage(const std::string& appPath) {
    return "Tarvelon cannot write to its Data folder:\r\n" + appPath +
           "Data\\\r\n\r\n"
           "Tarvelon keeps its settings, baselines and reports there, so it cannot run from this folder. "
           "Install Tarvelon for your own account (the setup's first choice), or copy it to a folder you may "
           "write to and start it there. Tarvelon installed for all users is started once by an administrator "
           "(\"Run as administrator\") before anyone else uses it.\r\n\r\nClosing.";
}

// A run nobody watches (a scheduled run, a Secure Shut Down under way) never
// waits on these boxes: the files keep what they held, and the end is clean.
void showUnwritableData(AppContext& ctx) {
    if (ctx.unattended) return;
    ctx.os.boxes.show(unwritableDataMessage(ctx.appPath), kAppTitle, box::OkOnly | box::Exclamation);
}

void reportFailedWrite(AppContext& ctx, const std::string& file) {
    ++ctx.failedWrites;
    if (!ctx.filesNotWritten.insert(upperCase(file)).second || ctx.unattended) return;
    ctx.os.boxes.show("Tarvelon could not write\r\n" + file +
                          "\r\n\r\nNothing that was in it before has been lost. Its folder may be write-protected "
                          "or belong to another account, or the disk may be full.",
                      kAppTitle, box::OkOnly | box::Exclamation);
}

}  // namespace tv
