// A report's name and contents on any bytes: the one-pass cut gives exactly the
// fields that cutting from the front step by step gives, and a name that has a
// date leads back to a file name of the same date.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "logging/log_names.h"
#include "logging/report_fields.h"
#include "tests/logging/report_fields_reference.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const std::string name = in.ConsumeRandomLengthString(64);
    const std::string report = in.ConsumeRemainingBytesAsString();
    if (tv::reportFields(report) != tv::test::reportFieldsStepByStep(report)) __builtin_trap();
    if (const auto stamp = tv::reportStamp(name)) {
        const std::string file = tv::reportFileName(stamp->date, stamp->time);
        if (file.compare(0, stamp->date.size() + 1, stamp->date + "(") != 0) __builtin_trap();
        if (file.find(':') != std::string::npos && stamp->date.find(':') == std::string::npos) __builtin_trap();
    }
    return 0;
}
