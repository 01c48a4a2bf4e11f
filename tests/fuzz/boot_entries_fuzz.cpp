// Registry commands and pending boot operations of any bytes: the file a command names, the program a command line
// starts, and the files of wininit.ini and of the pending rename value.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "core/text.h"
#include "platform/command_program.h"
#include "regwatch/file_path_cut.h"
#include "regwatch/pending_boot.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const std::string entry = in.ConsumeRandomLengthString(600);
    const std::uint8_t present = in.ConsumeIntegral<std::uint8_t>();  // which folders hold the file
    const tv::SearchFolders folders{"C:\\WINDOWS\\", "C:\\WINDOWS\\SYSTEM32\\"};
    int asked = 0;
    const tv::FilePathCut cut = tv::cutToFilePath(entry, folders, [&](const std::string&) {
        return (present >> asked++ & 1) != 0;
    });
    const bool bare = cut.text.find('\\') == std::string::npos;
    if (!cut.found && (!bare || !cut.path.empty() || asked != 3)) __builtin_trap();
    if (cut.found && bare && (cut.path.size() < cut.text.size() ||
                              cut.path.compare(cut.path.size() - cut.text.size(), cut.text.size(), cut.text) != 0))
        __builtin_trap();
    if (cut.found && !bare && (asked != 0 || cut.path.find('.') == std::string::npos)) __builtin_trap();
    // With every file there: the quoted text or a beginning of the line, whose name has an extension.
    const std::string program = tv::programOfCommandLine(entry, [](const std::string&) { return true; });
    const std::string name = program.substr(program.find_last_of("\\/:") + 1);
    if (!program.empty() && (entry.find(program) > 1 || name.find('.') == std::string::npos || name.back() == '.'))
        __builtin_trap();

    const std::string wininit = in.ConsumeRandomLengthString(4000);
    std::size_t lines = 0;
    for (const std::string& line : tv::splitText(wininit, "\r\n"))
        if (line.find('=') != std::string::npos) ++lines;
    const auto entries = tv::parseWininit(wininit);
    if (entries.size() != lines) __builtin_trap();
    for (const tv::WininitEntry& e : entries)
        if (e.file.find("\r\n") != std::string::npos) __builtin_trap();

    const std::string value = in.ConsumeRemainingBytesAsString();
    const auto files = tv::parsePendingRenames(value);
    if (files.size() > tv::splitText(value, "\\??\\").size()) __builtin_trap();
    for (const std::string& file : files)
        if (file.find('\0') != std::string::npos || file != tv::trimBlanks(file)) __builtin_trap();
    return 0;
}
