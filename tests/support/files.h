#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "hge.h"

namespace test {

// The folder of the test program, with a backslash at its end.
inline std::string ProgramFolder() {
    char path[MAX_PATH];
    std::string text(path, GetModuleFileNameA(nullptr, path, MAX_PATH));
    return text.substr(0, text.find_last_of('\\') + 1);
}

// The bytes of a file; none where there is no file.
inline std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Full paths of the files (not folders) that a wildcard finds in a folder, whose name ends with a backslash.
inline std::vector<std::string> FilesIn(const std::string& folder, const std::string& wildcard) {
    std::vector<std::string> files;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA((folder + wildcard).c_str(), &found);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileA(search, &found))
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) files.push_back(folder + found.cFileName);
    FindClose(search);
    return files;
}

}  // namespace test
