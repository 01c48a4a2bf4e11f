// A report's name and contents on any bytes. The report page's one-pass cut gives exactly the fields that the slow
// cut step by step from the front gives (trim, every CR LF a comma, a comma at the end, one field at a time until an
// empty one); a name that has a date leads back to a file name of that date.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "core/text.h"
#include "logging/log_names.h"
#include "logging/report_fields.h"

namespace {

std::vector<std::string> fieldsStepByStep(std::string_view report) {
    std::string text = tv::replaceText(tv::trimBlanks(report), "\r\n", ",");
    if (text.empty() || text.back() != ',') text += ',';
    std::vector<std::string> fields;
    for (;;) {
        const std::size_t comma = tv::inStr(1, text, ",");
        std::string field = tv::trimBlanks(tv::leftText(text, comma - 1));
        if (field.empty()) break;
        text = tv::midText(text, comma + 1);
        fields.push_back(std::move(field));
        if (text.empty() || text == ",") break;
    }
    return fields;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const std::string name = in.ConsumeRandomLengthString(64);
    const std::string report = in.ConsumeRemainingBytesAsString();
    if (tv::reportFields(report) != fieldsStepByStep(report)) __builtin_trap();
    if (const auto stamp = tv::reportStamp(name)) {
        const std::string file = tv::reportFileName(stamp->date, stamp->time);
        if (file.compare(0, stamp->date.size() + 1, stamp->date + "(") != 0) __builtin_trap();
        if (file.find(':') != std::string::npos && stamp->date.find(':') == std::string::npos) __builtin_trap();
    }
    return 0;
}
