#include "tests/core/fakes.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/settings_text.h"
#include "core/text.h"
#include "integrity/scan_window.h"

namespace tv::test {
namespace {

// What the system leaves in a zeroed buffer: the text, cut to leave room for
// its terminating zero.
std::string zeroFilled(const std::string& text, std::size_t charCount) {
    std::string buffer(charCount, '\0');
    if (charCount > 0) buffer.replace(0, std::min(text.size(), charCount - 1), text.substr(0, charCount - 1));
    return buffer;
}

}  // namespace

std::string MemoryFiles::key(const std::string& path) {
    std::string k = upperCase(path);
    return k.substr(0, k.find_last_not_of('\\') + 1);
}

// A path through a junction is the target's path.
std::string MemoryFiles::resolved(const std::string& k) const {
    for (const auto& [from, to] : junctions)
        if (k == from || k.starts_with(from + "\\")) return to + k.substr(from.size());
    return k;
}

// Folders first, then files, each in the order of their upper-cased paths.
std::vector<FolderEntry> MemoryFiles::children(const std::string& parentKey) const {
    std::vector<FolderEntry> entries;
    const auto take = [&](const std::string& k, bool isFolder) {
        const auto slash = k.find_last_of('\\');
        if (slash == std::string::npos || k.substr(0, slash) != parentKey) return;
        const auto named = spelled.find(k);
        entries.push_back({(named != spelled.end() ? named->second : k).substr(slash + 1), isFolder});
    };
    for (const std::string& k : folders) take(k, true);
    for (const auto& [k, content] : files) take(k, false);
    return entries;
}

std::string MemoryFiles::firstName(const std::string& folder) {
    const std::string parent = key(folder);
    listing_.clear();
    listed_ = 0;
    listingFolder_ = folder;
    if (!folders.count(parent)) return {};
    listing_ = {".", ".."};
    for (FolderEntry& entry : children(parent)) listing_.push_back(std::move(entry.name));
    return nextName();
}

std::vector<FolderEntry> MemoryFiles::listFolder(const std::string& folder) const {
    const std::string k = resolved(key(folder));
    return folders.count(k) ? children(k) : std::vector<FolderEntry>{};
}

std::string MemoryFiles::folderIdentity(const std::string& folder) const {
    const std::string k = resolved(key(folder));
    return folders.count(k) ? k : std::string();
}

const ListedName* MemoryFiles::peekName(std::size_t ahead) {
    if (listed_ + ahead >= listing_.size()) return nullptr;
    const std::string& name = listing_[listed_ + ahead];
    const std::string* text = content(listingFolder_ + name);
    peeked_ = {name, text ? text->size() : 0};
    return &peeked_;
}

bool MemoryFiles::parentExists(const std::string& k) const {
    const auto slash = k.find_last_of('\\');
    return slash == std::string::npos || slash == 2 || folders.count(k.substr(0, slash)) > 0;
}

// Appending nothing makes the file where it may be written; then its new content.
bool MemoryFiles::writeAll(const std::string& path, std::string_view bytes) {
    if (!MemoryFiles::append(path, {})) return false;
    files[key(path)] = bytes;
    return true;
}

bool MemoryFiles::append(const std::string& path, std::string_view bytes) {
    const std::string k = key(path);
    if (locked.count(k) || folders.count(k) || !parentExists(k)) return false;
    files[k] += bytes;
    spelled.emplace(k, path);
    return true;
}

bool MemoryFiles::makeFolder(const std::string& path) {
    const std::string k = key(path);
    if (folders.count(k) || files.count(k) || !parentExists(k)) return false;
    folders.insert(k);
    spelled[k] = path.substr(0, path.find_last_not_of('\\') + 1);
    return true;
}

bool MemoryFiles::moveOver(const std::string& from, const std::string& to) {
    const std::string source = key(from), target = key(to);
    if (locked.count(source) || locked.count(target) || !files.count(source) || folders.count(target)) return false;
    std::string moved = std::move(files[source]);
    files.erase(source);
    files[target] = std::move(moved);
    spelled[target] = to;
    return true;
}

namespace {

class MemoryReader final : public FileReader {
public:
    explicit MemoryReader(std::string content) : content_(std::move(content)) {}
    std::optional<std::size_t> read(std::uint8_t* into, std::size_t count) override {
        const std::size_t n = std::min(count, content_.size() - at_);
        std::copy_n(content_.data() + at_, n, into);
        at_ += n;
        return n;
    }
    std::optional<std::uint64_t> size() override { return content_.size(); }

private:
    std::string content_;
    std::size_t at_ = 0;
};

}  // namespace

std::unique_ptr<FileReader> MemoryFiles::openReader(const std::string& path) const {
    return canRead(path) ? std::make_unique<MemoryReader>(*content(path)) : nullptr;
}

std::string NoProfileFiles::get(const std::string&, const std::string&, std::size_t, const std::string&) const {
    return ADD_FAILURE() << "profile read where none was expected", std::string();
}

bool NoProfileFiles::put(const std::string& section, const std::string& key, const std::string& value,
                         const std::string&) {
    if (!recordWrites) ADD_FAILURE() << "profile write where none was expected";
    else written.push_back(section + "|" + key + "=" + value);
    return recordWrites;
}

std::string FixedShell::windowsDirectoryBuffer(std::size_t count) const { return zeroFilled("C:\\WINDOWS", count); }

std::string FixedShell::shortPathBuffer(const std::string& path, std::size_t charCount) const {
    std::string buffer(charCount, ' ');
    if (path.size() + 1 < charCount) buffer.replace(0, path.size() + 1, path + '\0');
    return buffer;
}

std::string FixedShell::openFileDialog(NativeWindow, const std::string& title, const std::string& filter,
                                       std::size_t bufferChars) {
    fileDialogs.emplace_back(title, filter);
    if (fileChoices.empty()) return {};
    std::string buffer = fileChoices.front();
    fileChoices.pop_front();
    buffer.resize(std::max(buffer.size(), bufferChars), '\0');
    return buffer;
}

// The window of that handle, or one with neither title, class nor process.
const ScriptedTopWindows::Window& ScriptedTopWindows::at(NativeWindow window) const {
    static const Window none{};
    for (const Window& w : windows)
        if (w.handle == window && window != 0) return w;
    return none;
}

NativeWindow ScriptedTopWindows::relative(NativeWindow window, int relation) const {
    if (relation == 5) return window == kDesktop && !windows.empty() ? windows.front().handle : 0;
    for (std::size_t i = 0; i + 1 < windows.size(); ++i)
        if (relation == 2 && windows[i].handle == window) return windows[i + 1].handle;
    return 0;
}

std::string ScriptedTopWindows::titleBuffer(NativeWindow w, std::size_t count) const {
    return zeroFilled(at(w).title, count);
}
std::string ScriptedTopWindows::classBuffer(NativeWindow w, std::size_t count) const {
    return zeroFilled(at(w).className, count);
}

NativeWindow ScriptedTopWindows::find(const std::optional<std::string>& className, const std::string& title) const {
    for (const Window& w : windows)
        if (sameText(w.title, title) && (!className || sameText(w.className, *className))) return w.handle;
    return 0;
}

void ScriptedTopWindows::askToClose(NativeWindow window) {
    calls.push_back("close " + std::to_string(window));
    std::erase_if(windows, [window](const Window& w) { return w.handle == window && w.closes; });
}

int ScriptedBoxes::show(const std::string& prompt, const std::string& title, unsigned style) {
    shown.push_back({prompt, title, style});
    if (answers.empty()) return ADD_FAILURE() << "unexpected message box: " << prompt, box::Ok;
    const int answer = answers.front();
    answers.pop_front();
    return answer;
}

std::string scanFigures(const ui::ScanWindow& window) {
    return window.Label6.caption() + " " + window.Label7.caption() + " " + window.Label8.caption() + " " +
           window.Label9.caption();
}

void prepareProgramFolder(FakePlatform& os, AppContext& ctx,
                          const std::vector<std::pair<std::string, std::string>>& settingsLines) {
    os.files.folders.insert({"C:\\TARVELON", "C:\\TARVELON\\DATA"});
    std::string text = newSettingsFileText();
    for (const auto& [line, replacement] : settingsLines)
        text = replaceText(text, "\r\n" + line + "\r\n", "\r\n" + replacement + "\r\n");
    ctx.appPath = "C:\\Tarvelon\\";
    ctx.settFile = ctx.appPath + "Data\\Tarvelon.dat";
    ctx.intFile = ctx.appPath + "Data\\Integrity.dat";
    os.files.put(ctx.settFile, text);
}

}  // namespace tv::test
