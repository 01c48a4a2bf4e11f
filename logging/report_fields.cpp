#include "logging/report_fields.h"

#include <algorithm>

#include "core/text.h"

namespace tv {

// A report is one line, but the whole file is read: a line end counts as a
// comma, and the last field needs no comma behind it.
std::vector<std::string> reportFields(std::string_view report) {
    std::vector<std::string> fields;
    std::size_t from = 0;
    while (from <= report.size()) {
        std::size_t end = from;
        while (end < report.size() && report[end] != ',' &&
               !(report[end] == '\r' && end + 1 < report.size() && report[end + 1] == '\n'))
            ++end;
        std::string field = trimBlanks(report.substr(from, end - from));
        if (field.empty()) break;
        fields.push_back(std::move(field));
        from = end + (end < report.size() && report[end] == '\r' ? 2 : 1);
    }
    return fields;
}

std::vector<std::string> reportEntries(std::string_view report) {
    if (report.find('"') == std::string_view::npos) return reportFields(report);
    const auto separatorAt = [&report](std::size_t at) {
        return report[at] == ',' || (report[at] == '\r' && at + 1 < report.size() && report[at + 1] == '\n');
    };
    std::vector<std::string> fields;
    std::size_t from = 0;
    while (from < report.size()) {
        while (from < report.size() && report[from] == ' ') ++from;
        const bool quoted = from < report.size() && report[from] == '"';
        std::size_t end = quoted ? std::min(report.find('"', from + 1), report.size()) : from;
        std::string field(quoted ? report.substr(from + 1, end - from - 1) : std::string_view());
        while (end < report.size() && !separatorAt(end)) ++end;
        if (!quoted) field = trimBlanks(report.substr(from, end - from));
        if (trimBlanks(field).empty()) break;
        fields.push_back(std::move(field));
        from = end + (end < report.size() && report[end] == '\r' ? 2 : 1);
    }
    return fields;
}

}  // namespace tv
