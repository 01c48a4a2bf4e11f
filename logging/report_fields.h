// A report's contents as the report page lists them: its heading and then one
// entry per file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tv {

// The report's fields in order, each trimmed of blanks. Commas and line ends
// (CR LF) both end a field; the first empty field ends the list, so that
// whatever stands behind two consecutive commas is not shown. The text is cut
// in one pass.
std::vector<std::string> reportFields(std::string_view report);

}  // namespace tv
