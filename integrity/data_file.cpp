#include "integrity/data_file.h"

#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "integrity/custom_baseline.h"
#include "integrity/data_file_text.h"
#include "logging/unattended_boxes.h"

namespace tv {
namespace {

// Reads the file as the binary open does: a missing file is made empty.
std::optional<std::string> readOrMake(AppContext& ctx, const std::string& path) {
    if (!ctx.os.files.length(path) && ctx.os.files.append(path, "")) return std::string();
    return ctx.os.files.readAll(path);
}

bool loadInto(AppContext& ctx, const std::string& path, SectionBlocks& target) {
    const auto text = readOrMake(ctx, path);
    if (!text) return false;
    SplitDataFile split = splitDataFile(*text, [&ctx] { ctx.os.loop.pump(); });
    target = std::move(split.blocks);
    return split.named;
}

std::string entryIn(AppContext& ctx, const SectionBlocks& blocks, const std::string& key,
                    const std::string& section) {
    const int n = findSectionNumber(blocks, section);
    if (n == 0) return {};
    ctx.os.loop.pump();
    return trimBlanks(blocks.text[n - 1].entry(key));
}

// The former file goes to the backup; the new text is written beside the file,
// flushed to the disk, and then takes the file's place in one step. So a crash
// or a power loss at any moment leaves the data file whole, old or new, and
// never a half-written baseline or none at all.
bool rewriteDataFile(Files& files, const std::string& path, const std::string& backup, std::string_view text) {
    files.copy(path, backup);
    const std::string pending = pendingName(path);
    if (files.writeThrough(pending, text) && files.moveOver(pending, path)) return true;
    files.remove(pending);
    return false;
}

}  // namespace

std::string backupName(const std::string& path) { return withLastThree(path, "bak"); }
std::string pendingName(const std::string& path) { return withLastThree(path, "new"); }

bool loadIntFile(AppContext& ctx, const std::string& path) { return loadInto(ctx, path, ctx.section); }

bool loadCustomDat(AppContext& ctx, ScanHost& host, const std::string& path) {
    const std::string backup = backupName(path);
    // Unattended, the backup is used: the other answer builds a blank baseline
    // that the next save would also copy over the backup.
    if (!fileThere(ctx, path) && fileThere(ctx, backup) &&
        showOrLog(ctx, "The data file is missing! Would you like to use the backup?", ".Dat file Missing!",
                  box::YesNo, box::Yes) == box::Yes) {
        ctx.os.files.copy(backup, path);
    }
    if (!fileThere(ctx, path)) {
        const std::string number = getBetween(path, 1, "Data\\", ".");
        buildCustomDat(ctx, host, readIni(ctx, ctx.settFile, "path", number), path, number);
    }
    // A refused scan leaves no file; the load then makes it, empty.
    return loadInto(ctx, path, ctx.custom);
}

int findSection(const AppContext& ctx, const std::string& name) { return findSectionNumber(ctx.section, name); }

int findCustomSection(const AppContext& ctx, const std::string& name) {
    return findSectionNumber(ctx.custom, name);
}

std::string getEntry(AppContext& ctx, const std::string&, const std::string& key, const std::string& section) {
    return entryIn(ctx, ctx.section, key, section);
}

std::string getCustomEntry(AppContext& ctx, const std::string&, const std::string& key,
                           const std::string& section) {
    return entryIn(ctx, ctx.custom, key, section);
}

bool saveIntFile(AppContext& ctx) {
    return rewriteDataFile(ctx.os.files, ctx.intFile, ctx.appPath + "Data\\integrity.bak", dataFileText(ctx.section));
}

bool saveCustomDat(AppContext& ctx, const std::string& path) {
    return rewriteDataFile(ctx.os.files, path, backupName(path), dataFileText(ctx.custom));
}

}  // namespace tv
