#include "logging/unattended_boxes.h"

#include "core/text.h"
#include "logging/write_log.h"

namespace tv {
namespace {

constexpr const char* kHeading = "Unattended Run - Tarvelon did not wait for an answer to these messages";
constexpr const char* kDateTail = " unattended";

// A report's fields end at commas and line breaks, and an empty field ends
// the report when it is read: a message goes in as its lines that hold text.
std::string messageFields(const std::string& prompt) {
    std::string fields, line;
    for (const char c : prompt + '\n') {
        if (c != '\r' && c != '\n') {
            line += c;
            continue;
        }
        if (!trimBlanks(line).empty()) fields += "," + line;
        line.clear();
    }
    return fields;
}

std::string answerName(int answer) {
    switch (answer) {
    case box::Yes: return "Yes";
    case box::No: return "No";
    case box::Cancel: return "Cancel";
    default: return "OK";
    }
}

}  // namespace

void logUnseenMessage(AppContext& ctx, const std::string& prompt, unsigned style, int answer) {
    if (ctx.unseenReport.empty()) {
        ctx.unseenReport = logFileName(ctx, kDateTail);
        ctx.unseenText = kHeading;
    }
    ctx.unseenText += messageFields(prompt);
    if ((style & 0xF) != box::OkOnly) ctx.unseenText += ",Tarvelon answered: " + answerName(answer);
    ctx.os.files.writeAll(ctx.unseenReport, ctx.unseenText + "\r\n");
}

int showOrLog(AppContext& ctx, const std::string& prompt, const std::string& title, unsigned style,
              int unattendedAnswer) {
    if (!ctx.unattended) return ctx.os.boxes.show(prompt, title, style);
    logUnseenMessage(ctx, prompt, style, unattendedAnswer);
    return unattendedAnswer;
}

}  // namespace tv
