#pragma once

#include <deque>

#include "platform/files.h"
#include "platform/win32/unique_handle.h"

namespace tv::win32 {

class Win32Files final : public Files {
public:
    bool canRead(const std::string& path) const override;
    bool isFolder(const std::string& path) const override;
    std::optional<std::string> readAll(const std::string& path) const override;
    bool writeAll(const std::string& path, std::string_view bytes) override;
    bool writeThrough(const std::string& path, std::string_view bytes) override;
    bool moveOver(const std::string& from, const std::string& to) override;
    bool createNew(const std::string& path, std::string_view bytes) override;
    bool append(const std::string& path, std::string_view bytes) override;
    bool makeFolder(const std::string& path) override;
    bool copy(const std::string& from, const std::string& to) override;
    bool remove(const std::string& path) override;
    std::unique_ptr<FileReader> openReader(const std::string& path) const override;
    std::unique_ptr<FileAppender> openAppender(const std::string& path) override;
    std::optional<std::uint64_t> length(const std::string& path) const override;
    std::string firstName(const std::string& folder) override;
    std::string nextName() override;
    std::string codePageText(std::u16string_view units) const override;
    const ListedName* peekName(std::size_t ahead) override;
    std::vector<FolderEntry> listFolder(const std::string& folder) const override;
    std::string folderIdentity(const std::string& folder) const override;

private:
    bool readNext();  // one more entry of the listing into ahead_

    UniqueFind listing_;           // the one directory cursor of the process
    bool wideListing_ = false;     // whether it goes on with the wide calls
    std::deque<ListedName> ahead_;  // entries read from it and not yet given
};

}  // namespace tv::win32
