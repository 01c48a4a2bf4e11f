#include "platform/win32/win32_files.h"

#include <algorithm>

#include "platform/win32/code_page_text.h"
#include "platform/win32/system_function.h"
#include "platform/win32/unique_handle.h"

namespace tv::win32 {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr int kFindExInfoStandard = 0;       // with the short names
constexpr DWORD kFindFirstExLargeFetch = 2;  // entries in large batches: Windows 7 and later

UniqueFile openForReading(const std::string& path) {
    return UniqueFile(::CreateFileA(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
}

bool isFolderAttribute(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool writeWhole(HANDLE file, std::string_view bytes) {
    while (!bytes.empty()) {
        const DWORD chunk = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 30));
        DWORD written = 0;
        if (!::WriteFile(file, bytes.data(), chunk, &written, nullptr) || written == 0) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

class Win32FileReader final : public FileReader {
public:
    explicit Win32FileReader(UniqueFile file) : file_(std::move(file)) {}
    std::optional<std::size_t> read(std::uint8_t* into, std::size_t count) override {
        std::size_t done = 0;
        while (done < count) {  // one call reads at most 4 GiB - 1
            const DWORD ask = static_cast<DWORD>(std::min<std::size_t>(count - done, 1u << 30));
            DWORD got = 0;
            if (!::ReadFile(file_.get(), into + done, ask, &got, nullptr)) return std::nullopt;
            if (got == 0) break;
            done += got;
        }
        return done;
    }
    std::optional<std::uint64_t> size() override {
        // GetFileSize rather than GetFileSizeEx, which Windows 98 lacks.
        DWORD high = 0;
        const DWORD low = ::GetFileSize(file_.get(), &high);
        if (low == INVALID_FILE_SIZE && ::GetLastError() != NO_ERROR) return std::nullopt;
        return (static_cast<std::uint64_t>(high) << 32) | low;
    }

private:
    UniqueFile file_;
};

class Win32FileAppender final : public FileAppender {
public:
    explicit Win32FileAppender(UniqueFile file) : file_(std::move(file)) {}
    bool append(std::string_view bytes) override { return writeWhole(file_.get(), bytes); }

private:
    UniqueFile file_;
};

// Opened for writing at its end: only this handle writes the file while it is
// open, so the end found once stays the end (FILE_APPEND_DATA is NT's only).
UniqueFile openForAppending(const std::string& path) {
    UniqueFile file(::CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    LONG high = 0;
    if (file.valid() && ::SetFilePointer(file.get(), 0, &high, FILE_END) == INVALID_SET_FILE_POINTER &&
        ::GetLastError() != NO_ERROR) {
        return UniqueFile();
    }
    return file;
}

// One entry of a listing, named as the program names files: in the code page.
struct Entry {
    std::string name;
    DWORD attributes = 0;
    std::uint64_t byteCount = 0;
};

std::uint64_t sizeOf(DWORD high, DWORD low) { return (static_cast<std::uint64_t>(high) << 32) | low; }

std::u16string_view unitsOf(const wchar_t* name) { return reinterpret_cast<const char16_t*>(name); }

// A name the code page cannot spell is written with "?" for a letter it
// lacks, or with a look-alike (a dotless "i" as "i"), and no call opens it by that
// spelling: such a file would be checked as unreadable whatever it held, or a
// neighbour of the look-alike name checked in its place. It goes by its short
// name, which opens, where the volume keeps one (the system's own does).
// Every other name is spelled as the ANSI listing spells it.
Entry entryOf(const WIN32_FIND_DATAW& found) {
    const std::u16string_view name = unitsOf(found.cFileName), shortName = unitsOf(found.cAlternateFileName);
    Entry entry{codePageText(name), found.dwFileAttributes, sizeOf(found.nFileSizeHigh, found.nFileSizeLow)};
    if (!spellsBack(entry.name, name) && !shortName.empty()) {
        std::string shortSpelling = codePageText(shortName);
        if (spellsBack(shortSpelling, shortName)) entry.name = std::move(shortSpelling);
    }
    return entry;
}

Entry entryOf(const WIN32_FIND_DATAA& found) {
    return {found.cFileName, found.dwFileAttributes, sizeOf(found.nFileSizeHigh, found.nFileSizeLow)};
}

// The listing calls: wide on the Windows NT family, where names are UTF-16,
// looked up because the Windows 9x family has stubs or nothing; there the
// code page's calls list what that system holds, which the code page spells.
struct ListingCalls {
    using FindFirstExW = HANDLE(WINAPI*)(LPCWSTR, FINDEX_INFO_LEVELS, LPVOID, FINDEX_SEARCH_OPS, LPVOID, DWORD);
    using FindNextW = BOOL(WINAPI*)(HANDLE, LPWIN32_FIND_DATAW);
    FindFirstExW firstWide = systemFunction<FindFirstExW>("kernel32.dll", "FindFirstFileExW");
    FindNextW nextWide = systemFunction<FindNextW>("kernel32.dll", "FindNextFileW");
};

const ListingCalls& listingCalls() {
    static const ListingCalls calls;
    return calls;
}

// Starts listing `folder` with its first entry; `wide` says which calls go on
// with it. Newer systems hand the entries over in large batches; Windows XP
// and Vista refuse the large batches and list the plain way.
HANDLE startListing(const std::string& folder, Entry& first, bool& wide) {
    const ListingCalls& calls = listingCalls();
    wide = calls.firstWide && calls.nextWide;
    if (wide) {
        const std::wstring widePattern = wideText(folder + "*");
        WIN32_FIND_DATAW found;
        HANDLE search = INVALID_HANDLE_VALUE;
        for (const DWORD batches : {kFindFirstExLargeFetch, DWORD{0}}) {
            search = calls.firstWide(widePattern.c_str(), static_cast<FINDEX_INFO_LEVELS>(kFindExInfoStandard), &found,
                                     FindExSearchNameMatch, nullptr, batches);
            if (search != INVALID_HANDLE_VALUE || ::GetLastError() != ERROR_INVALID_PARAMETER) break;
        }
        if (search != INVALID_HANDLE_VALUE) first = entryOf(found);
        if (search != INVALID_HANDLE_VALUE || ::GetLastError() != ERROR_CALL_NOT_IMPLEMENTED) return search;
        wide = false;
    }
    WIN32_FIND_DATAA found;
    HANDLE search = ::FindFirstFileA((folder + "*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) first = entryOf(found);
    return search;
}

bool nextEntry(HANDLE listing, bool wide, Entry& entry) {
    if (wide) {
        WIN32_FIND_DATAW found;
        if (!listingCalls().nextWide(listing, &found)) return false;
        entry = entryOf(found);
        return true;
    }
    WIN32_FIND_DATAA found;
    if (!::FindNextFileA(listing, &found)) return false;
    entry = entryOf(found);
    return true;
}

}  // namespace

// A folder cannot be opened this way: the open fails for it as for a missing file.
std::unique_ptr<FileReader> Win32Files::openReader(const std::string& path) const {
    UniqueFile file = openForReading(path);
    if (!file.valid()) return nullptr;
    return std::make_unique<Win32FileReader>(std::move(file));
}

std::unique_ptr<FileAppender> Win32Files::openAppender(const std::string& path) {
    UniqueFile file = openForAppending(path);
    if (!file.valid()) return nullptr;
    return std::make_unique<Win32FileAppender>(std::move(file));
}

bool Win32Files::canRead(const std::string& path) const {
    if (isFolderAttribute(::GetFileAttributesA(path.c_str()))) return false;
    return openForReading(path).valid();
}

bool Win32Files::isFolder(const std::string& path) const {
    return isFolderAttribute(::GetFileAttributesA(path.c_str()));
}

std::optional<std::string> Win32Files::readAll(const std::string& path) const {
    if (isFolder(path)) return std::nullopt;
    UniqueFile file = openForReading(path);
    if (!file.valid()) return std::nullopt;
    DWORD high = 0;
    const DWORD low = ::GetFileSize(file.get(), &high);
    if (low == INVALID_FILE_SIZE && ::GetLastError() != NO_ERROR) return std::nullopt;
    std::string text;
    char chunk[65536];
    text.reserve(static_cast<std::size_t>((static_cast<std::uint64_t>(high) << 32) | low));
    for (;;) {
        DWORD got = 0;
        if (!::ReadFile(file.get(), chunk, sizeof chunk, &got, nullptr)) return std::nullopt;
        if (got == 0) break;
        text.append(chunk, got);
    }
    return text;
}

bool Win32Files::writeAll(const std::string& path, std::string_view bytes) {
    UniqueFile file(::CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.valid() && writeWhole(file.get(), bytes);
}

bool Win32Files::writeThrough(const std::string& path, std::string_view bytes) {
    UniqueFile file(::CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.valid() && writeWhole(file.get(), bytes) && ::FlushFileBuffers(file.get());
}

bool Win32Files::moveOver(const std::string& from, const std::string& to) {
    using MoveFileEx = BOOL(WINAPI*)(LPCSTR, LPCSTR, DWORD);
    static const auto moveFileEx = systemFunction<MoveFileEx>("kernel32.dll", "MoveFileExA");
    if (moveFileEx) {
        if (moveFileEx(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) return true;
        if (::GetLastError() != ERROR_CALL_NOT_IMPLEMENTED) return false;
    }
    // Windows 98 has no replacing move.
    if (::GetFileAttributesA(to.c_str()) != INVALID_FILE_ATTRIBUTES && !::DeleteFileA(to.c_str())) return false;
    return ::MoveFileA(from.c_str(), to.c_str()) != 0;
}

bool Win32Files::createNew(const std::string& path, std::string_view bytes) {
    UniqueFile file(::CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.valid() && writeWhole(file.get(), bytes);
}

bool Win32Files::append(const std::string& path, std::string_view bytes) {
    UniqueFile file = openForAppending(path);
    return file.valid() && writeWhole(file.get(), bytes);
}

bool Win32Files::makeFolder(const std::string& path) {
    return ::CreateDirectoryA(path.c_str(), nullptr) != 0;
}

bool Win32Files::copy(const std::string& from, const std::string& to) {
    return ::CopyFileA(from.c_str(), to.c_str(), FALSE) != 0;
}

bool Win32Files::remove(const std::string& path) { return ::DeleteFileA(path.c_str()) != 0; }

// Every name the system lists is given, whatever its attributes: hidden and
// system files are where malware hides.
std::string Win32Files::firstName(const std::string& folder) {
    Entry first;
    ahead_.clear();
    listing_.reset(startListing(folder, first, wideListing_));
    if (!listing_.valid()) return {};
    return first.name;
}

std::string Win32Files::nextName() {
    if (ahead_.empty() && !readNext()) return {};
    std::string name = std::move(ahead_.front().name);
    ahead_.pop_front();
    return name;
}

const ListedName* Win32Files::peekName(std::size_t ahead) {
    while (ahead_.size() <= ahead)
        if (!readNext()) return nullptr;
    return &ahead_[ahead];
}

bool Win32Files::readNext() {
    Entry entry;
    if (!listing_.valid() || !nextEntry(listing_.get(), wideListing_, entry)) {
        listing_.reset();
        return false;
    }
    ahead_.push_back({std::move(entry.name), entry.byteCount});
    return true;
}

std::vector<FolderEntry> Win32Files::listFolder(const std::string& folder) const {
    std::vector<FolderEntry> entries;
    Entry entry;
    bool wide = false;
    UniqueFind listing(startListing(folder, entry, wide));
    if (!listing.valid()) return entries;
    do {
        if (entry.name != "." && entry.name != "..") entries.push_back({entry.name, isFolderAttribute(entry.attributes)});
    } while (nextEntry(listing.get(), wide, entry));
    return entries;
}

// The volume's serial number and the folder's index on it. A folder opens
// only with the backup flag, which the Windows 9x family does not know: there
// the answer is empty, and there are no junctions either. A file system that
// gives no index (some network drives) gives no identity.
std::string Win32Files::folderIdentity(const std::string& folder) const {
    UniqueFile handle(::CreateFileA(folder.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION info{};
    if (!handle.valid() || !::GetFileInformationByHandle(handle.get(), &info)) return {};
    if (info.nFileIndexHigh == 0 && info.nFileIndexLow == 0) return {};  // a file system without indexes
    return std::to_string(info.dwVolumeSerialNumber) + ":" + std::to_string(info.nFileIndexHigh) + ":" +
           std::to_string(info.nFileIndexLow);
}

std::optional<std::uint64_t> Win32Files::length(const std::string& path) const {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
    return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

std::string Win32Files::codePageText(std::u16string_view units) const { return win32::codePageText(units); }

}  // namespace tv::win32
