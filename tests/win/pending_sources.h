// A wininit.ini in the prefix's Windows folder and a pending rename value,
// as a test puts them there, both taken away again when it ends: Wine carries
// them out when the prefix starts.
#pragma once

#include <string>

#include "platform/win32/win32_base.h"
#include "regwatch/pending_boot.h"

namespace tv::test {

class PendingSources {
public:
    explicit PendingSources(std::string windowsFolder) : wininit_(std::move(windowsFolder) + kWininitName) {
        ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, kPendingRenameKey, 0, KEY_ALL_ACCESS, &session_);
        DWORD size = 0;
        hadValue_ = ::RegQueryValueExA(session_, kPendingRenameValue, nullptr, &type_, nullptr, &size) == ERROR_SUCCESS;
        before_.resize(size);
        if (hadValue_)
            ::RegQueryValueExA(session_, kPendingRenameValue, nullptr, &type_, reinterpret_cast<BYTE*>(before_.data()),
                               &size);
    }
    ~PendingSources() {
        ::DeleteFileA(wininit_.c_str());
        if (hadValue_)
            ::RegSetValueExA(session_, kPendingRenameValue, 0, type_, reinterpret_cast<const BYTE*>(before_.data()),
                             static_cast<DWORD>(before_.size()));
        else
            ::RegDeleteValueA(session_, kPendingRenameValue);
        ::RegCloseKey(session_);
    }
    PendingSources(const PendingSources&) = delete;
    PendingSources& operator=(const PendingSources&) = delete;

    const std::string& wininit() const { return wininit_; }
    void pendingValue(const std::string& bytes) {
        ::RegSetValueExA(session_, kPendingRenameValue, 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>(bytes.data()),
                         static_cast<DWORD>(bytes.size()));
    }

private:
    std::string wininit_;
    HKEY session_ = nullptr;
    bool hadValue_ = false;
    DWORD type_ = 0;
    std::string before_;
};

}  // namespace tv::test
