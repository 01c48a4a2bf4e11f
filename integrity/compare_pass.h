// One pass of a scan over one folder: every file whose last four characters are
// one of the pass's two extensions is checksummed, looked up in the baseline in
// memory and counted as passing, new or failed; new and failed files are listed
// on the screen and in the pending lists. During the primary full scan a new
// file's checksum goes straight into the data file instead.
#pragma once

#include <string>

#include "core/app_context.h"

namespace tv::ui {
class ScanWindow;
}

namespace tv {

// IntegrityChecker2: stores the pass's extensions ("." and upper case) and data
// file (empty: the system baseline) and runs the pass.
void integrityChecker2(AppContext& ctx, ui::ScanWindow& window, const std::string& ext1,
                       const std::string& ext2, const std::string& dataFile = {});

void comparePass(AppContext& ctx, ui::ScanWindow& window);

}  // namespace tv
