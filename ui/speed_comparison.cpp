#include "ui/speed_comparison.h"

#include <array>

#include "core/text.h"
#include "core/vb_number.h"
#include "hash/checksum.h"
#include "ui/advanced_page.h"

namespace tv::ui {
namespace {

constexpr std::array<int, 3> kRepetitions{5, 10, 100};
constexpr std::array<std::int32_t, 4> kBufferSizes{65536, 131072, 262144, 524288};

// The timer in single precision, as the figures have always been taken. Its
// count starts again at midnight, so a test across midnight comes out negative.
float timer(const AppContext& ctx) { return static_cast<float>(ctx.os.clock.secondsSinceMidnight()); }

// One test: every buffer size in turn, and the quickest of them. Of equal
// times the smaller buffer stays the quickest.
void runTest(AppContext& ctx, Control& report, const std::string& file, std::uint64_t length, int test,
             int repetitions) {
    float best = 999;
    std::int32_t bestSize = 0;
    for (const std::int32_t size : kBufferSizes) {
        ctx.readBuffer = size;
        const float start = timer(ctx);
        for (int i = 0; i < repetitions; ++i) hash::getChecksum(ctx, file);
        const float elapsed = timer(ctx) - start;
        report.addItem("Test " + std::to_string(test) + " Buffer (" + std::to_string(size / 1024) + " Kb) " +
                       std::to_string(length) + " byte file (calculated " + std::to_string(repetitions) +
                       "x): " + singleText(elapsed) + " seconds");
        if (elapsed < best) {
            best = elapsed;
            bestSize = size;
        }
        ctx.os.loop.pump();
    }
    report.addItem("Quickest Calculation at: " + singleText(best) + " seconds. Using Buffer of: " +
                   std::to_string(bestSize / 1024) + " Kb");
    report.addItem("");
}

}  // namespace

void compareSpeeds(AppContext& ctx, AdvancedPage& page) {
    page.cSpeeds.setCaption("Testing... (" + ctx.algoName + ")");
    page.cSpeeds.setEnabled(false);
    const std::int32_t readBuffer = ctx.readBuffer;
    page.List1.clearItems();
    page.List1.setEnabled(false);

    // The test file is the program file under its one fixed name.
    const std::string file = withTrailingBackslash(ctx.appPath) + "TarvelonLow.exe";
    if (const auto length = ctx.os.files.length(file)) {
        for (std::size_t t = 0; t < kRepetitions.size(); ++t)
            runTest(ctx, page.List1, file, *length, static_cast<int>(t + 1), kRepetitions[t]);
    } else {
        ctx.os.boxes.show("File not found: " + file, kAppTitle, box::OkOnly);
    }

    page.List1.setEnabled(true);
    ctx.readBuffer = readBuffer;
    page.cSpeeds.setCaption("Compare Speeds");
    page.cSpeeds.setEnabled(true);
}

}  // namespace tv::ui
