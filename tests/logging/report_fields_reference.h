// The report page's cut of a report, step by step as the program describes
// it: trim, every CR LF made a comma, a comma added at the end, then one field
// at a time cut from the front. Slow (the rest of the text is copied for every
// field), and for that very reason a plain yardstick for the one-pass cut.
#pragma once

#include <string>
#include <vector>

#include "core/text.h"

namespace tv::test {

inline std::vector<std::string> reportFieldsStepByStep(std::string_view report) {
    std::string text = replaceText(trimBlanks(report), "\r\n", ",");
    if (text.empty() || text.back() != ',') text += ',';
    std::vector<std::string> fields;
    for (;;) {
        const std::size_t comma = inStr(1, text, ",");
        std::string field = trimBlanks(leftText(text, comma - 1));
        if (field.empty()) break;
        text = midText(text, comma + 1);
        fields.push_back(std::move(field));
        if (text.empty() || text == ",") break;
    }
    return fields;
}

}  // namespace tv::test
