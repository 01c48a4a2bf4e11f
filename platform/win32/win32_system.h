// The Win32 implementations of the small platform interfaces.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/message_boxes.h"
#include "platform/power.h"
#include "platform/processes.h"
#include "platform/profile_files.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/shortcuts.h"
#include "platform/top_windows.h"
#include "platform/win32/win32_base.h"

namespace tv::win32 {

class Win32ProfileFiles final : public ProfileFiles {
public:
    std::string get(const std::string& section, const std::string& key, std::size_t charCount,
                    const std::string& file) const override;
    bool put(const std::string& section, const std::string& key, const std::string& value,
             const std::string& file) override;
    std::vector<std::string> sectionNames(const std::string& file) const override;
    bool addSection(const std::string& section, const std::string& file) override;
};

class Win32Shell final : public Shell {
public:
    std::string systemDirectory(std::size_t charCount) const override;
    std::string windowsDirectoryBuffer(std::size_t charCount) const override;
    std::string specialFolder(int csidl, std::size_t charCount) const override;
    std::string openFileDialog(NativeWindow owner, const std::string& title,
                               const std::string& filter, std::size_t bufferChars) override;
    std::string browseForFolder(const std::string& title) override;
    std::string shortPathBuffer(const std::string& path, std::size_t charCount) const override;
    int openDocument(const std::string& verb, const std::string& file, const std::string& folder) override;
};

class Win32MessageBoxes final : public MessageBoxes {
public:
    int show(const std::string& prompt, const std::string& title, unsigned style) override;
};

class Win32Processes final : public Processes {
public:
    std::string commandLine() const override;
    std::string modulePath() const override;
    bool start(const std::string& commandLine, int showStyle) override;
    bool anotherInstanceRunning() const override;
    std::string versionNumbers() const override;
};

class Win32Clock final : public Clock {
public:
    double secondsSinceMidnight() const override;
    DateTimeText localDateTime() const override;
};

class Win32TopWindows final : public TopWindows {
public:
    // `answerMs`: how long a window may take to answer the close request.
    explicit Win32TopWindows(unsigned answerMs = 10000);
    NativeWindow desktop() const override;
    NativeWindow relative(NativeWindow window, int relation) const override;
    std::string titleBuffer(NativeWindow window, std::size_t charCount) const override;
    std::string classBuffer(NativeWindow window, std::size_t charCount) const override;
    std::uint32_t processId(NativeWindow window) const override;
    NativeWindow find(const std::optional<std::string>& className, const std::string& title) const override;
    void bringToTop(NativeWindow window) override;
    void askToClose(NativeWindow window) override;

private:
    unsigned answerMs_;
};

class Win32Power final : public Power {
public:
    void enableShutdownPrivilege() override;
    bool exitWindows(std::uint32_t flags, std::uint32_t reserved) override;
    bool setSystemPowerState(bool suspend, bool force) override;
    Version version() const override;
    void killDesktopProcess() override;
};

class Win32Shortcuts final : public Shortcuts {
public:
    bool makeShellLink(const std::string& linkPath, const Link& link) override;
    bool makeScriptedShortcut(const std::string& linkPath, const std::string& description, const std::string& target,
                              const std::optional<std::string>& arguments, int windowStyle) override;
    std::optional<Target> readShellLink(const std::string& linkPath) override;
};

class Win32Registry final : public Registry {
public:
    int otherViewBits() const override;
    long openKey(std::uint32_t root, const RegText& subKey, RegView view, RegAccess access, Key& key) override;
    long enumKey(Key key, std::uint32_t index, RegText& name) override;
    long enumValue(Key key, std::uint32_t index, RegText& name) override;
    long queryValue(Key key, const RegText& name, RegValue& value) override;
    long deleteValue(Key key, const RegText& name) override;
    long closeKey(Key key) override;
};

class Win32EventLoop final : public EventLoop {
public:
    void pump() override;
    std::uint32_t queueStatus(std::uint32_t flags) override;
    void waitForInput() override;
    int run() override;
    void quit(int exitCode) override;

private:
    void pumpNow();
    long long now();  // the performance counter


    bool quitting_ = false;
    int exitCode_ = 0;
    long long lastAsked_ = 0;       // performance counter at the last status question
    long long oneMillisecond_ = 0;  // counter ticks per millisecond
    bool pumped_ = false;
    DWORD lastPumpTick_ = 0;  // the system's tick count at the end of the last pump
};

}  // namespace tv::win32
