#include "appwatch/appwatch_actions.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "appwatch/appwatch_page.h"
#include "core/text.h"

namespace tv {
namespace {

constexpr int kFirstChild = 5;  // GW_CHILD
constexpr int kNext = 2;        // GW_HWNDNEXT
constexpr std::size_t kTextBuffer = 255;
constexpr std::string_view kClassPrefix = "Class Name: ";  // cut off again to find the window

// The system holds at most this many windows. A walk along the stacking order
// that has taken more steps is going round in circles, as it can when windows
// are reordered while the message loop runs between two steps.
constexpr std::size_t kMostWindows = 65536;

// The text in front of the first zero character of a buffer.
std::string beforeZero(const std::string& buffer) { return buffer.substr(0, buffer.find('\0')); }

}  // namespace

AppWatchActions::AppWatchActions(AppContext& ctx, ui::AppWatchPage& page) : ctx_(ctx), page_(page) {
    page_.ref.onClick = [this] { refresh(); };
    page_.lstOpenWindows.onChange = [this] { rowChosen(); };
    page_.act.onClick = [this] { activate(); };
    page_.cl.onClick = [this] { closeWindow(); };
}

// Each window is looked up again by its title, so that of two windows sharing
// a title the first the system finds speaks for both, and the row of the
// second reads the same and is left out.
std::int32_t AppWatchActions::listOpenWindows() {
    TopWindows& windows = ctx_.os.windows;
    ui::Control& list = page_.lstOpenWindows;
    std::int32_t count = 0;
    NativeWindow window = windows.relative(windows.desktop(), kFirstChild);
    for (std::size_t steps = 0; window != 0 && steps < kMostWindows; ++steps) {
        const std::string buffer = windows.titleBuffer(window, kTextBuffer);
        const NativeWindow next = windows.relative(window, kNext);
        if (!buffer.empty() && buffer[0] != '\0') {
            const std::string title = beforeZero(buffer);
            const NativeWindow found = windows.find(std::nullopt, title);
            const std::string row = std::to_string(windows.processId(found)) + ": " + title;
            const auto& rows = list.items();
            if (std::find(rows.begin(), rows.end(), row) == rows.end()) {
                list.addItem(row);
                ++count;
            }
        }
        ctx_.os.loop.pump();
        window = next;
    }
    return count;
}

void AppWatchActions::refresh() {
    page_.lstOpenWindows.clearItems();
    const std::int32_t count = listOpenWindows();
    page_.lblCount.setCaption(std::to_string(count) + " open Windows.");
}

// The title is what stands behind the row's first blank, that is behind the
// process number and its colon.
void AppWatchActions::rowChosen() {
    const ui::Control& list = page_.lstOpenWindows;
    if (list.value() < 0) return;
    const std::string row = list.selectedText();
    page_.txtTitle.setCaption(midText(row, inStr(1, row, " ") + 1));
    const NativeWindow window = ctx_.os.windows.find(std::nullopt, page_.txtTitle.caption());
    const std::string className = ctx_.os.windows.classBuffer(window, kTextBuffer);
    std::uint32_t process = 0;
    if (!className.empty() && className[0] != '\0') {
        page_.lblClassName.setCaption(std::string(kClassPrefix) + beforeZero(className));
        process = ctx_.os.windows.processId(window);
    } else {
        page_.lblClassName.setCaption("Window Not Found!!!");
    }
    page_.lblProcessID.setCaption("ProcessID: " + std::to_string(process));
}

// With lblClassName at its start text or at "Window Not Found!!!" the tail of
// that text stands for a class, and no window is found.
NativeWindow AppWatchActions::chosenWindow() const {
    const std::string& label = page_.lblClassName.caption();
    const std::string& title = page_.txtTitle.caption();
    if (!trimBlanks(label).empty())
        return ctx_.os.windows.find(midText(label, kClassPrefix.size() + 1), title);
    return ctx_.os.windows.find(std::string(), trimBlanks(title));
}

void AppWatchActions::activate() { ctx_.os.windows.bringToTop(chosenWindow()); }

// A window may refuse to close; nothing forces its process to end.
void AppWatchActions::closeWindow() {
    const NativeWindow window = chosenWindow();
    const std::string question =
        "Are you sure you want to close " + page_.txtTitle.caption() + "(" + std::to_string(window) + ")";
    if (ctx_.os.boxes.show(question, kAppTitle, box::YesNo) == box::Yes) ctx_.os.windows.askToClose(window);
    refresh();
}

}  // namespace tv
