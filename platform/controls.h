// The logical control model. Handlers read and write only these objects; a
// renderer mirrors them into real windows, or nowhere at all in tests.
//
// Program setters (setCaption, setValue, ...) change state and tell the renderer;
// they never raise user events. The user...() entry points are what a click or a
// key does: they change state where the user would and raise the event.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace tv::ui {

enum class Kind {
    Label, FlatButton, FlatCheck, CheckBox, OptionButton, TextBox, ListBox,
    CheckList,  // a list whose items each carry a tick
    ComboBox, TreeView, ProgressBar, Frame, Image, Timer
};

// What changed, for the renderer.
// ItemAdded: one item was appended (the last); ItemChanged: the text of one
// item (changedItem()) was replaced; Items: the list was replaced; Ticks: the
// ticks of a check list changed. NodeAdded: one node was added (the
// last); Nodes: the tree was emptied. Range: a progress bar's maximum.
enum class Prop {
    Caption, Visible, Enabled, Value, Colour, Items, ItemAdded, ItemChanged, Selection, Ticks, Bounds, Interval,
    Nodes, NodeAdded, ToolTip, Picture, Range, Alignment
};

struct Bounds {
    int left = 0, top = 0, width = 0, height = 0;  // pixels at 96 DPI, inside the parent
};

inline constexpr std::uint32_t kBlack = 0x000000;
inline constexpr std::uint32_t kWhite = 0xFFFFFF;
inline constexpr std::uint32_t kBlue = 0xFF0000;  // 0xBBGGRR
inline constexpr std::uint32_t kSystemColour = 0xFFFFFFFF;  // the system's own background

inline constexpr std::size_t kNoNode = static_cast<std::size_t>(-1);

// A node of a tree view. Nodes keep the order in which they were added, which
// is their index; a node is found again by its key, which no two nodes share.
struct TreeNode {
    std::string key;
    std::string text;
    std::size_t parent = kNoNode;  // a root has none
    std::size_t children = 0;
};

// Key codes of the keyboard, as the system numbers them.
namespace key {
inline constexpr int Shift = 16;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Delete = 46;
inline constexpr int Multiply = 106;  // the keypad's *, + and -
inline constexpr int Add = 107;
inline constexpr int Subtract = 109;
}  // namespace key

class Control;
using ChangeSink = std::function<void(Control&, Prop)>;

class Control {
public:
    Control(Kind kind, std::string name, Control* parent, Bounds bounds, std::string caption);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Kind kind() const { return kind_; }
    const std::string& name() const { return name_; }
    Control* parent() const { return parent_; }
    const Bounds& bounds() const { return bounds_; }
    int tabIndex() const { return tabIndex_; }
    void setTabIndex(int index) { tabIndex_ = index; }

    const std::string& caption() const { return caption_; }
    // A text box's text ends at the first zero character given.
    void setCaption(std::string caption);

    bool visible() const { return visible_; }
    void setVisible(bool visible);
    // Visible itself and inside visible frames.
    bool shown() const;

    bool enabled() const { return enabled_; }
    // A flat button shows its caption white while disabled, black while enabled.
    void setEnabled(bool enabled);

    // Check state (0 or 1), option state, progress position, timer interval,
    // list selection or tree selection (-1 for none), by kind. An option
    // button that is set clears the other options of its group.
    int value() const { return value_; }
    void setValue(int value);

    // A progress bar's maximum; its minimum is 0.
    int maximum() const { return maximum_; }
    void setMaximum(int maximum);

    std::uint32_t foreColour() const { return foreColour_; }
    bool underlined() const { return underlined_; }
    void setLook(std::uint32_t foreColour, bool underlined = false);
    std::uint32_t backColour() const { return backColour_; }
    void setBackColour(std::uint32_t colour);

    // A label that acts on clicks and is reached with the keyboard as a
    // button is: Tab stops on it, and Space or Enter press it. Set when its
    // form is made.
    bool pressable() const { return pressable_; }
    void setPressable(bool pressable) { pressable_ = pressable; }

    // A label's text centred in its width rather than from its left edge.
    bool centred() const { return centred_; }
    void setCentred(bool centred);

    // The text shown while the mouse rests on the control.
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string text);

    // The picture an image shows, by its name; an image without one is drawn
    // as a flat button with its caption.
    const std::string& picture() const { return picture_; }
    void setPicture(std::string name);

    // List and combo items.
    const std::vector<std::string>& items() const { return items_; }
    void addItem(std::string item);
    void setItem(std::size_t index, std::string item);  // nothing when there is no such item
    std::size_t changedItem() const { return changedItem_; }  // the item setItem changed last
    // Replaces every item at once; the ticks and the choice are cleared.
    void setItems(std::vector<std::string> items);
    void clearItems();
    // The text of the chosen item; empty when none is chosen.
    std::string selectedText() const;

    // The ticks of a check list's items.
    bool ticked(std::size_t item) const { return item < ticks_.size() && ticks_[item]; }
    void setTicked(std::size_t item, bool ticked);

    // Tree nodes. A node goes under the node keyed `parentKey`, or to the roots
    // when that is empty; false, and nothing added, when its key is taken or
    // the parent is unknown. Look-ups by key take constant time.
    const std::vector<TreeNode>& nodes() const { return nodes_; }
    bool addNode(const std::string& parentKey, std::string key, std::string text);
    void clearNodes();
    std::size_t nodeIndex(const std::string& key) const;  // kNoNode when absent
    // The texts from the node's root down to the node, joined by backslashes.
    std::string fullPath(std::size_t node) const;
    // The chosen node; kNoNode when none is.
    std::size_t selectedNode() const;

    // What the user does.
    void userClick();
    void userSetValue(int value);  // a box ticked, an option chosen, an item picked
    void userEditText(std::string text);
    void userTick();               // a timer's interval has passed
    void userTickItem(std::size_t item, bool ticked);  // a check list's box clicked
    void userSelectNode(std::size_t node);              // a tree node clicked
    void userExpandNode(std::size_t node, bool expanded);  // a node opened or closed
    void userDoubleClick();
    void userKeyDown(int keyCode);
    void userKeyUp(int keyCode);
    void userMouseMove();
    void userMouseDown();
    void userMouseUp();
    // Enter on the focused control, or the form's Enter or Esc pressing it: a
    // button's click, and on a pressable label the whole of a click, the
    // button going down and up and then the click, since a label may act on
    // any of the three.
    void userKeyPress();

    // The flat controls' look under the mouse. A flat check's caption turns blue
    // and underlined while the mouse is over it, and black again over its box;
    // a flat button's caption is white while pressed. Other kinds ignore them.
    void userHover(bool overCaption);
    void userPress(bool down);
    // Resets a flat check's hover look; on a flat button it does nothing.
    void downStatus();

    std::function<void()> onClick;
    std::function<void()> onChange;  // a user edit of text or selection
    std::function<void()> onTick;
    std::function<void()> onNodeClick;
    std::function<void(std::size_t node, bool expanded)> onExpand;
    std::function<void()> onDoubleClick;
    std::function<void(int keyCode)> onKeyDown;
    std::function<void(int keyCode)> onKeyUp;
    std::function<void()> onMouseMove;
    std::function<void()> onMouseDown;
    std::function<void()> onMouseUp;

    void setSink(ChangeSink sink) { sink_ = std::move(sink); }
    // The option buttons that exclude one another; set by the form.
    void joinGroup(std::shared_ptr<std::vector<Control*>> group) { group_ = std::move(group); }

private:
    void changed(Prop what);

    Kind kind_;
    std::string name_;
    Control* parent_;
    Bounds bounds_;
    std::string caption_;
    bool visible_ = true;
    bool enabled_ = true;
    int value_ = 0;
    int maximum_ = 100;
    int tabIndex_ = 0;
    std::uint32_t foreColour_ = kBlack;
    std::uint32_t backColour_ = kSystemColour;
    bool underlined_ = false;
    bool centred_ = false;
    bool pressable_ = false;
    std::string toolTip_;
    std::string picture_;
    std::vector<std::string> items_;
    std::vector<bool> ticks_;
    std::size_t changedItem_ = 0;
    std::vector<TreeNode> nodes_;
    std::unordered_map<std::string, std::size_t> nodeByKey_;
    std::shared_ptr<std::vector<Control*>> group_;
    ChangeSink sink_;
};

// A control made hidden, as it is built: for the forms' controls that start unseen.
Control& hidden(Control& control);

}  // namespace tv::ui
