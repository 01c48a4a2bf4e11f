#include "shutdown/logoff_dialog.h"

#include "logging/unattended_boxes.h"
#include "platform/controls.h"
#include "shutdown/logoff_form.h"

namespace tv {
namespace {

constexpr const char* kAlreadyRunning = "You must close Tarvelon before using the Shut Down Feature.";
constexpr std::int16_t kHibernate = 0, kStandby = 1, kRestart = 2, kTurnOff = 8;

}  // namespace

LogoffDialog::LogoffDialog(AppContext& ctx, ui::LogoffForm& form, std::function<void()> chosen,
                           std::function<void()> endProgram)
    : ctx_(ctx), form_(form), chosen_(std::move(chosen)), endProgram_(std::move(endProgram)) {
    form_.Image1.onMouseMove = [this] { form_.Image2.setVisible(true); };
    form_.Image3.onMouseMove = [this] { form_.Image4.setVisible(true); };
    form_.Image5.onMouseMove = [this] { form_.Image6.setVisible(true); };
    form_.Label1.onMouseMove = [this] { form_.Label1.setLook(ui::kWhite); };
    form_.Label2.onMouseMove = [this] { form_.Label2.setLook(ui::kWhite); };
    form_.onMouseMove = [this] { restAll(); };
    // The label is the only record of SHIFT: any key coming up, SHIFT or not,
    // puts Standby back.
    form_.onKeyDown = [this](int keyCode) {
        if (keyCode == ui::key::Shift) form_.Label4.setCaption("Hibernate");
    };
    form_.onKeyUp = [this](int) { form_.Label4.setCaption("Standby"); };
    form_.Image2.onClick = [this] { choose(form_.Label4.caption() == "Standby" ? kStandby : kHibernate); };
    form_.Image4.onClick = [this] { choose(kTurnOff); };
    form_.Image6.onClick = [this] { choose(kRestart); };
    // The keyboard reaches the plain pictures, which the mouse never clicks
    // (the lit ones lie over them under the mouse): they choose the same.
    form_.Image1.onClick = form_.Image2.onClick;
    form_.Image3.onClick = form_.Image4.onClick;
    form_.Image5.onClick = form_.Image6.onClick;
    // "Log Off..." asks for the same action as Hibernate.
    form_.Label2.onClick = [this] { choose(kHibernate); };
    form_.Label1.onClick = [this] { endProgram_(); };
    form_.onUnload = form_.Label1.onClick;  // the close box and Alt+F4 are Cancel
}

bool LogoffDialog::load() {
    if (!ctx_.os.processes.anotherInstanceRunning()) return true;
    showOrLog(ctx_, kAlreadyRunning, kAppTitle, box::OkOnly);
    endProgram_();
    return false;
}

void LogoffDialog::choose(std::int16_t action) {
    ctx_.shutAction = action;
    chosen_();
}

void LogoffDialog::restAll() {
    for (ui::Control* lit : {&form_.Image2, &form_.Image4, &form_.Image6}) lit->setVisible(false);
    for (ui::Control* label : {&form_.Label1, &form_.Label2}) label->setLook(ui::kBlack);
}

}  // namespace tv
