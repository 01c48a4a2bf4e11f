// Makes sure the system baseline exists before anything is compared: restores
// the backup, or on the user's word writes the blank baseline of the system
// directory and starts the primary full scan.
#pragma once

#include <string>

#include "core/app_context.h"
#include "integrity/scan_host.h"

namespace tv {

void checkIntFile(AppContext& ctx, ScanHost& host);

// Says the program restarts, deletes the baseline's backup, starts a fresh
// instance minimised and ends this one: the new start asks the first-run question.
void restartWithoutBackup(AppContext& ctx, ScanHost& host, const std::string& backup);

}  // namespace tv
