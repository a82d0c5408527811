#include "resources/folder_search.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace hge {
namespace {

bool IsFolder(const WIN32_FIND_DATAA& found) {
    return found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
}

bool IsDots(const std::string& name) {
    return name == "." || name == "..";
}

}  // namespace

char* FolderSearch::First(const std::string& path) {
    Close();
    WIN32_FIND_DATAA found;
    HANDLE handle = FindFirstFileA(path.c_str(), &found);
    if (handle == INVALID_HANDLE_VALUE) return nullptr;
    handle_ = handle;
    char* name = Take(&found);
    return name ? name : Next();
}

char* FolderSearch::Next() {
    WIN32_FIND_DATAA found;
    while (handle_ && FindNextFileA(handle_, &found))
        if (char* name = Take(&found)) return name;
    Close();
    return nullptr;
}

void FolderSearch::Close() {
    if (handle_) FindClose(handle_);
    handle_ = nullptr;
}

// Null when what was found is not of the kind that is looked for.
char* FolderSearch::Take(const void* data) {
    const auto& found = *static_cast<const WIN32_FIND_DATAA*>(data);
    name_ = found.cFileName;
    if (IsFolder(found) != (kind_ == Kind::kFolders) || IsDots(name_)) return nullptr;
    return name_.data();
}

}  // namespace hge
