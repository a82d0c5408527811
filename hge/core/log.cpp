#include "core/log.h"

#include <chrono>
#include <ctime>

namespace hge {
namespace {

// Keys may carry handles or names of the host: what is remembered of them stays bounded.
constexpr size_t kMaxSeenKeys = 4096;

std::string Format(const char* format, va_list args) {
    if (!format) return {};
    va_list measure;
    va_copy(measure, args);
    int length = std::vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    if (length <= 0) return {};
    std::string text(static_cast<size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, args);
    return text;
}

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

bool Log::Open(const std::string& path) {
    Close();
    seen_.clear();
    if (path.empty()) return false;
    file_.reset(std::fopen(path.c_str(), "w"));
    return file_ != nullptr;
}

void Log::Close() {
    file_.reset();
}

void Log::Write(const char* format, ...) {
    va_list args;
    va_start(args, format);
    WriteV(format, args);
    va_end(args);
}

void Log::WriteV(const char* format, va_list args) {
    WriteLine(Format(format, args));
}

void Log::Fail(const char* format, ...) {
    va_list args;
    va_start(args, format);
    last_error_ = Format(format, args);
    va_end(args);
    WriteLine(last_error_);
}

void Log::WriteOnce(const std::string& key, const char* format, ...) {
    if (seen_.size() >= kMaxSeenKeys || !seen_.insert(key).second) return;
    va_list args;
    va_start(args, format);
    WriteV(format, args);
    va_end(args);
}

void Log::WriteLine(const std::string& text) {
    if (!file_) return;
    std::fprintf(file_.get(), "%s %s\n", LocalTime().text, text.c_str());
    // A program that crashes right after must have left its last line.
    std::fflush(file_.get());
}

}  // namespace hge
