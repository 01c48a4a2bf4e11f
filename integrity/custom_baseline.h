// The baseline of a custom folder that has none yet: on the user's word (or
// without a question in a run that cannot ask) the folder's blank data file is
// written, and an interactive start goes straight on to the folder's first scan,
// whose findings become the baseline.
#pragma once

#include <string>

#include "core/app_context.h"
#include "integrity/scan_host.h"

namespace tv {

// False when the user refuses the scan; nothing is written then. `number` is
// the slot as the caller found it and plays no part in the walk.
bool buildCustomDat(AppContext& ctx, ScanHost& host, const std::string& folder, const std::string& datFile,
                    const std::string& number);

}  // namespace tv
