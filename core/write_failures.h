// Files of Data\ that cannot be written. A folder where Data\ cannot be made
// or written ends the start with one message instead of asking for a first
// scan that could never be saved; a write that fails later is told to the
// user once per file, and the file keeps what it held.
#pragma once

#include <string>

#include "core/app_context.h"

namespace tv {

// The message of a start that cannot write Data\ beside the program; the
// program then ends.
std::string unwritableDataMessage(const std::string& appPath);

// Shows unwritableDataMessage with OK.
void showUnwritableData(AppContext& ctx);

// Counts a write of `file` that failed and, the first time in this run for
// that file, tells the user so.
void reportFailedWrite(AppContext& ctx, const std::string& file);

// The failed writes from its making on: a save says it succeeded only when
// none failed.
class WriteCheck {
public:
    explicit WriteCheck(const AppContext& ctx) : ctx_(ctx), before_(ctx.failedWrites) {}
    bool allWritten() const { return ctx_.failedWrites == before_; }

private:
    const AppContext& ctx_;
    int before_;
};

}  // namespace tv
