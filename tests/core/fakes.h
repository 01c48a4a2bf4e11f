// Stand-ins for the platform in native tests: files in memory, scripted message
// boxes (an unexpected box fails the test), and a recording event loop.
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/app_context.h"
#include "core/platform_set.h"
#include "integrity/scan_host.h"

namespace tv::ui {
class ScanWindow;
}

namespace tv::test {

struct MemoryFiles : Files {
    std::map<std::string, std::string> files;  // by upper-cased path
    std::set<std::string> folders;             // upper-cased, without trailing backslash
    std::set<std::string> locked;              // files no one may open
    // Junctions, upper-cased both: the paths through one are the target's.
    std::map<std::string, std::string> junctions;

    // Names as they were put, for the listing (the maps hold upper-cased keys).
    std::map<std::string, std::string> spelled;

    void put(const std::string& path, std::string content) {
        spelled[key(path)] = path;
        files[key(path)] = std::move(content);
    }
    const std::string* content(const std::string& path) const {
        const auto found = files.find(key(path));
        return found == files.end() ? nullptr : &found->second;
    }

    bool canRead(const std::string& path) const override { return content(path) && !locked.count(key(path)); }
    bool isFolder(const std::string& path) const override { return folders.count(key(path)) > 0; }
    std::optional<std::string> readAll(const std::string& path) const override {
        return canRead(path) ? std::optional(*content(path)) : std::nullopt;
    }
    bool writeAll(const std::string& path, std::string_view bytes) override;
    bool writeThrough(const std::string& path, std::string_view bytes) override { return writeAll(path, bytes); }
    bool createNew(const std::string& path, std::string_view bytes) override {
        return !content(path) && writeAll(path, bytes);
    }
    bool moveOver(const std::string& from, const std::string& to) override;
    bool append(const std::string& path, std::string_view bytes) override;
    bool makeFolder(const std::string& path) override;
    bool copy(const std::string& from, const std::string& to) override {
        const auto text = readAll(from);
        return text && writeAll(to, *text);
    }
    bool remove(const std::string& path) override { return !locked.count(key(path)) && files.erase(key(path)) > 0; }
    std::unique_ptr<FileReader> openReader(const std::string& path) const override;
    std::optional<std::uint64_t> length(const std::string& path) const override {
        return content(path) ? std::optional<std::uint64_t>(content(path)->size()) : std::nullopt;
    }
    std::string firstName(const std::string& folder) override;
    std::string nextName() override { return listed_ < listing_.size() ? listing_[listed_++] : std::string(); }
    const ListedName* peekName(std::size_t ahead) override;
    std::vector<FolderEntry> listFolder(const std::string& folder) const override;
    std::string folderIdentity(const std::string& folder) const override;

private:
    static std::string key(const std::string& path);  // upper-cased, without trailing backslashes
    bool parentExists(const std::string& key) const;
    std::string resolved(const std::string& key) const;
    std::vector<FolderEntry> children(const std::string& parentKey) const;
    std::vector<std::string> listing_;
    std::size_t listed_ = 0;
    std::string listingFolder_;
    ListedName peeked_;
};

struct NoProfileFiles final : ProfileFiles {
    // A write fails the test, unless the test records the writes as "section|key=value".
    bool recordWrites = false;
    std::vector<std::string> written;
    std::string get(const std::string&, const std::string&, std::size_t, const std::string&) const override;
    bool put(const std::string&, const std::string&, const std::string&, const std::string&) override;
    std::vector<std::string> sectionNames(const std::string&) const override {
        return get({}, {}, 0, {}), std::vector<std::string>();
    }
    bool addSection(const std::string&, const std::string&) override { return put({}, {}, {}, {}); }
};

struct FixedShell final : Shell {
    std::map<int, std::string> special;  // by folder number
    std::string systemDirectory(std::size_t) const override { return "C:\\WINDOWS\\SYSTEM32"; }
    std::string windowsDirectoryBuffer(std::size_t charCount) const override;
    std::string specialFolder(int csidl, std::size_t) const override {
        return special.count(csidl) ? special.at(csidl) : std::string();
    }
    // The open-file dialog answers the next of `fileChoices` in a zeroed buffer, or is cancelled; each is recorded.
    std::deque<std::string> fileChoices;
    std::vector<std::pair<std::string, std::string>> fileDialogs;
    std::string openFileDialog(NativeWindow, const std::string& title, const std::string& filter,
                               std::size_t bufferChars) override;
    std::string browseForFolder(const std::string&) override { return {}; }
    // Every path is its own short name.
    std::string shortPathBuffer(const std::string& path, std::size_t charCount) const override;
    // What was opened, as verb, file and folder; the result every opening gives.
    std::vector<std::array<std::string, 3>> opened;
    int openResult = 42;
    int openDocument(const std::string& verb, const std::string& file, const std::string& folder) override {
        return opened.push_back({verb, file, folder}), openResult;
    }
};

struct ShownBox { std::string prompt, title; unsigned style; };

struct ScriptedBoxes final : MessageBoxes {
    std::deque<int> answers;
    std::vector<ShownBox> shown;
    int show(const std::string& prompt, const std::string& title, unsigned style) override;
};

struct FixedProcesses final : Processes {
    std::string line = "\"C:\\Tarvelon\\TarvelonLow.exe\"";
    std::string path = "C:\\Tarvelon\\TarvelonLow.exe";
    std::vector<std::pair<std::string, int>> started;
    bool refuse = false;  // nothing can be started
    std::string commandLine() const override { return line; }
    std::string modulePath() const override { return path; }
    std::string versionNumbers() const override { return "2.0.0"; }
    bool anotherInstanceRunning() const override { return false; }
    bool start(const std::string& commandLine, int showStyle) override {
        return !refuse && (started.emplace_back(commandLine, showStyle), true);
    }
};

struct RecordingLoop final : EventLoop {
    std::function<void()> onPump;  // what a click arriving in a pump does
    int pumps = 0, statusQueries = 0;
    std::uint32_t queueAnswer = 0;  // what the queue status reports
    int waits = 0;                  // of a paused scan for the next message
    bool quitCalled = false;
    void pump() override {
        ++pumps;
        if (onPump) onPump();
    }
    void waitForInput() override { ++waits, pump(); }
    std::uint32_t queueStatus(std::uint32_t) override { return ++statusQueries, queueAnswer; }
    int run() override { return 0; }
    void quit(int) override { quitCalled = true; }
};

// The scan's view of the rest of the program, recorded; the hooks stand for the windows a test brings along.
struct RecordingHost final : ScanHost {
    // Thrown by endProgram when asked to: unwinds the scan as the end of the process would.
    struct ProgramEnded {};
    bool endUnwinds = false;
    std::function<void()> start;
    std::function<void()> action;  // the result action of the windows in the test
    std::function<void(const std::string&, const std::string&)> startFirstCustom;
    bool mainShown = true, ended = false;
    int actions = 0;
    void setMainCaption(const std::string&) override {}
    void showMainWindow(bool visible) override { mainShown = visible; }
    void startScanWindow() override { start(); }
    void endProgram() override {
        ended = true;
        if (endUnwinds) throw ProgramEnded{};
    }
    void pressResultAction() override {
        ++actions;
        if (action) action();
    }
    void afterShutDownScan() override {}
    void startFirstCustomScan(const std::string& folder, const std::string& dat) override { startFirstCustom(folder, dat); }
};

// A registry in which no key can be opened.
struct NoRegistry : Registry {
    int otherViewBits() const override { return 0; }
    long openKey(std::uint32_t, const RegText&, RegView, RegAccess, Key&) override { return 2; }  // not found
    long enumKey(Key, std::uint32_t, RegText&) override { return 2; }
    long enumValue(Key, std::uint32_t, RegText&) override { return 2; }
    long queryValue(Key, const RegText&, RegValue&) override { return 2; }
    long deleteValue(Key, const RegText&) override { return 2; }
    long closeKey(Key) override { return 2; }
};

// A clock that stands where the test puts it, or tells the scripted times in turn and stays at the last.
struct FixedClock final : Clock {
    mutable double seconds = 0;
    mutable std::deque<double> script;
    DateTimeText now{"3/5/2006", "3:04:07 PM"};
    double secondsSinceMidnight() const override {
        if (!script.empty()) seconds = script.front(), script.pop_front();
        return seconds;
    }
    DateTimeText localDateTime() const override { return now; }
};

// Top-level windows in stacking order, found by title and class without regard to case, the first match winning;
// raising and closing are recorded, and a window that answers the close request leaves the desktop.
struct ScriptedTopWindows final : TopWindows {
    struct Window {  // `closes`: answers the close request by closing
        NativeWindow handle; std::string title, className; std::uint32_t process; bool closes = true;
    };
    static constexpr NativeWindow kDesktop = 1;
    std::vector<Window> windows;
    std::vector<std::string> calls;  // "top <handle>", "close <handle>"

    NativeWindow desktop() const override { return kDesktop; }
    NativeWindow relative(NativeWindow window, int relation) const override;
    std::string titleBuffer(NativeWindow window, std::size_t charCount) const override;
    std::string classBuffer(NativeWindow window, std::size_t charCount) const override;
    std::uint32_t processId(NativeWindow window) const override { return at(window).process; }
    NativeWindow find(const std::optional<std::string>& className, const std::string& title) const override;
    void bringToTop(NativeWindow window) override { calls.push_back("top " + std::to_string(window)); }
    void askToClose(NativeWindow window) override;

private:
    const Window& at(NativeWindow window) const;
};

// Power actions recorded, never carried out; each is taken (standby comes back at once) unless `refuses`.
struct RecordingPower final : Power {
    std::vector<std::string> calls;  // "privilege", "exit <flags> <reserved>", "state <suspend> <force>", "kill desktop"
    Version answer{2, 5};            // Windows 2000 and later
    bool refuses = false;
    void enableShutdownPrivilege() override { calls.push_back("privilege"); }
    bool exitWindows(std::uint32_t flags, std::uint32_t reserved) override {
        return calls.push_back("exit " + std::to_string(flags) + " " + std::to_string(reserved)), !refuses;
    }
    bool setSystemPowerState(bool suspend, bool force) override {
        return calls.push_back("state " + std::to_string(suspend) + " " + std::to_string(force)), !refuses;
    }
    Version version() const override { return answer; }
    void killDesktopProcess() override { calls.push_back("kill desktop"); }
};

// Shortcuts recorded by their path; each is made when `succeed` says so.
struct RecordingShortcuts final : Shortcuts {
    bool succeed = true;
    std::vector<std::pair<std::string, Link>> links;
    struct Scripted { std::string path, description, target; std::optional<std::string> arguments; int windowStyle; };
    std::vector<Scripted> scripted;
    bool makeShellLink(const std::string& linkPath, const Link& link) override {
        return links.emplace_back(linkPath, link), succeed;
    }
    bool makeScriptedShortcut(const std::string& linkPath, const std::string& description, const std::string& target,
                              const std::optional<std::string>& arguments, int windowStyle) override {
        return scripted.push_back({linkPath, description, target, arguments, windowStyle}), succeed;
    }
    // The last link made at that path reads back; any other path is no link.
    std::optional<Target> readShellLink(const std::string& linkPath) override {
        for (auto made = links.rbegin(); made != links.rend(); ++made)
            if (made->first == linkPath) return Target{made->second.target, made->second.arguments.value_or("")};
        return std::nullopt;
    }
};

// The scan window's figures: files scanned, passing, new and failed.
std::string scanFigures(const ui::ScanWindow& window);

// One complete set of stand-ins.
struct FakePlatform {
    MemoryFiles files;
    NoProfileFiles profiles;
    FixedShell shell;
    ScriptedBoxes boxes;
    FixedProcesses processes;
    RecordingLoop loop;
    ui::HeadlessRenderer renderer;
    NoRegistry registry;
    FixedClock clock;
    ScriptedTopWindows windows;
    RecordingPower power;
    RecordingShortcuts shortcuts;
    PlatformSet set() {
        return {files, profiles, shell, boxes, processes, loop, renderer, registry, clock, windows, power, shortcuts};
    }
};

// The program's folder C:\Tarvelon\ with its Data folder and a new settings
// file in which each line `first` is replaced by `second`; the context's
// paths point into it.
void prepareProgramFolder(FakePlatform& os, AppContext& ctx,
                          const std::vector<std::pair<std::string, std::string>>& settingsLines);

}  // namespace tv::test
