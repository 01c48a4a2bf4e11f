#include "ui/advanced_actions.h"

#include <array>

#include "core/settings_store.h"
#include "core/text.h"
#include "core/write_failures.h"
#include "hash/checksum.h"
#include "ui/load_settings.h"
#include "ui/main_window.h"
#include "ui/speed_comparison.h"

namespace tv::ui {
namespace {

// What each option button of a group stands for, in the order of the buttons.
constexpr std::array<std::int32_t, 4> kBufferSizes{65536, 131072, 262144, 524288};
constexpr std::array<std::int32_t, 6> kBatchSizes{99999, 50, 100, 200, 350, 500};
constexpr std::array<const char*, 4> kAlgorithmNames{"CRC32", "MD5", "SHA1", "MD4"};

// Sets the option of the value at `index`. A value that none of the options
// stands for clears the group, so that the page never claims a choice the
// settings do not hold, and a save keeps the value as it is.
template <std::size_t N>
void selectOption(const std::array<Control*, N>& options, std::size_t index) {
    for (std::size_t i = 0; i < N; ++i)
        if (i != index) options[i]->setValue(0);
    if (index < N) options[index]->setValue(1);
}

template <std::size_t N, class T, class Same>
std::size_t indexOf(const std::array<T, N>& values, Same same) {
    for (std::size_t i = 0; i < N; ++i)
        if (same(values[i])) return i;
    return N;
}

// The value of the option that is set overwrites `value`; with none set it
// keeps what it held.
template <std::size_t N, class T, class U>
void takeChosen(const std::array<Control*, N>& options, const std::array<T, N>& values, U& value) {
    for (std::size_t i = 0; i < N; ++i)
        if (options[i]->value() != 0) value = values[i];
}

}  // namespace

AdvancedActions::AdvancedActions(AppContext& ctx, MainWindow& window, std::function<void()> reloadSettings)
    : ctx_(ctx), window_(window), reloadSettings_(std::move(reloadSettings)) {
    AdvancedPage& page = window_.advanced;
    window_.options.cButton2.onClick = [this] { show(); };
    page.cSave2.onClick = [this] { save(); };
    page.cButton1.onClick = [this] { cancel(); };
    page.Check10.onClick = [this, &page] { scannerOptionClicked(page.Check10, page.Check11); };
    page.Check11.onClick = [this, &page] { scannerOptionClicked(page.Check11, page.Check10); };
    page.cSpeeds.onClick = [this, &page] { compareSpeeds(ctx_, page); };
}

void AdvancedActions::show() {
    reloadSettings_();
    window_.norms2();
    window_.settF.setVisible(true);
    window_.qSett.setVisible(false);
    window_.advF.setVisible(true);

    AdvancedPage& page = window_.advanced;
    selectOption(page.bufferOptions, indexOf(kBufferSizes, [&](std::int32_t size) { return size == ctx_.readBuffer; }));
    selectOption(page.batchOptions, indexOf(kBatchSizes, [&](std::int32_t count) { return count == ctx_.passCount; }));
    const std::string algorithm = upperCase(trimBlanks(ctx_.algoName));
    selectOption(page.algorithmOptions,
                 algorithm.empty() ? 0 : indexOf(kAlgorithmNames, [&](const char* name) { return algorithm == name; }));
    page.wsh.setValue(ctx_.useWsh != 0 ? 1 : 0);
}

// Everything saved takes effect at once: the integrity data file follows the
// algorithm, and the scanners' command lines the two file name options.
void AdvancedActions::save() {
    AdvancedPage& page = window_.advanced;
    takeChosen(page.bufferOptions, kBufferSizes, ctx_.readBuffer);
    takeChosen(page.batchOptions, kBatchSizes, ctx_.passCount);
    takeChosen(page.algorithmOptions, kAlgorithmNames, ctx_.algoName);
    hash::setDatName(ctx_);
    ctx_.useWsh = static_cast<std::int16_t>(page.wsh.value());
    const WriteCheck written(ctx_);
    checkSettFile(ctx_);
    writeEntry(ctx_, ctx_.settFile, "advanced",
               std::to_string(ctx_.readBuffer) + "," + std::to_string(ctx_.passCount) + "," +
                   std::to_string(ctx_.useWsh),
               "Tarvelon");
    writeEntry(ctx_, ctx_.settFile, "antivirus2",
               std::to_string(page.Check10.value()) + "," + std::to_string(page.Check11.value()) + "," +
                   std::to_string(page.avfocus.value()),
               "Tarvelon");
    writeEntry(ctx_, ctx_.settFile, "algo", ctx_.algoName, "Tarvelon");
    applyScannerOptions(ctx_, page);
    if (written.allWritten()) ctx_.os.boxes.show("Save Success!", kAppTitle, box::OkOnly);
}

// The saved settings come back at once: the focus box is read when a scanner
// starts, and must not keep a cancelled tick.
void AdvancedActions::cancel() {
    reloadSettings_();
    window_.settF.setVisible(false);
    window_.setFq.setVisible(true);
}

// The warning is only touched by these clicks, never when the page opens.
void AdvancedActions::scannerOptionClicked(const Control& clicked, const Control& other) {
    if (clicked.value() != 0)
        window_.advanced.Label1.setVisible(false);
    else if (other.value() == 0)
        window_.advanced.Label1.setVisible(true);
}

}  // namespace tv::ui
