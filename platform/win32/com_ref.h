// Owners of COM objects and strings: one reference or one BSTR each, given up
// when the owner ends.
#pragma once

#include <string>
#include <utility>

#include "platform/win32/code_page_text.h"
#include "platform/win32/win32_base.h"

#include <oleauto.h>

namespace tv::win32 {

template <class Interface>
class ComRef {
public:
    ComRef() = default;
    ComRef(const ComRef&) = delete;
    ComRef& operator=(const ComRef&) = delete;
    ~ComRef() {
        if (p_) p_->Release();
    }
    Interface* get() const { return p_; }
    Interface* operator->() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }
    // Where a creating call writes the new reference; the old one is given up first.
    Interface** put() {
        if (p_) p_->Release();
        p_ = nullptr;
        return &p_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

private:
    Interface* p_ = nullptr;
};

class UniqueBstr {
public:
    explicit UniqueBstr(const std::string& text) : b_(::SysAllocString(wideText(text).c_str())) {}
    UniqueBstr(const UniqueBstr&) = delete;
    UniqueBstr& operator=(const UniqueBstr&) = delete;
    ~UniqueBstr() { ::SysFreeString(b_); }
    BSTR get() const { return b_; }

private:
    BSTR b_;
};

}  // namespace tv::win32
