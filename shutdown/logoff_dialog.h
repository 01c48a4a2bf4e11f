// What the Secure Shut Down dialog does: its pictures light up under the
// mouse, SHIFT turns Standby into Hibernate, and each choice sets the power
// action (shutAction) and starts the sequence; Cancel, the close box and
// Alt+F4 end the program.
#pragma once

#include <functional>

#include "core/app_context.h"

namespace tv::ui {
class LogoffForm;
}

namespace tv {

class LogoffDialog {
public:
    // `chosen` takes the choice to the sequence; `endProgram` ends the process.
    LogoffDialog(AppContext& ctx, ui::LogoffForm& form, std::function<void()> chosen,
                 std::function<void()> endProgram);

    // The form's load: false, after its message, when another instance of the
    // program runs; the program then ends.
    bool load();

private:
    void choose(std::int16_t action);
    void restAll();

    AppContext& ctx_;
    ui::LogoffForm& form_;
    std::function<void()> chosen_;
    std::function<void()> endProgram_;
};

}  // namespace tv
