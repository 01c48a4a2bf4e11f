// The platform interfaces one run works with, handed to every handler.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/form.h"
#include "platform/message_boxes.h"
#include "platform/power.h"
#include "platform/processes.h"
#include "platform/profile_files.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/shortcuts.h"
#include "platform/threads.h"
#include "platform/top_windows.h"

namespace tv {

struct PlatformSet {
    Files& files;
    ProfileFiles& profiles;
    Shell& shell;
    MessageBoxes& boxes;
    Processes& processes;
    EventLoop& loop;
    ui::Renderer& renderer;
    Registry& registry;
    Clock& clock;
    TopWindows& windows;
    Power& power;
    Shortcuts& shortcuts;
    // Worker threads for the checksums of a scan; none: every checksum is
    // taken on the user-interface thread.
    Threads* threads = nullptr;
};

}  // namespace tv
