#include "core/whole_file.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "core/win32_error.h"

namespace hge {
namespace {

// A file that vanishes with its owner unless it was kept.
class TemporaryFile {
 public:
    // Beside path, so that the move to it is a rename.
    explicit TemporaryFile(const std::string& path)
        : path_(path + '.' + std::to_string(GetCurrentProcessId())) {
        file_ = CreateFileA(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                            nullptr);
    }
    ~TemporaryFile() {
        if (file_ == INVALID_HANDLE_VALUE) return;
        CloseHandle(file_);
        DeleteFileA(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    bool Write(const void* bytes, size_t size, Flush flush) {
        DWORD written = 0;
        return file_ != INVALID_HANDLE_VALUE &&
               WriteFile(file_, bytes, static_cast<DWORD>(size), &written, nullptr) && written == size &&
               (flush == Flush::kNo || FlushFileBuffers(file_));
    }

    bool MoveTo(const std::string& path, Flush flush) {
        CloseHandle(file_);
        file_ = INVALID_HANDLE_VALUE;
        DWORD flags = MOVEFILE_REPLACE_EXISTING | (flush == Flush::kYes ? MOVEFILE_WRITE_THROUGH : 0);
        if (MoveFileExA(path_.c_str(), path.c_str(), flags)) return true;
        DWORD error = GetLastError();
        DeleteFileA(path_.c_str());
        SetLastError(error);
        return false;
    }

 private:
    std::string path_;
    HANDLE file_;
};

}  // namespace

bool WriteWholeFile(const std::string& path, const void* bytes, size_t size, Flush flush,
                    std::string* reason) {
    TemporaryFile file(path);
    if (file.Write(bytes, size, flush) && file.MoveTo(path, flush)) return true;
    *reason = Win32ErrorText(GetLastError());
    return false;
}

}  // namespace hge
