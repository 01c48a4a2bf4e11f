// The integrity data files on disk and in memory: the system baseline in
// ctx.section, a custom folder's in ctx.custom.
#pragma once

#include <string>

#include "core/app_context.h"
#include "integrity/scan_host.h"

namespace tv {

// Reads a data file into the system baseline (all nine blocks anew). A missing
// file is made, empty, and loads as nine empty blocks. False when the file cannot
// be read, or when a block's name has no "]" (the blocks are loaded, the names
// only up to that block).
bool loadIntFile(AppContext& ctx, const std::string& path);

// The same for a custom folder's data file, into ctx.custom. A missing file
// whose backup (".bak" for the last three characters) can be read is first
// offered back from it; a file still missing is built for the slot's folder
// (which may start the folder's first scan through `host`).
bool loadCustomDat(AppContext& ctx, ScanHost& host, const std::string& path);

// Section numbers 1 to 9, or 0.
int findSection(const AppContext& ctx, const std::string& name);
int findCustomSection(const AppContext& ctx, const std::string& name);

// The trimmed value of `key` in a section of the baseline in memory, or empty
// text when the section or the key is not there. `file` names the data file
// the baseline came from and is not read.
std::string getEntry(AppContext& ctx, const std::string& file, const std::string& key,
                     const std::string& section);
std::string getCustomEntry(AppContext& ctx, const std::string& file, const std::string& key,
                           const std::string& section);

// Writes the system baseline back to intFile, keeping the former file as
// Data\integrity.bak. False when the new file could not be put in place.
bool saveIntFile(AppContext& ctx);

// Writes the custom baseline in memory back to `path`, keeping the former
// file as its backup (backupName). False as for saveIntFile.
bool saveCustomDat(AppContext& ctx, const std::string& path);

// The name a data file's new text is written under before it takes the
// file's place: the path with "new" for its last three characters.
std::string pendingName(const std::string& path);

// The backup name the program looks for: the path with "bak" for its last three characters.
std::string backupName(const std::string& path);

}  // namespace tv
