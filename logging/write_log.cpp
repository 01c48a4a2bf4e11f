#include "logging/write_log.h"

#include "core/text.h"
#include "core/write_failures.h"
#include "logging/log_names.h"
#include "platform/controls.h"

namespace tv {
namespace {

// The most reports of one second that get a name of their own.
constexpr int kReportsPerSecond = 10000;

// Every "/" made "-", and each part but the last padded to two digits.
std::string dateText(const std::string& regional) { return paddedDate(replaceText(regional, "/", "-")); }

std::string timeText(const std::string& regional) {
    return replaceText(replaceText(regional, ":", "_"), " ", "");
}

// A name with a blank or a comma would read as two files: it is quoted, which
// no report of the former kind ever was (its quotes were all taken out).
std::string fileField(const std::string& name) {
    return name.find_first_of(" ,") == std::string::npos ? name : "\"" + name + "\"";
}

LogOutcome failedReport(AppContext& ctx, const std::string& file) {
    reportFailedWrite(ctx, file);
    return LogOutcome::Failed;
}

}  // namespace

std::string logFileName(const AppContext& ctx, const std::string& dateTail, int sameSecond) {
    const Clock::DateTimeText now = ctx.os.clock.localDateTime();
    const std::string count = sameSecond > 1 ? " (" + std::to_string(sameSecond) + ")" : std::string();
    return ctx.appPath + "Data\\Log\\" + dateText(now.date) + dateTail + "(" + timeText(now.time) + ")" + count +
           ".log";
}

LogOutcome writeLog(AppContext& ctx, const std::string& heading, const std::vector<std::string>& items, bool force) {
    std::vector<std::string> names;
    std::string listText = heading;
    for (const std::string& item : items) {
        std::string name = trimBlanks(replaceText(item, "\"", ""));
        if (name.empty()) continue;
        listText += name;
        names.push_back(std::move(name));
    }
    if (!force) {
        if (trimBlanks(listText).empty() || inStr(1, listText, ".") == 0) return LogOutcome::Skipped;
        if (ctx.shutAction != kNoShutdown) ctx.scanLogged = 1;  // also with logging off
        if (!ctx.autoLogging || ctx.autoLogging->value() == 0) return LogOutcome::Skipped;
    }
    std::string line = heading;
    for (std::size_t i = 0; i < names.size(); ++i) line += (i == 0 ? "" : ",") + fileField(names[i]);
    line += "\r\n";
    // Never over another report: two of one second (the shut-down's two
    // precautionary reports come microseconds apart) each keep their file.
    Files& files = ctx.os.files;
    for (int sameSecond = 1; sameSecond <= kReportsPerSecond; ++sameSecond) {
        const std::string file = logFileName(ctx, {}, sameSecond);
        if (files.createNew(file, line)) return LogOutcome::Written;
        if (!files.length(file)) return failedReport(ctx, file);
    }
    return failedReport(ctx, logFileName(ctx, {}, kReportsPerSecond));
}

}  // namespace tv
