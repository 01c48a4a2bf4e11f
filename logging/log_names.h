// The names of the reports in Data\Log\, "<date>(<time>).log", and the texts
// the log browser makes of them and back: the date with its one-digit parts
// padded, the time with its colons and the blank before AM or PM.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tv {

// The date's parts between "-", each but the last padded with "0" when it is
// one character long: "3-5-2006" gives "03-05-2006". The last part (the year
// of a month-first date) stays as it is; a date without "-" is one part.
std::string paddedDate(std::string_view dashedDate);

// The time as the tree shows it: "_" becomes ":", and "AM" and "PM" get a
// blank in front ("3_04_07PM" gives "3:04:07 PM"; "13_04_07" gives "13:04:07").
std::string shownTime(std::string_view nameTime);

// A listed name that the log browser takes for a report: not "." or "..", and
// ending in ".log" whatever the case. Folders so named count as well.
bool looksLikeReport(std::string_view name);

// The date and time texts of a report's name, as the tree shows them.
struct ReportStamp {
    std::string date;
    std::string time;  // empty when the name has no ")" behind its "("
};

// nullopt for a name without "(": it has no date part.
std::optional<ReportStamp> reportStamp(std::string_view name);

// The file name back from the tree's two texts: the date, "(", the time with
// ":" made "_" and every blank taken out, ").log".
std::string reportFileName(std::string_view date, std::string_view time);

}  // namespace tv
