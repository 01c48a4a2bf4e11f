#include "platform/controls.h"

namespace tv::ui {

Control::Control(Kind kind, std::string name, Control* parent, Bounds bounds, std::string caption)
    : kind_(kind), name_(std::move(name)), parent_(parent), bounds_(bounds),
      caption_(std::move(caption)) {
    if (kind_ == Kind::ListBox || kind_ == Kind::CheckList || kind_ == Kind::ComboBox) value_ = -1;
}

void Control::changed(Prop what) {
    if (sink_) sink_(*this, what);
}

void Control::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    changed(Prop::Caption);
}

void Control::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    changed(Prop::Visible);
}

bool Control::shown() const {
    for (const Control* c = this; c; c = c->parent_)
        if (!c->visible_) return false;
    return true;
}

void Control::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    if (kind_ == Kind::FlatButton) setLook(enabled ? kBlack : kWhite);
    changed(Prop::Enabled);
}

void Control::userHover(bool overCaption) {
    if (kind_ == Kind::FlatCheck) setLook(overCaption ? kBlue : kBlack, overCaption);
}

void Control::userPress(bool down) {
    if (kind_ == Kind::FlatButton && enabled_) setLook(down ? kWhite : kBlack);
}

void Control::downStatus() {
    if (kind_ == Kind::FlatCheck) setLook(kBlack, false);
}

void Control::setValue(int value) {
    // A flat check and an option are on or off; a plain check box may also be
    // greyed (2), as the system's own check box may.
    if (kind_ == Kind::FlatCheck || kind_ == Kind::OptionButton) value = value ? 1 : 0;
    if (value == value_) return;
    value_ = value;
    changed(kind_ == Kind::Timer ? Prop::Interval : Prop::Value);
}

void Control::setLook(std::uint32_t foreColour, bool underlined) {
    if (foreColour == foreColour_ && underlined == underlined_) return;
    foreColour_ = foreColour;
    underlined_ = underlined;
    changed(Prop::Colour);
}

void Control::setBackColour(std::uint32_t colour) {
    if (colour == backColour_) return;
    backColour_ = colour;
    changed(Prop::Colour);
}

void Control::addItem(std::string item) {
    items_.push_back(std::move(item));
    ticks_.resize(items_.size());
    changed(Prop::ItemAdded);
}

void Control::setItem(std::size_t index, std::string item) {
    if (index >= items_.size() || items_[index] == item) return;
    items_[index] = std::move(item);
    changed(Prop::Items);
}

void Control::clearItems() {
    items_.clear();
    ticks_.clear();
    value_ = -1;
    changed(Prop::Items);
}

std::string Control::selectedText() const {
    return value_ >= 0 && static_cast<std::size_t>(value_) < items_.size() ? items_[static_cast<std::size_t>(value_)]
                                                                          : std::string();
}

void Control::setTicked(std::size_t item, bool ticked) {
    if (item >= ticks_.size() || ticks_[item] == ticked) return;
    ticks_[item] = ticked;
    changed(Prop::Ticks);
}

void Control::userTickItem(std::size_t item, bool ticked) {
    if (!enabled_ || item >= items_.size()) return;
    setValue(static_cast<int>(item));
    setTicked(item, ticked);
    if (onClick) onClick();
}

void Control::userClick() {
    if (enabled_ && onClick) onClick();
}

void Control::userSetValue(int value) {
    if (!enabled_) return;
    setValue(value);
    if (onChange) onChange();
    if (onClick && kind_ != Kind::ListBox && kind_ != Kind::CheckList && kind_ != Kind::ComboBox) onClick();
}

void Control::userEditText(std::string text) {
    if (!enabled_) return;
    setCaption(std::move(text));
    if (onChange) onChange();
}

void Control::userTick() {
    if (enabled_ && value_ > 0 && onTick) onTick();
}

}  // namespace tv::ui
