#include "platform/command_program.h"

namespace tv {
namespace {

// A path holds no double quote, wildcard or control character, and a colon
// only behind its drive letter.
bool canStandInPath(std::string_view line, std::size_t at) {
    const auto c = static_cast<unsigned char>(line[at]);
    if (c < 0x20 || std::string_view("\"<>|*?").find(static_cast<char>(c)) != std::string_view::npos) return false;
    return c != ':' || at == 1;
}

// A program file has an extension: a program named without one would be
// looked for with ".exe" added, and a file without one is nothing the user chose.
bool namesProgram(const std::string& path, const std::function<bool(const std::string&)>& isFile) {
    const std::size_t name = path.find_last_of("\\/:");
    const std::size_t dot = path.find_last_of('.');
    const bool extension = dot != std::string::npos && (name == std::string::npos || dot > name) &&
                           dot + 1 < path.size();
    return extension && isFile(path);
}

}  // namespace

std::string programOfCommandLine(std::string_view line, const std::function<bool(const std::string&)>& isFile) {
    if (line.starts_with('"')) {
        const std::string quoted(line.substr(1, line.find('"', 1) - 1));
        return namesProgram(quoted, isFile) ? quoted : std::string();
    }
    std::size_t usable = 0;
    while (usable < line.size() && canStandInPath(line, usable)) ++usable;
    for (std::size_t end = usable; end > 0; --end) {
        const bool beforeBlank = end == line.size() || line[end] == ' ';
        if (!beforeBlank || line[end - 1] == ' ') continue;
        const std::string candidate(line.substr(0, end));
        if (namesProgram(candidate, isFile)) return candidate;
    }
    return {};
}

}  // namespace tv
