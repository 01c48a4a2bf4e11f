// The state of one run of the program, under the names the product gives it.
// One object per run, handed to every handler by reference.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include "core/platform_set.h"
#include "core/primary_scan_file.h"
#include "core/scan_run_state.h"
#include "core/section_blocks.h"
#include "hash/read_buffer.h"

namespace tv::ui {
class Control;
}

namespace tv {

inline constexpr std::int16_t kTrue = -1;  // flags are 16-bit, True is -1
inline constexpr std::int16_t kFalse = 0;
inline constexpr std::int16_t kNoShutdown = -1;

struct AppContext {
    explicit AppContext(PlatformSet platform) : os(platform) {}

    PlatformSet os;

    // Paths, fixed at start-up. appPath always ends in a backslash.
    std::string appPath;
    std::string settFile;
    std::string intFile;
    std::string regFile;

    // Values read from the settings file.
    std::string algoName;
    std::int32_t readBuffer = 0;
    std::int32_t passCount = 0;
    std::int16_t useWsh = 0;
    std::string quoteChar;
    bool shortPaths = false;
    bool autoScanFailed = false;

    // How this run was started and what it is doing.
    std::int16_t shutAction = kNoShutdown;
    std::string cmdLine;
    bool autoLoadRun = false;
    bool schedRun = false;
    bool primaryBuild = false;
    bool primaryScan = false;
    // The system's data file while the primary full scan writes to it.
    std::unique_ptr<PrimaryScanFile> primaryScanFile;
    // Nobody watches this run: a scheduled run from its start, a Secure Shut
    // Down from the choice on. Its boxes are not shown but written to the
    // report of unseen messages (`unseenReport`, made at the first, holding
    // `unseenText`).
    bool unattended = false;
    std::string unseenReport;
    std::string unseenText;

    // The baselines in memory: the system directory's, and the custom folder's in hand.
    SectionBlocks section;  // sectionText / sectionName
    SectionBlocks custom;   // customText / customName
    std::string customFolder;

    // True while a registry pass records the values it finds into the
    // snapshot instead of comparing them with it.
    bool regNew = false;

    // The scan in progress, if any.
    ScanRunState scan;
    // 1 once a list of files was logged during a secure shut-down.
    std::int16_t scanLogged = 0;

    // Check boxes of the main window that are read at the moment of use:
    // Auto-Logging (Check7) and the scanners' focus (avfocus). Null until the
    // main window exists.
    const ui::Control* autoLogging = nullptr;
    const ui::Control* scannerFocus = nullptr;
    // The progress bar a scan inside Secure Shut Down moves; null until the
    // shut-down windows exist.
    ui::Control* shutDownProgress = nullptr;

    // Writes of files under Data\ that failed in this run, and the files
    // (upper-cased) whose failure the user has been told of.
    int failedWrites = 0;
    std::set<std::string> filesNotWritten;

    // Where every file checksum reads, reused from file to file.
    hash::ReadBuffer checksumBuffer;
    // Threads that take a scan's checksums ahead of its walk: -1 one for each
    // processor (none with a single one), 0 none.
    int checksumWorkers = -1;
};

}  // namespace tv
