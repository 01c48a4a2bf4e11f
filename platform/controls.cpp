#include "platform/controls.h"

#include <algorithm>

namespace tv::ui {

Control::Control(Kind kind, std::string name, Control* parent, Bounds bounds, std::string caption)
    : kind_(kind), name_(std::move(name)), parent_(parent), bounds_(bounds),
      caption_(std::move(caption)) {
    if (kind_ == Kind::ListBox || kind_ == Kind::CheckList || kind_ == Kind::ComboBox || kind_ == Kind::TreeView)
        value_ = -1;
}

void Control::changed(Prop what) {
    if (sink_) sink_(*this, what);
}

void Control::setCaption(std::string caption) {
    // A text box keeps its text up to the first zero character, as the
    // system's edit box does: a file dialog's answer comes with its buffer's zeros.
    if (kind_ == Kind::TextBox) caption.erase(std::min(caption.find('\0'), caption.size()));
    if (caption == caption_) return;
    caption_ = std::move(caption);
    changed(Prop::Caption);
}

void Control::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    changed(Prop::Visible);
}

Control& hidden(Control& control) {
    control.setVisible(false);
    return control;
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
    if (kind_ == Kind::OptionButton && value_ == 1 && group_)
        for (Control* other : *group_)
            if (other != this) other->setValue(0);
}

void Control::setMaximum(int maximum) {
    if (maximum == maximum_) return;
    maximum_ = maximum;
    changed(Prop::Range);
}

void Control::setCentred(bool centred) {
    if (centred == centred_) return;
    centred_ = centred;
    changed(Prop::Alignment);
}

void Control::setToolTip(std::string text) {
    if (text == toolTip_) return;
    toolTip_ = std::move(text);
    changed(Prop::ToolTip);
}

void Control::setPicture(std::string name) {
    if (name == picture_) return;
    picture_ = std::move(name);
    changed(Prop::Picture);
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
    changedItem_ = index;
    changed(Prop::ItemChanged);
}

void Control::setItems(std::vector<std::string> items) {
    items_ = std::move(items);
    ticks_.assign(items_.size(), false);
    value_ = -1;
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

bool Control::addNode(const std::string& parentKey, std::string key, std::string text) {
    std::size_t parent = kNoNode;
    if (!parentKey.empty()) {
        parent = nodeIndex(parentKey);
        if (parent == kNoNode) return false;
    }
    if (!nodeByKey_.emplace(key, nodes_.size()).second) return false;
    nodes_.push_back({std::move(key), std::move(text), parent, 0});
    if (parent != kNoNode) ++nodes_[parent].children;
    changed(Prop::NodeAdded);
    return true;
}

void Control::clearNodes() {
    nodes_.clear();
    nodeByKey_.clear();
    value_ = -1;
    changed(Prop::Nodes);
}

std::size_t Control::nodeIndex(const std::string& key) const {
    const auto found = nodeByKey_.find(key);
    return found == nodeByKey_.end() ? kNoNode : found->second;
}

std::string Control::fullPath(std::size_t node) const {
    if (node >= nodes_.size()) return {};
    std::string path = nodes_[node].text;
    for (std::size_t up = nodes_[node].parent; up != kNoNode; up = nodes_[up].parent)
        path = nodes_[up].text + "\\" + path;
    return path;
}

std::size_t Control::selectedNode() const {
    return value_ >= 0 && static_cast<std::size_t>(value_) < nodes_.size() ? static_cast<std::size_t>(value_)
                                                                           : kNoNode;
}

void Control::userSelectNode(std::size_t node) {
    if (!enabled_ || node >= nodes_.size()) return;
    setValue(static_cast<int>(node));
    if (onNodeClick) onNodeClick();
}

void Control::userExpandNode(std::size_t node, bool expanded) {
    if (enabled_ && node < nodes_.size() && onExpand) onExpand(node, expanded);
}

void Control::userDoubleClick() {
    if (enabled_ && onDoubleClick) onDoubleClick();
}

void Control::userKeyDown(int keyCode) {
    if (enabled_ && onKeyDown) onKeyDown(keyCode);
}

void Control::userKeyUp(int keyCode) {
    if (enabled_ && onKeyUp) onKeyUp(keyCode);
}

void Control::userMouseMove() {
    if (enabled_ && onMouseMove) onMouseMove();
}

void Control::userMouseDown() {
    if (enabled_ && onMouseDown) onMouseDown();
}

void Control::userMouseUp() {
    if (enabled_ && onMouseUp) onMouseUp();
}

void Control::userKeyPress() {
    if (kind_ == Kind::Label) {
        userMouseDown();
        userMouseUp();
    }
    userClick();
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
