// The system's folders, short file names and the two choice dialogs. Every
// call gives empty text where the system gives nothing; the program's own
// rules on top of these answers live with their callers.
#pragma once

#include <cstdint>
#include <string>

namespace tv {

using NativeWindow = std::uintptr_t;  // a window handle as a number; 0 for none

class Shell {
public:
    virtual ~Shell() = default;

    // The system directory as the system reports it, read into a buffer of
    // `charCount` characters; empty when the call fails.
    virtual std::string systemDirectory(std::size_t charCount) const = 0;

    // The buffer of `charCount` characters as the Windows directory call left it
    // (zero-filled before the call), so that its caller can look for the end itself.
    virtual std::string windowsDirectoryBuffer(std::size_t charCount) const = 0;

    // The special folder with this folder number (CSIDL), read into `charCount`
    // zero characters and cut at the first zero; empty when the system has none.
    virtual std::string specialFolder(int csidl, std::size_t charCount) const = 0;

    // The open-file dialog. On a choice: the whole file buffer of `bufferChars`
    // characters, the name followed by the zero characters behind it; on cancel
    // empty text.
    virtual std::string openFileDialog(NativeWindow owner, const std::string& title,
                                       const std::string& filter, std::size_t bufferChars) = 0;

    // The folder dialog, file-system folders only. The chosen folder, or empty text.
    virtual std::string browseForFolder(const std::string& title) = 0;

    // A buffer of `charCount` blanks as the short (8.3) path call left it: the
    // short name and a zero character in front of the remaining blanks, or all
    // blanks when the call fails.
    virtual std::string shortPathBuffer(const std::string& path, std::size_t charCount) const = 0;

    // Opens `file` (a document, a web address, a mail link) with its program,
    // from the folder `folder` (may be empty), in a normal window owned by the
    // desktop. The system's result number: above 32 when it went well.
    virtual int openDocument(const std::string& verb, const std::string& file, const std::string& folder) = 0;
};

}  // namespace tv
