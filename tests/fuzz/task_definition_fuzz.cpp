// Task definitions and multi-entry values of any bytes: the XML and .job readers never run past their input, and a
// value's entries added and removed account for the change of its entry count.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "regwatch/task_definitions.h"
#include "regwatch/value_entries.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const auto split = in.PickValueInArray({tv::EntrySplit::StringList, tv::EntrySplit::BlankOrComma});
    const std::string before = in.ConsumeRandomLengthString(300), now = in.ConsumeRandomLengthString(300);
    const tv::EntryChanges changes = tv::entryChanges(before, now, split);
    const auto count = [split](const std::string& text) { return static_cast<long>(tv::valueEntries(text, split).size()); };
    if (static_cast<long>(changes.added.size()) - static_cast<long>(changes.removed.size()) != count(now) - count(before))
        __builtin_trap();

    const std::string bytes = in.ConsumeRemainingBytesAsString();
    const std::u16string units = tv::textFileUnits(bytes);
    for (const tv::TaskCommand& command : tv::taskXmlCommands(units))
        if (command.program.size() > units.size() || command.arguments.size() > units.size()) __builtin_trap();
    if (const auto job = tv::jobFileCommand(bytes); job && (job->program.size() + job->arguments.size()) * 2 > bytes.size())
        __builtin_trap();
    return 0;
}
