#include "logging/report_fields.h"

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

}  // namespace tv
