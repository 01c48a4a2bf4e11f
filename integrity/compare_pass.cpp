#include "integrity/compare_pass.h"

#include <optional>

#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "core/vb_number.h"
#include "hash/checksum.h"
#include "hash/file_checksum.h"
#include "integrity/data_file.h"
#include "integrity/pass_walk.h"
#include "integrity/scan_window.h"

namespace tv {
namespace {

// The figures of a pass, read back from the hidden progress labels as the scan
// has always read them: a pass total that is no 16-bit number (empty, as in the
// sixth pass, or over 32767) leaves the pass percent where it stands.
struct PassFigures {
    std::int16_t passTotal = 0;
    std::int64_t done = 0;
    std::optional<double> grand;
    std::int16_t scanPercent = 0;
    std::int16_t passPercent = 0;

    void update(std::int32_t passDone) {
        if (grand && *grand != 0)
            if (const auto percent = roundToInt16(static_cast<double>(done) / *grand * 100)) scanPercent = *percent;
        if (passTotal != 0)
            if (const auto percent = roundToInt16(static_cast<double>(passDone) / passTotal * 100)) passPercent = *percent;
    }
};

bool inShutDown(const AppContext& ctx) { return ctx.shutAction != kNoShutdown; }

void listFinding(AppContext& ctx, ui::ScanWindow& window, const std::string& folder, const std::string& name,
                 const std::string& checksum, bool isNew) {
    ScanRunState& scan = ctx.scan;
    window.List1.addItem(folder + name + (isNew ? " *NEW*" : ""));
    if (ctx.customFolder.empty())
        scan.failList += folder + name + " " + checksum + ",";
    else
        scan.customFailList += folder + name + "(" + std::to_string(scan.customIndex) + ") " + checksum + ",";
}

}  // namespace

void integrityChecker2(AppContext& ctx, ui::ScanWindow& window, const std::string& ext1, const std::string& ext2,
                       const std::string& dataFile) {
    ctx.scan.ext1 = ext1;
    ctx.scan.ext2 = ext2;
    ctx.scan.dataFile = dataFile;
    comparePass(ctx, window);
}

void comparePass(AppContext& ctx, ui::ScanWindow& window) {
    ScanRunState& scan = ctx.scan;
    scan.passDone = 0;
    hash::DoEvents pump(ctx.os.loop);
    pump.setQueueUsed(queue::InputOrPaint);

    PassFigures figures;
    figures.passTotal = toInt16(window.pb1max.caption()).value_or(0);
    figures.done = static_cast<std::int64_t>(toNumber(window.pbm.caption()).value_or(0));
    figures.grand = toNumber(window.pb2max.caption());

    std::string folder = trimBlanks(getSysDir(ctx));
    std::string dataFile = scan.dataFile;
    if (!ctx.customFolder.empty()) {
        folder = withTrailingBackslash(ctx.customFolder);
        dataFile = hash::getCustomDat(ctx, scan.customIndex);
    }
    const int pass = scan.passType - 1;
    const bool knownPass = pass >= 0 && pass < kPassCount;

    PassWalk walk(ctx, folder, scan.ext1, scan.ext2);
    for (std::string name = walk.first(); !name.empty(); name = walk.next()) {
        pump.getInputState();
        if (walk.takesPart(name)) {
            if (!inShutDown(ctx) && knownPass) window.fileLabels[pass]->setCaption(name);
            const std::string checksum = walk.checksum(name);
            pump.getInputState();
            if (scan.scanCancelled) return;

            const std::string section = upperCase(rightText(name, 3));
            std::string stored = dataFile.empty() ? getEntry(ctx, dataFile, name, section)
                                                  : getCustomEntry(ctx, dataFile, name, section);
            if (stored.empty()) stored = "NULL";
            // The checksum passes through the text shift unshifted: the data
            // files hold plain checksums.
            const std::string value = shiftText("ABC", checksum);
            if (stored == "NULL") {
                ++scan.newCount;
                if (ctx.primaryScan)
                    writeEntry(ctx, dataFile.empty() ? ctx.intFile : dataFile, name, value + "*E", section);
                else
                    listFinding(ctx, window, folder, name, value, true);
            } else {
                if (scan.scanCancelled) return;
                if (stored != value) {
                    ++scan.failCount;
                    if (!ctx.primaryScan) listFinding(ctx, window, folder, name, value, false);
                }
            }

            ++figures.done;
            ++scan.passDone;
            figures.update(scan.passDone);
            if (!inShutDown(ctx)) {
                window.setCaption(std::to_string(figures.scanPercent) + "% AutoCheck");
                if (knownPass) window.percentLabels[pass]->setCaption(std::to_string(figures.passPercent) + "%");
                window.Label6.setCaption(std::to_string(figures.done));
                window.Label9.setCaption(std::to_string(scan.failCount));
                window.Label8.setCaption(std::to_string(scan.newCount));
                window.Label7.setCaption(std::to_string(figures.done - scan.failCount - scan.newCount));
            } else if (ctx.shutDownProgress) {
                ctx.shutDownProgress->setValue(figures.passPercent);  // the window of the shut-down
            }
            pump.getInputState();
        }
        // A pause holds the scan here, between two names, until it is lifted.
        while (scan.scanPaused) ctx.os.loop.waitForInput();
    }

    if (!inShutDown(ctx)) {
        window.pbm.setCaption(std::to_string(figures.done));
        if (knownPass) window.percentLabels[pass]->setCaption("100%");
    }
}

}  // namespace tv
