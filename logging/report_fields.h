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

// The same for a report of either kind: one that holds no double quote (every
// report written before files were quoted) is cut as above; in another, a
// field that begins with a double quote runs to the next one, commas and
// blanks and all, and what stands between that quote and the next comma
// does not count.
std::vector<std::string> reportEntries(std::string_view report);

}  // namespace tv
