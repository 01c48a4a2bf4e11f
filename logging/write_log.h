// The report of a list of files that went to the scanners or were put aside
// for want of one: a new file Data\Log\<date>(<time>).log of one line, the
// heading and then the files, separated by commas. A file whose name holds a
// blank or a comma stands in double quotes, so that it stays whole.
#pragma once

#include <string>
#include <vector>

#include "core/app_context.h"

namespace tv {

enum class LogOutcome {
    Skipped,  // the gate kept it back: nothing to log, or Auto-Logging off
    Written,
    Failed,   // the file could not be made or written; the user was told (reportFailedWrite)
};

// `heading` ends in its comma; `items` are the files in the item forms of
// the scanners' command lines (quotes and the blanks around a name go; an
// item without a name adds nothing). `force` writes whatever the gate says.
LogOutcome writeLog(AppContext& ctx, const std::string& heading, const std::vector<std::string>& items,
                    bool force = false);

// "Data\Log\" + date + "(" + time + ").log" under the program's folder, from
// the system's regional date and time texts: 3/5/2006 and 3:04:07 PM give
// "03-05-2006(3_04_07PM).log". `dateTail` stands behind the date, where the
// log browser takes it for a part of the date. A report of the same second as
// one that is there already gets " (2)" behind its time, and so on.
std::string logFileName(const AppContext& ctx, const std::string& dateTail = {}, int sameSecond = 1);

}  // namespace tv
