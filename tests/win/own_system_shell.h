// The real Windows shell with a system directory of the caller's own, for
// scans of a prepared folder in tests and benchmarks.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "platform/win32/win32_system.h"

namespace tv::test {

// The real Windows shell, but, where given, with a system directory, a Windows
// folder and special folders of the caller's own, and the folder dialog
// answered from a script (cancelled when the script is empty).
struct OwnSystemShell final : Shell {
    win32::Win32Shell real;
    std::string system, windows;
    std::map<int, std::string> special;  // by folder number
    std::deque<std::string> folderChoices;
    std::vector<std::string> folderTitles;
    std::string systemDirectory(std::size_t n) const override { return system.empty() ? real.systemDirectory(n) : system; }
    std::string windowsDirectoryBuffer(std::size_t n) const override {
        return windows.empty() ? real.windowsDirectoryBuffer(n) : windows + '\0';
    }
    std::string specialFolder(int csidl, std::size_t n) const override {
        return special.count(csidl) ? special.at(csidl) : real.specialFolder(csidl, n);
    }
    std::string openFileDialog(NativeWindow o, const std::string& t, const std::string& f, std::size_t n) override {
        return real.openFileDialog(o, t, f, n);
    }
    std::string browseForFolder(const std::string& title) override {
        folderTitles.push_back(title);
        const std::string chosen = folderChoices.empty() ? "" : folderChoices.front();
        if (!folderChoices.empty()) folderChoices.pop_front();
        return chosen;
    }
    std::string shortPathBuffer(const std::string& p, std::size_t n) const override { return real.shortPathBuffer(p, n); }
    int openDocument(const std::string& v, const std::string& f, const std::string& d) override {
        return real.openDocument(v, f, d);
    }
};

}  // namespace tv::test
