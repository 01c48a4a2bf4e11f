#include "avshell/scanner_choice.h"

#include "avshell/known_scanners.h"
#include "avshell/scanner_choice_form.h"
#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "core/write_failures.h"

namespace tv::ui {
namespace {

using namespace std::string_literals;

// Two filters, each a name and its patterns, every piece ended by a zero and
// the whole by a second one.
const std::string kScannerFilter =
    "Executable Files (*.exe, *.com)\0*.EXE;*.COM\0All Files (*.*)\0*.*\0"s;

}  // namespace

void putScannerSetting(const std::optional<std::string>& setting, Control& program, Control& arguments) {
    if (!setting) return;
    const std::size_t bar = inStr(1, *setting, "|");
    if (bar > 0) program.setCaption(leftText(*setting, bar - 1));
    arguments.setCaption(trimBlanks(midText(*setting, bar + 1)));
}

void putSavedScanners(const AppContext& ctx, ScannerChoiceForm& form) {
    const bool keepFirst = form.firstChanged(), keepSecond = form.secondChanged();
    if (!keepFirst) putScannerSetting(getSetting(ctx, "ANTIVIRUS"), form.Text5, form.Text6);
    if (!keepSecond) putScannerSetting(getSetting(ctx, "AV2"), form.Text1, form.Text2);
    form.settle(!keepFirst, !keepSecond);
}

std::string chooseScannerFile(AppContext& ctx, NativeWindow owner) {
    return openFileBox(ctx, owner, "Choose Anti-Virus Executable File", kScannerFilter);
}

ScannerChoice::ScannerChoice(AppContext& ctx, ScannerChoiceForm& form, Links links)
    : ctx_(ctx), form_(form), links_(std::move(links)) {
    form_.cChoose.onClick = [this] { chooseFirst(); };
    form_.cButton10.onClick = [this] { chooseSecond(); };
    form_.chlpFind.onClick = [this] { links_.showCatalogue(""); };
    form_.cButton1.onClick = [this] { links_.showCatalogue("1"); };
    form_.cButton3.onClick = [this] { save(); };
    // Cancel undoes nothing at once: the fields keep what was typed until the
    // saved settings are loaded again.
    form_.cButton2.onClick = form_.onUnload = [this] {
        form_.settle();
        form_.setVisible(false);
    };
    form_.onMouseMove = [this] { norms(); };
}

void ScannerChoice::formLoad() { putSavedScanners(ctx_, form_); }

// The arguments of a new first scanner replace whatever was typed. The wizard
// takes them as well, but not Panda's.
void ScannerChoice::chooseFirst() {
    const std::string chosen = chooseScannerFile(ctx_, links_.fileBoxOwner());
    if (chosen.empty()) return;
    form_.Text5.setCaption(chosen);
    const ScannerFamily family = scannerFamily(form_.Text5.caption());
    form_.Text6.setCaption(defaultArguments(family));
    if (family != ScannerFamily::Panda) links_.wizardArguments().setCaption(defaultArguments(family));
    ctx_.os.boxes.show("Don't forget to Save!", kAppTitle, box::OkOnly);
}

// The second scanner's arguments are those that the first scanner's program
// calls for: the program chosen here has no say.
void ScannerChoice::chooseSecond() {
    const std::string chosen = chooseScannerFile(ctx_, links_.fileBoxOwner());
    if (chosen.empty()) return;
    form_.Text1.setCaption(chosen);
    form_.Text2.setCaption(defaultArguments(form_.Text5.caption()));
    ctx_.os.boxes.show("Don't forget to Save!", kAppTitle, box::OkOnly);
}

// A missing first scanner is saved as the placeholder, a missing second one as
// nothing, so that "antivirus" always holds its "|".
void ScannerChoice::save() {
    if (!fileThere(ctx_, form_.Text5.caption())) {
        ctx_.os.boxes.show(kNoScannerMessage, kAppTitle, box::OkOnly);
        form_.Text5.setCaption(kNoScannerChosen);
        form_.Text6.setCaption(" ");
    }
    if (!fileThere(ctx_, form_.Text1.caption())) {
        form_.Text1.setCaption("");
        form_.Text2.setCaption("");
    }
    const WriteCheck written(ctx_);
    writeEntry(ctx_, ctx_.settFile, "antivirus", form_.Text5.caption() + "|" + form_.Text6.caption(), "Tarvelon");
    writeEntry(ctx_, ctx_.settFile, "av2", form_.Text1.caption() + "|" + form_.Text2.caption(), "Tarvelon");
    // Fields whose write failed keep counting as unsaved changes.
    if (written.allWritten()) {
        form_.settle();
        ctx_.os.boxes.show("Save Success!", kAppTitle, box::OkOnly);
    }
    form_.setVisible(false);
}

void ScannerChoice::norms() {
    for (Control* button : {&form_.cChoose, &form_.chlpFind, &form_.cButton10, &form_.cButton1, &form_.cButton2,
                            &form_.cButton3})
        button->downStatus();
}

}  // namespace tv::ui
