// The settings file and the shared entry writer, on the real files.
#pragma once

#include <optional>
#include <string>

#include "core/app_context.h"

namespace tv {

// Makes the settings file with its new-file content when it cannot be opened for
// reading. A file that exists but cannot be opened is left alone when it also
// cannot be opened for appending. False when the file could not be made.
bool checkSettFile(AppContext& ctx);

// A main-section value by request word (see settingSearchKey), or nothing (empty).
// nullopt when the settings file cannot be read: the caller's error path decides.
std::optional<std::string> getSetting(const AppContext& ctx, const std::string& request);

// One value of a numbered or named section through the system's call.
std::string readIni(const AppContext& ctx, const std::string& file, const std::string& key,
                    const std::string& section);
std::string readIni(const AppContext& ctx, const std::string& file, const std::string& key,
                    int section);

// What writeEntry did.
enum class WriteOutcome {
    WrittenToDisk,     // direct path, the system reported success
    DiskWriteFailed,   // direct path, the system reported failure
    StoredInMemory,    // in-memory path
    NoSuchSection,     // in-memory path, the section is not among the nine loaded
};

// Stores one entry. While the primary full scan runs, and for the settings and
// registry snapshot files, it goes straight to disk; any other file is an
// integrity data file and the entry goes to the baseline in memory (the custom
// folder's when customFolder is set). `value` carries its "*E" already. A
// disk write that fails is reported (reportFailedWrite).
WriteOutcome writeEntry(AppContext& ctx, const std::string& file, const std::string& key,
                        const std::string& value, const std::string& section);

// The end of the primary full scan's writes: its data file complete on the
// disk. Abandoning them leaves the data file to its fate and removes the journal.
void finishPrimaryScanWrites(AppContext& ctx);
void abandonPrimaryScanWrites(AppContext& ctx);

}  // namespace tv
