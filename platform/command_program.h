// Which program file a command line starts. The system is told that file by
// name, so that it searches for nothing: given a whole line such as
//   C:\Program Files\Scan\scan.exe /x "C:\a b.dll"
// Windows would otherwise try C:\Program.exe first, and a program planted there
// would run with the scanner's line.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tv {

// A line that begins with a double quote names the text up to the next one.
// Any other line names the longest of its beginnings that ends just before a
// blank, or at the line's end, and names an existing file with an extension
// (`isFile`); beginnings that reach past a character no path can hold are not
// tried. Empty text when nothing fits: then nothing is to be started.
std::string programOfCommandLine(std::string_view line, const std::function<bool(const std::string&)>& isFile);

}  // namespace tv
