// Window texts that change faster than anyone can read them, such as a scan's
// file name and figures, which change for every file. Each write to a shown
// window is a repaint, and under Wine also a round trip to the Wine server, so
// the newest text of each window waits and all are written together, at most
// once per interval.
#pragma once

#include <string>
#include <unordered_map>

#include "platform/win32/win32_base.h"

namespace tv::win32 {

class PendingTexts {
public:
    static constexpr DWORD kIntervalMs = 30;

    // Keeps `text` as the window's newest; true when the texts are due now.
    bool set(HWND window, std::string text);
    // Writes every waiting text to its window.
    void flush();
    void clear() { texts_.clear(); }

private:
    std::unordered_map<HWND, std::string> texts_;
    DWORD lastFlush_ = 0;
};

}  // namespace tv::win32
