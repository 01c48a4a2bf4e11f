#pragma once
// The files of a folder (its path ends in "\"), in the system's listing order.
#include <windows.h>

#include <string>
#include <vector>

namespace tv::bench {

inline std::vector<std::string> filesOf(const std::string& folder) {
    std::vector<std::string> files;
    WIN32_FIND_DATAA found;
    HANDLE search = ::FindFirstFileA((folder + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return files;
    do {
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) files.push_back(folder + found.cFileName);
    } while (::FindNextFileA(search, &found));
    ::FindClose(search);
    return files;
}

}  // namespace tv::bench
