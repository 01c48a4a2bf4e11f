#include "platform/form.h"

namespace tv::ui {

Form::Form(std::string name, std::string caption, Bounds clientArea)
    : name_(std::move(name)), caption_(std::move(caption)), clientArea_(clientArea) {}

Form::~Form() { changed(FormProp::Destroyed); }

void Form::changed(FormProp what) {
    if (sink_) sink_(*this, what);
}

void Form::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    changed(FormProp::Caption);
}

void Form::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    changed(FormProp::Visible);
}

void Form::setMinimised(bool minimised) {
    if (minimised == minimised_) return;
    minimised_ = minimised;
    changed(FormProp::Minimised);
}

Control& Form::add(Kind kind, std::string name, Bounds bounds, std::string caption, Control* parent) {
    controls_.push_back(
        std::make_unique<Control>(kind, std::move(name), parent, bounds, std::move(caption)));
    Control& control = *controls_.back();
    control.setTabIndex(static_cast<int>(controls_.size()));
    if (kind == Kind::OptionButton) {
        auto& group = optionGroups_[parent];
        if (!group) group = std::make_shared<std::vector<Control*>>();
        group->push_back(&control);
        control.joinGroup(group);
    }
    return control;
}

void Form::userKeyDown(int keyCode) {
    if (onKeyDown) onKeyDown(keyCode);
}

void Form::userKeyUp(int keyCode) {
    if (onKeyUp) onKeyUp(keyCode);
}

void Form::userMouseMove() {
    if (onMouseMove) onMouseMove();
}

Control* Form::find(const std::string& name) const {
    for (const auto& c : controls_)
        if (c->name() == name) return c.get();
    return nullptr;
}

Control& Form::at(const std::string& name) const { return *find(name); }

void Form::userClose() {
    if (onQueryUnload && onQueryUnload()) return;
    if (onUnload) onUnload();
}

}  // namespace tv::ui
