// Compare Speeds on the advanced page: how long the checksum of the chosen
// algorithm takes on this machine with each read buffer size, measured on the
// program's own file. It reports only; no setting changes.
#pragma once

#include "core/app_context.h"

namespace tv::ui {

class AdvancedPage;

// Three tests of 5, 10 and 100 checksums of "TarvelonLow.exe" in the program's
// folder, each over the four buffer sizes, reported in List1 with the quickest
// size. The read buffer is put back afterwards. Messages are let through once
// per size.
void compareSpeeds(AppContext& ctx, AdvancedPage& page);

}  // namespace tv::ui
