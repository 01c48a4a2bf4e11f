// Files and folders. Paths are texts of the system's 8-bit code page. No call
// throws; each reports failure through its result and leaves no half-made state
// behind that it could have avoided.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv {

// One name of a folder's listing, and whether it names a folder.
struct FolderEntry {
    std::string name;
    bool isFolder = false;
};

// One file open for reading from its start, read in pieces.
class FileReader {
public:
    virtual ~FileReader() = default;
    // Reads up to `count` bytes into `into`: the number read, 0 at the end of the
    // file, nullopt when the system reports a failure.
    virtual std::optional<std::size_t> read(std::uint8_t* into, std::size_t count) = 0;
    // The file's length now, asked of the open file: nullopt when the system
    // cannot tell.
    virtual std::optional<std::uint64_t> size() = 0;
};

// One file kept open for adding bytes at its end. What append has written
// has reached the system when it returns, so it outlasts the end of the
// process, however the process ends.
class FileAppender {
public:
    virtual ~FileAppender() = default;
    virtual bool append(std::string_view bytes) = 0;
};

// A name of a listing with the length the listing gave for it.
struct ListedName {
    std::string name;
    std::uint64_t byteCount = 0;
};

class Files {
public:
    virtual ~Files() = default;

    // True when `path` is a file that this process can open for reading now.
    // Missing files, folders and files locked against reading by another
    // process all give false.
    virtual bool canRead(const std::string& path) const = 0;

    // True when `path` names an existing folder (a trailing backslash is allowed).
    virtual bool isFolder(const std::string& path) const = 0;

    // The whole content of a readable file; nullopt when it cannot be opened or read.
    virtual std::optional<std::string> readAll(const std::string& path) const = 0;

    // Creates the file, or empties an existing one, and writes `bytes`.
    // False when the file cannot be opened for writing or the write fails.
    virtual bool writeAll(const std::string& path, std::string_view bytes) = 0;

    // The same, and the bytes are flushed to the disk before it returns, so
    // that they outlast a crash or a power loss that comes after.
    virtual bool writeThrough(const std::string& path, std::string_view bytes) = 0;

    // Puts the file `from` in the place of `to` in one step, replacing it, and
    // writes the change through to the disk: whatever happens meanwhile, `to`
    // is afterwards either its former file or `from`'s, in full. False when it
    // cannot be done; both files are then as they were. (Windows 98 cannot
    // replace in one step: there `to` is deleted first, and for a moment only
    // `from` holds the new file.)
    virtual bool moveOver(const std::string& from, const std::string& to) = 0;

    // Makes a file that is not there yet and writes `bytes` into it. False
    // when a file of that name exists (it is left untouched) or on failure.
    virtual bool createNew(const std::string& path, std::string_view bytes) = 0;

    // Adds `bytes` at the end, creating a missing file. False on failure.
    virtual bool append(const std::string& path, std::string_view bytes) = 0;

    // Makes one folder (its parent must exist). False on failure, also when it exists.
    virtual bool makeFolder(const std::string& path) = 0;

    // Copies over an existing target. False on failure; the target is then unchanged
    // where the system allows.
    virtual bool copy(const std::string& from, const std::string& to) = 0;

    virtual bool remove(const std::string& path) = 0;

    // Opens a file for reading in pieces, front to back; nullptr when it cannot be
    // opened (missing, a folder, locked against reading).
    virtual std::unique_ptr<FileReader> openReader(const std::string& path) const = 0;

    // The directory listing, with one cursor for the whole process, as the walks
    // over a folder use it: firstName starts listing `folder` (ending in a
    // backslash) and gives the first name, nextName the following ones, in the
    // system's order. Empty text when none is left or the folder cannot be listed.
    // Folders come with the files, "." and ".." among them, and every name is
    // listed whatever its attributes (hidden and system files too). Starting a
    // new listing ends the one before.
    virtual std::string firstName(const std::string& folder) = 0;
    virtual std::string nextName() = 0;

    // The name `ahead` places behind the last one given (0: the one nextName
    // gives next), read from the system now and given later by nextName all
    // the same; nullptr when the listing ends before it. Valid until the next
    // call on the listing. Without this, nothing can be read ahead.
    virtual const ListedName* peekName(std::size_t /*ahead*/) { return nullptr; }

    // Opens `path` (made when missing) for adding at its end; nullptr when it
    // cannot be opened. Without a way of its own, each append opens the file anew.
    virtual std::unique_ptr<FileAppender> openAppender(const std::string& path);

    // Length in bytes, nullopt when the file cannot be found.
    virtual std::optional<std::uint64_t> length(const std::string& path) const = 0;

    // UTF-16 text, as some files hold it, spelled in the code page of the
    // paths; a character the code page has no letter for becomes what the
    // system makes of it (mostly "?"). This portable form keeps ASCII only;
    // the system's own files override it.
    virtual std::string codePageText(std::u16string_view units) const {
        std::string text;
        for (const char16_t unit : units) text += unit < 0x80 ? static_cast<char>(unit) : '?';
        return text;
    }

    // The whole listing of `folder` (ending in a backslash) in the system's
    // order, without "." and "..", each name with whether it is a folder;
    // empty when it cannot be listed (as by a store that keeps no folders).
    // It has a cursor of its own, so walks may nest it in each other and in
    // the one-cursor listing above.
    virtual std::vector<FolderEntry> listFolder(const std::string&) const { return {}; }

    // What the folder itself is on its volume, the same whichever path leads
    // to it (through a junction or a mounted folder, say); empty text when the
    // system cannot tell, as on the Windows 9x family.
    virtual std::string folderIdentity(const std::string&) const { return {}; }
};

inline std::unique_ptr<FileAppender> Files::openAppender(const std::string& path) {
    class ByName final : public FileAppender {
    public:
        ByName(Files& files, std::string path) : files_(files), path_(std::move(path)) {}
        bool append(std::string_view bytes) override { return files_.append(path_, bytes); }

    private:
        Files& files_;
        std::string path_;
    };
    if (!append(path, "")) return nullptr;
    return std::make_unique<ByName>(*this, path);
}

}  // namespace tv
