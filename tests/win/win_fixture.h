// Integration tests under Wine: the real Win32 platform in a temporary folder,
// with only the message boxes scripted and the end of the process recorded.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/win32/win32_files.h"
#include "platform/win32/win32_system.h"
#include "tests/core/fakes.h"

namespace tv::test {

class WinTest : public ::testing::Test {
protected:
    WinTest();
    ~WinTest() override;

    // A path inside this test's own folder.
    std::string path(const std::string& relative) const { return folder_ + relative; }
    void writeFile(const std::string& relative, const std::string& bytes);
    std::string readFile(const std::string& relative) const;

    PlatformSet set() {
        return {files, profiles, shell, boxes, processes, loop, renderer, registry, clock, windows, power, shortcuts};
    }

    win32::Win32Files files;
    win32::Win32ProfileFiles profiles;
    win32::Win32Shell shell;
    ScriptedBoxes boxes;
    FixedProcesses processes;
    RecordingLoop loop;
    ui::HeadlessRenderer renderer;
    win32::Win32Registry registry;
    win32::Win32Clock clock;
    win32::Win32TopWindows windows;
    RecordingPower power;
    win32::Win32Shortcuts shortcuts;

private:
    std::string folder_;  // ends in a backslash
};

// Holds a file open with no sharing, as another program might.
class FileLock {
public:
    explicit FileLock(const std::string& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    bool held() const;

private:
    void* handle_;
};

}  // namespace tv::test
