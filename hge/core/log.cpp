#include "core/log.h"

#include <chrono>
#include <ctime>
#include <exception>
#include <new>

namespace hge {
namespace {

// Keys may carry handles or names of the host: what is remembered of them stays bounded.
constexpr size_t kMaxSeenKeys = 4096;

struct Stamp {
    char text[16];
};

Stamp LocalTime() {
    using std::chrono::system_clock;
    auto now = system_clock::now();
    std::time_t seconds = system_clock::to_time_t(now);
    auto since_epoch = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch());
    Stamp stamp{};
    if (std::tm* local = std::localtime(&seconds)) {
        size_t length = std::strftime(stamp.text, sizeof stamp.text, "%H:%M:%S", local);
        std::snprintf(stamp.text + length, sizeof stamp.text - length, ".%03d",
                      static_cast<int>(since_epoch.count() % 1000));
    }
    return stamp;
}

}  // namespace

// A formatted text: on the stack, or on the heap when it is long and there is memory.
class Log::Line {
 public:
    Line(const char* format, va_list args) noexcept {
        if (!format) return;
        va_list again;
        va_copy(again, args);
        int length = std::vsnprintf(short_, kShortLine, format, args);
        if (length >= static_cast<int>(kShortLine)) WriteLong(static_cast<size_t>(length), format, again);
        va_end(again);
    }
    const char* text() const { return long_ ? long_.get() : short_; }

 private:
    void WriteLong(size_t length, const char* format, va_list args) noexcept {
        long_.reset(new (std::nothrow) char[length + 1]);
        if (long_) std::vsnprintf(long_.get(), length + 1, format, args);
    }

    char short_[kShortLine] = "";
    std::unique_ptr<char[]> long_;
};

bool Log::Open(const std::string& path) noexcept {
    Close();
    seen_.clear();
    if (path.empty()) return false;
    file_.reset(std::fopen(path.c_str(), "w"));
    return file_ != nullptr;
}

void Log::Close() noexcept {
    file_.reset();
}

void Log::Write(const char* format, ...) noexcept {
    va_list args;
    va_start(args, format);
    WriteV(format, args);
    va_end(args);
}

void Log::WriteV(const char* format, va_list args) noexcept {
    WriteLine(Line(format, args));
}

void Log::Fail(const char* format, ...) noexcept {
    va_list args;
    va_start(args, format);
    Line line(format, args);
    va_end(args);
    try {
        last_error_ = line.text();
    } catch (const std::exception&) {
        // Its room is never smaller than a short line.
        last_error_.assign(line.text(), kShortLine - 1);
    }
    WriteLine(line);
}

void Log::WriteOnce(const std::string& key, const char* format, ...) noexcept {
    if (!IsNew(key)) return;
    va_list args;
    va_start(args, format);
    WriteV(format, args);
    va_end(args);
}

bool Log::IsNew(const std::string& key) noexcept {
    try {
        return seen_.size() < kMaxSeenKeys && seen_.insert(key).second;
    } catch (const std::exception&) {
        return false;
    }
}

void Log::WriteLine(const Line& line) noexcept {
    if (!file_) return;
    std::fprintf(file_.get(), "%s %s\n", LocalTime().text, line.text());
    // A program that crashes right after must have left its last line.
    std::fflush(file_.get());
}

}  // namespace hge
