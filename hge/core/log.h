#pragma once

#include <cstdarg>
#include <cstdio>
#include <memory>
#include <string>
#include <unordered_set>

namespace hge {

// The log file and the text of the last failure. Works without a file: lines are dropped, failures kept.
// Reports what has gone wrong when there is no memory, too: nothing here throws, long lines are then cut.
class Log {
 public:
    Log() { last_error_.reserve(kShortLine); }
    // Starts the file afresh; false when it cannot be written.
    bool Open(const std::string& path) noexcept;
    void Close() noexcept;

    void Write(const char* format, ...) noexcept __attribute__((format(printf, 2, 3)));
    void WriteV(const char* format, va_list args) noexcept;
    // A failure: goes to the log and becomes the last error.
    void Fail(const char* format, ...) noexcept __attribute__((format(printf, 2, 3)));
    // Writes a line the first time that key is seen since Open; for faults that repeat every frame.
    void WriteOnce(const std::string& key, const char* format, ...) noexcept
        __attribute__((format(printf, 3, 4)));

    const std::string& LastError() const { return last_error_; }
    char* LastErrorText() { return last_error_.data(); }

 private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    class Line;
    static constexpr size_t kShortLine = 512;
    void WriteLine(const Line& line) noexcept;
    bool IsNew(const std::string& key) noexcept;

    std::unique_ptr<std::FILE, CloseFile> file_;
    std::string last_error_;
    std::unordered_set<std::string> seen_;
};

}  // namespace hge
