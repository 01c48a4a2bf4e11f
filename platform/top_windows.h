// The desktop's top-level windows, as the system's window calls see them.
// Handles are numbers; 0 stands for no window, and every call accepts it and
// answers as the system does for a window that is gone: empty text, process 0,
// nothing done.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/shell.h"

namespace tv {

class TopWindows {
public:
    virtual ~TopWindows() = default;

    virtual NativeWindow desktop() const = 0;
    // The first child (5, GW_CHILD) or the next window (2, GW_HWNDNEXT) in the
    // stacking order; 0 when there is none.
    virtual NativeWindow relative(NativeWindow window, int relation) const = 0;
    // The window's title read into a buffer of `charCount` characters, as the
    // call left it: the title, a zero, then what stood in the buffer before
    // (zeros).
    virtual std::string titleBuffer(NativeWindow window, std::size_t charCount) const = 0;
    // The class name read into a zero-filled buffer of `charCount` characters.
    virtual std::string classBuffer(NativeWindow window, std::size_t charCount) const = 0;
    // The process that owns the window; 0 for none.
    virtual std::uint32_t processId(NativeWindow window) const = 0;
    // The first window with this class and title. A class of nullopt matches
    // any class; an empty class is passed to the system as an empty text.
    virtual NativeWindow find(const std::optional<std::string>& className, const std::string& title) const = 0;
    // Raises the window to the top of the stacking order.
    virtual void bringToTop(NativeWindow window) = 0;
    // Asks the window to close (WM_CLOSE) and waits for its answer, for a
    // limited time: a window whose program has hung holds nobody for good.
    virtual void askToClose(NativeWindow window) = 0;
};

}  // namespace tv
