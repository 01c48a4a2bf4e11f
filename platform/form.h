// A window of the product in the logical model: its caption, its visibility, and
// the controls it owns, each found by its product name.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/shell.h"

namespace tv::ui {

enum class FormProp { Caption, Visible, Minimised, Destroyed };

class Form {
public:
    Form(std::string name, std::string caption, Bounds clientArea);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& name() const { return name_; }
    const Bounds& clientArea() const { return clientArea_; }

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);

    bool visible() const { return visible_; }
    void setVisible(bool visible);

    bool minimised() const { return minimised_; }
    void setMinimised(bool minimised);

    // Adds a control; its tab position follows the order of adding. Option
    // buttons with the same parent form one group, of which one at most is set.
    Control& add(Kind kind, std::string name, Bounds bounds, std::string caption = {},
                 Control* parent = nullptr);

    // The control of that name; nullptr when the form has none.
    Control* find(const std::string& name) const;
    Control& at(const std::string& name) const;  // for names the form is known to own

    const std::vector<std::unique_ptr<Control>>& controls() const { return controls_; }

    // The close box: asks onQueryUnload (true means "keep the window"), then unloads.
    void userClose();

    std::function<bool()> onQueryUnload;
    std::function<void()> onUnload;

    // Keys pressed and released anywhere on the form, and the mouse moving
    // over the form itself (not over one of its controls).
    void userKeyDown(int keyCode);
    void userKeyUp(int keyCode);
    void userMouseMove();
    std::function<void(int keyCode)> onKeyDown;
    std::function<void(int keyCode)> onKeyUp;
    std::function<void()> onMouseMove;

    // The keyboard's Enter presses the focused button, or else this one.
    Control* defaultButton = nullptr;
    // Esc presses this one, or else, when closesOnEscape is set, acts as the
    // close box.
    Control* cancelButton = nullptr;
    bool closesOnEscape = false;

    // Set by the renderer that shows this form.
    NativeWindow nativeWindow() const { return nativeWindow_; }
    void setNativeWindow(NativeWindow window) { nativeWindow_ = window; }
    void setSink(std::function<void(Form&, FormProp)> sink) { sink_ = std::move(sink); }

private:
    void changed(FormProp what);

    std::string name_;
    std::string caption_;
    Bounds clientArea_;
    bool visible_ = false;
    bool minimised_ = false;
    std::vector<std::unique_ptr<Control>> controls_;
    std::map<const Control*, std::shared_ptr<std::vector<Control*>>> optionGroups_;  // by parent
    NativeWindow nativeWindow_ = 0;
    std::function<void(Form&, FormProp)> sink_;
};

// Brings forms to the screen. Forms are attached once, when the program creates
// them, and stay attached until the process ends.
class Renderer {
public:
    virtual ~Renderer() = default;
    virtual void attach(Form& form) = 0;
};

// The renderer of the tests: keeps every form in the model only.
class HeadlessRenderer final : public Renderer {
public:
    void attach(Form&) override {}
};

}  // namespace tv::ui
