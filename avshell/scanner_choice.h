// What s_avir does: the program and arguments of the user's two scanners,
// chosen in the file box or found in the catalogue, and saved as "antivirus"
// and "av2". What is typed stays in the fields until it is saved, or given up
// with Cancel and the saved settings are loaded again: the Secure Shut Down
// sequence reads its scanners from them.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/app_context.h"

namespace tv::ui {

// Said when a scanner is saved whose program is not there.
inline constexpr const char* kNoScannerMessage =
    "You didn't choose an anti-virus software exe.  We recommend that you get one to take full advantage of Tarvelon";

class Control;
class ScannerChoiceForm;

// One scanner setting "<program>|<arguments>" into two fields: the program is
// the text before the first "|", the arguments the text behind it, trimmed.
// A setting without "|" leaves the program field as it was; an unreadable one
// (nullopt) changes nothing.
void putScannerSetting(const std::optional<std::string>& setting, Control& program, Control& arguments);

// The saved scanners ("antivirus", "av2") into the form's fields, each unless
// its fields hold unsaved changes: a later Save then stores what the user
// made, never the scanner that was saved before.
void putSavedScanners(const AppContext& ctx, ScannerChoiceForm& form);

// The file box in which a scanner's program is chosen, owned by `owner`: the
// chosen file, or empty text when the box was cancelled.
std::string chooseScannerFile(AppContext& ctx, NativeWindow owner);

class ScannerChoice {
public:
    struct Links {
        std::function<Control&()> wizardArguments;        // varg of the Setup Wizard
        std::function<NativeWindow()> fileBoxOwner;        // the catalogue's window
        std::function<void(std::string tag)> showCatalogue;  // for the first ("") or second ("1") scanner
    };
    ScannerChoice(AppContext& ctx, ScannerChoiceForm& form, Links links);

    void formLoad();      // the saved scanners into the fields
    void chooseFirst();   // cChoose
    void chooseSecond();  // cButton10
    void save();          // cButton3
    void norms();         // the mouse over the form

private:
    AppContext& ctx_;
    ScannerChoiceForm& form_;
    Links links_;
};

}  // namespace tv::ui
