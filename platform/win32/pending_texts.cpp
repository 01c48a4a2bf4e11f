#include "platform/win32/pending_texts.h"

namespace tv::win32 {

bool PendingTexts::set(HWND window, std::string text) {
    texts_[window] = std::move(text);
    return ::GetTickCount() - lastFlush_ >= kIntervalMs;
}

void PendingTexts::flush() {
    for (const auto& [window, text] : texts_) ::SetWindowTextA(window, text.c_str());
    texts_.clear();
    lastFlush_ = ::GetTickCount();
}

}  // namespace tv::win32
