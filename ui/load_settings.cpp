#include "ui/load_settings.h"

#include <array>
#include <optional>

#include "avshell/scanner_choice_form.h"
#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "core/vb_number.h"
#include "ui/main_window.h"
#include "ui/startup_folder.h"

namespace tv::ui {
namespace {

// Sets a flat check from a settings position: any number other than 0 ticks it.
bool applyFlag(Control& box, const std::string& text) {
    const auto number = toInt16(text);
    if (!number) return false;
    box.setValue(*number != 0 ? 1 : 0);
    return true;
}

// Sets a plain check box: 0 clear, 1 ticked, 2 greyed; anything else is refused.
bool applyBoxState(Control& box, const std::string& text) {
    const auto number = toInt16(text);
    if (!number || *number < 0 || *number > 2) return false;
    box.setValue(*number);
    return true;
}

template <std::size_t N, class Apply>
bool applyList(const std::string& list, const std::array<Control*, N>& targets, Apply apply) {
    const auto parts = splitText(list, ",");
    for (std::size_t i = 0; i < parts.size() && i < N; ++i)
        if (!apply(*targets[i], parts[i])) return false;
    return true;
}

// One scanner setting, "<program>|<arguments>", into its two fields. Each field is
// set on its own; one that cannot be cut out keeps its former text.
void applyScanner(const std::optional<std::string>& setting, Control& program, Control& arguments) {
    const std::string value = setting.value_or("");
    const std::size_t bar = inStr(1, value, "|");
    if (bar > 0) program.setCaption(leftText(value, bar - 1));
    arguments.setCaption(trimBlanks(midText(value, bar + 1)));
}

}  // namespace

bool loadSettings(AppContext& ctx, MainWindow& main, ScannerChoiceForm& scanners) {
    const SettingsPage& page = main.settings;
    const AdvancedPage& advancedPage = main.advanced;
    page.Check1.setValue(fileThere(ctx, autoLoadShortcutPath(ctx)) ? 1 : 0);

    const auto settings = getSetting(ctx, "GETSETT");
    if (!settings || !applyList(*settings, page.logOnBoxes(), applyFlag)) return false;

    const auto settings2 = getSetting(ctx, "GETSETT2");
    if (!settings2 || !applyList(*settings2, page.shutDownBoxes(), applyFlag)) return false;

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

    applyScanner(getSetting(ctx, "ANTIVIRUS"), scanners.Text5, scanners.Text6);
    applyScanner(getSetting(ctx, "AV2"), scanners.Text1, scanners.Text2);

    const auto scannerOptions = getSetting(ctx, "ANTIVIRUS2");
    if (!scannerOptions ||
        !applyList<3>(*scannerOptions, {&advancedPage.Check10, &advancedPage.Check11, &advancedPage.avfocus}, applyBoxState))
        return false;

    ctx.quoteChar = advancedPage.Check10.value() != 0 ? "\"" : "";
    ctx.shortPaths = advancedPage.Check11.value() != 0;

    const auto algo = getSetting(ctx, "ALGO");
    if (!algo) return false;
    ctx.algoName = *algo;
    return true;
}

}  // namespace tv::ui
