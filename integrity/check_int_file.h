// Makes sure the system baseline exists before anything is compared: restores
// the backup, or on the user's word writes the blank baseline of the system
// directory and starts the primary full scan.
#pragma once

#include "core/app_context.h"
#include "integrity/scan_host.h"

namespace tv {

void checkIntFile(AppContext& ctx, ScanHost& host);

}  // namespace tv
