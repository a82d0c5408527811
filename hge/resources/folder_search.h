#pragma once

#include <string>

namespace hge {

// Walks the names that match a wildcard, one at a time.
class FolderSearch {
 public:
    enum class Kind { kFiles, kFolders };

    explicit FolderSearch(Kind kind) : kind_(kind) {}
    ~FolderSearch() { Close(); }
    FolderSearch(const FolderSearch&) = delete;
    FolderSearch& operator=(const FolderSearch&) = delete;

    // The first name (without its folder) that matches path, such as C:\game\*.png; null when there is none.
    // Names are valid until the next call.
    char* First(const std::string& path);
    // Null at the end, and from then on.
    char* Next();

 private:
    void Close();
    char* Take(const void* data);

    Kind kind_;
    void* handle_ = nullptr;
    std::string name_;
};

}  // namespace hge
