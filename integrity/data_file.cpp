#include "integrity/data_file.h"

#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "integrity/custom_baseline.h"
#include "integrity/data_file_text.h"

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

}  // namespace

std::string backupName(const std::string& path) {
    return leftText(path, path.size() - std::min<std::size_t>(3, path.size())) + "bak";
}

bool loadIntFile(AppContext& ctx, const std::string& path) { return loadInto(ctx, path, ctx.section); }

bool loadCustomDat(AppContext& ctx, ScanHost& host, const std::string& path) {
    const std::string backup = backupName(path);
    if (!fileThere(ctx, path) && fileThere(ctx, backup) &&
        ctx.os.boxes.show("The data file is missing! Would you like to use the backup?", ".Dat file Missing!",
                          box::YesNo) == box::Yes) {
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
    Files& files = ctx.os.files;
    files.copy(ctx.intFile, ctx.appPath + "Data\\integrity.bak");
    files.remove(ctx.intFile);
    return files.writeAll(ctx.intFile, dataFileText(ctx.section));
}

}  // namespace tv
