#include "ui/load_settings.h"

#include <array>
#include <optional>

#include "avshell/scanner_choice.h"
#include "avshell/scanner_choice_form.h"
#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "core/vb_number.h"
#include "ui/main_window.h"
#include "ui/settings_boxes.h"
#include "ui/startup_folder.h"

namespace tv::ui {
namespace {

// Sets the plain check boxes from the list's positions: 0 clear, 1 ticked,
// 2 greyed; stops at anything else.
bool applyBoxStates(const std::string& list, const std::array<Control*, 3>& boxes) {
    const auto parts = splitText(list, ",");
    for (std::size_t i = 0; i < parts.size() && i < boxes.size(); ++i) {
        const auto number = toInt16(parts[i]);
        if (!number || *number < 0 || *number > 2) return false;
        boxes[i]->setValue(*number);
    }
    return true;
}

}  // namespace

void applyScannerOptions(AppContext& ctx, const AdvancedPage& page) {
    ctx.quoteChar = page.Check10.value() != 0 ? "\"" : "";
    ctx.shortPaths = page.Check11.value() != 0;
}

bool loadSettings(AppContext& ctx, MainWindow& main, ScannerChoiceForm& scanners) {
    const SettingsPage& page = main.settings;
    const AdvancedPage& advancedPage = main.advanced;
    page.Check1.setValue(fileThere(ctx, autoLoadShortcutPath(ctx)) ? 1 : 0);

    const auto settings = getSetting(ctx, "GETSETT");
    if (!settings || !applyFlagList(*settings, page.logOnBoxes())) return false;

    const auto settings2 = getSetting(ctx, "GETSETT2");
    if (!settings2 || !applyFlagList(*settings2, page.shutDownBoxes())) return false;

    const auto advanced = getSetting(ctx, "ADV");
    if (!advanced) return false;
    const auto advancedParts = splitText(*advanced, ",");
    for (std::size_t i = 0; i < advancedParts.size() && i < 3; ++i) {
        const std::string& part = advancedParts[i];
        if (i == 2) {
            const auto value = toInt16(part);
            if (!value) return false;
            ctx.useWsh = *value;
        } else {
            const auto value = toInt32(part);
            if (!value) return false;
            (i == 0 ? ctx.readBuffer : ctx.passCount) = *value;
        }
    }

    ctx.autoScanFailed = page.Check8.value() == 1;

    putSavedScanners(ctx, scanners);

    const auto scannerOptions = getSetting(ctx, "ANTIVIRUS2");
    if (!scannerOptions ||
        !applyBoxStates(*scannerOptions, {&advancedPage.Check10, &advancedPage.Check11, &advancedPage.avfocus}))
        return false;

    applyScannerOptions(ctx, advancedPage);

    const auto algo = getSetting(ctx, "ALGO");
    if (!algo) return false;
    ctx.algoName = *algo;
    return true;
}

}  // namespace tv::ui
