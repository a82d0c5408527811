#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace hge {

// Replaces a file on a thread of its own, so that a busy disk does not hold up a frame.
class BackgroundWriter {
 public:
    BackgroundWriter() = default;
    // Waits until all is written.
    ~BackgroundWriter();
    BackgroundWriter(const BackgroundWriter&) = delete;
    BackgroundWriter& operator=(const BackgroundWriter&) = delete;

    // The file is written whole or not at all. Text that was not begun yet gives way to this one.
    void Write(const std::string& path, std::string text);
    // False when text is still under way after that time.
    bool Wait(std::chrono::milliseconds longest);
    void WaitForAll();
    // What is on its way to the file; null when nothing is.
    std::shared_ptr<const std::string> UnderWay();
    // Why the last write failed, told once; "" when it did not.
    std::string TakeReason();

 private:
    struct Job {
        std::string path, text;
    };
    void Start();
    void Run() noexcept;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::shared_ptr<const Job> job_;
    std::string reason_;
    bool stopping_ = false;
    std::thread thread_;
};

}  // namespace hge
