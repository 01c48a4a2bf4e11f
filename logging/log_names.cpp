#include "logging/log_names.h"

#include "core/text.h"

namespace tv {

std::string paddedDate(std::string_view dashedDate) {
    const auto parts = splitText(dashedDate, "-");
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) text += '-';
        if (i + 1 < parts.size() && parts[i].size() == 1) text += '0';
        text += parts[i];
    }
    return text;
}

std::string shownTime(std::string_view nameTime) {
    return replaceText(replaceText(replaceText(nameTime, "_", ":"), "AM", " AM"), "PM", " PM");
}

bool looksLikeReport(std::string_view name) {
    return name != "." && name != ".." && upperCase(rightText(name, 4)) == ".LOG";
}

std::optional<ReportStamp> reportStamp(std::string_view name) {
    const std::size_t open = inStr(1, name, "(");
    if (open == 0) return std::nullopt;
    return ReportStamp{paddedDate(leftText(name, open - 1)), shownTime(getBetween(name, 1, "(", ")"))};
}

std::string reportFileName(std::string_view date, std::string_view time) {
    return std::string(date) + "(" + replaceText(replaceText(time, ":", "_"), " ", "") + ").log";
}

}  // namespace tv
