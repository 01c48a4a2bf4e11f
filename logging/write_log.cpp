#include "logging/write_log.h"

#include "core/text.h"
#include "core/write_failures.h"
#include "logging/log_names.h"
#include "platform/controls.h"

namespace tv {
namespace {

// Every "/" made "-", and each part but the last padded to two digits.
std::string dateText(const std::string& regional) { return paddedDate(replaceText(regional, "/", "-")); }

std::string timeText(const std::string& regional) {
    return replaceText(replaceText(regional, ":", "_"), " ", "");
}

// The files as comma-separated fields: quotes and the blanks between names go.
// A blank inside a path makes two fields as well.
std::string fileFields(std::string rest) {
    rest = replaceText(rest, "\" \"", ",");
    rest = replaceText(rest, "\" \"", ",");
    rest = replaceText(rest, "\"", "");
    rest = replaceText(rest, ", ", ",");
    return replaceText(rest, " ", ",");
}

LogOutcome failedReport(AppContext& ctx, const std::string& file) {
    reportFailedWrite(ctx, file);
    return LogOutcome::Failed;
}

}  // namespace

std::string logFileName(const AppContext& ctx, const std::string& dateTail) {
    const Clock::DateTimeText now = ctx.os.clock.localDateTime();
    return ctx.appPath + "Data\\Log\\" + dateText(now.date) + dateTail + "(" + timeText(now.time) + ").log";
}

LogOutcome writeLog(AppContext& ctx, std::string& listText, bool force) {
    if (!force) {
        if (trimBlanks(listText).empty() || inStr(1, listText, ".") == 0) return LogOutcome::Skipped;
        if (ctx.shutAction != kNoShutdown) ctx.scanLogged = 1;  // also with logging off
        if (!ctx.autoLogging || ctx.autoLogging->value() == 0) return LogOutcome::Skipped;
    }
    const std::string file = logFileName(ctx);
    if (!ctx.os.files.append(file, "")) return failedReport(ctx, file);
    const std::size_t comma = inStr(1, listText, ",");
    const std::string heading = leftText(listText, comma);
    listText = heading + fileFields(trimBlanks(midText(listText, comma + 1, listText.size())));
    return ctx.os.files.writeAll(file, listText + "\r\n") ? LogOutcome::Written : failedReport(ctx, file);
}

}  // namespace tv
