#include "core/settings_store.h"

#include "core/settings_text.h"
#include "core/text.h"
#include "core/write_failures.h"

namespace tv {

bool checkSettFile(AppContext& ctx) {
    Files& files = ctx.os.files;
    if (files.canRead(ctx.settFile)) return true;
    // Opening for appending makes the file, and fails on a file held by
    // another program, which must then keep its content.
    if (!files.append(ctx.settFile, "")) return false;
    return files.writeAll(ctx.settFile, newSettingsFileText());
}

std::optional<std::string> getSetting(const AppContext& ctx, const std::string& request) {
    const auto text = ctx.os.files.readAll(ctx.settFile);
    if (!text) return std::nullopt;
    return settingFromText(*text, request);
}

std::string readIni(const AppContext& ctx, const std::string& file, const std::string& key,
                    const std::string& section) {
    return ctx.os.profiles.get(section, key, 250, file);
}

std::string readIni(const AppContext& ctx, const std::string& file, const std::string& key,
                    int section) {
    return readIni(ctx, file, key, std::to_string(section));
}

namespace {

bool isDirectWriteFile(const std::string& file) {
    const std::string tail = upperCase(rightText(file, 12));
    return tail == "REGISTRY.DAT" || tail == "TARVELON.DAT";
}

PrimaryScanFile& primaryScanFile(AppContext& ctx) {
    if (ctx.primaryScanFile && ctx.primaryScanFile->path() != ctx.intFile) finishPrimaryScanWrites(ctx);
    if (!ctx.primaryScanFile)
        ctx.primaryScanFile = std::make_unique<PrimaryScanFile>(ctx.os.files, ctx.os.profiles, ctx.intFile);
    return *ctx.primaryScanFile;
}

}  // namespace

WriteOutcome writeEntry(AppContext& ctx, const std::string& file, const std::string& key,
                        const std::string& value, const std::string& section) {
    if (ctx.primaryScan || isDirectWriteFile(file)) {
        const bool written = ctx.primaryScan && file == ctx.intFile
                                 ? primaryScanFile(ctx).write(section, key, value)
                                 : ctx.os.profiles.put(section, key, value, file);
        if (written) return WriteOutcome::WrittenToDisk;
        reportFailedWrite(ctx, file);
        return WriteOutcome::DiskWriteFailed;
    }
    SectionBlocks& blocks = ctx.customFolder.empty() ? ctx.section : ctx.custom;
    return writeEntryToBlocks(blocks, section, key, value) ? WriteOutcome::StoredInMemory
                                                           : WriteOutcome::NoSuchSection;
}

void finishPrimaryScanWrites(AppContext& ctx) {
    if (ctx.primaryScanFile) ctx.primaryScanFile->finish();
    ctx.primaryScanFile.reset();
}

void abandonPrimaryScanWrites(AppContext& ctx) {
    if (ctx.primaryScanFile) ctx.primaryScanFile->abandon();
    ctx.primaryScanFile.reset();
}

}  // namespace tv
