#include "core/background_writer.h"

#include <exception>
#include <system_error>
#include <utility>

#include "core/exceptions.h"
#include "core/whole_file.h"

namespace hge {
namespace {

// "" when it was written.
std::string TryToWrite(const std::string& path, const std::string& text) noexcept {
    std::string reason;
    try {
        if (WriteWholeFile(path, text.data(), text.size(), Flush::kNo, &reason)) return {};
    } catch (const std::exception&) {
        return "no memory";  // short enough to need none
    }
    return reason;
}

}  // namespace

BackgroundWriter::~BackgroundWriter() {
    if (!thread_.joinable()) return;
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void BackgroundWriter::Write(const std::string& path, std::string text) {
    auto job = std::make_shared<const Job>(Job{path, std::move(text)});
    Start();
    std::lock_guard lock(mutex_);
    if (!thread_.joinable()) {
        reason_ = TryToWrite(job->path, job->text);
        return;
    }
    job_ = std::move(job);
    changed_.notify_all();
}

// A system that has no thread left gets its files written at once.
void BackgroundWriter::Start() {
    if (thread_.joinable()) return;
    try {
        thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
    }
}

bool BackgroundWriter::Wait(std::chrono::milliseconds longest) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, longest, [this] { return !job_; });
}

void BackgroundWriter::WaitForAll() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !job_; });
}

std::shared_ptr<const std::string> BackgroundWriter::UnderWay() {
    std::lock_guard lock(mutex_);
    return job_ ? std::shared_ptr<const std::string>(job_, &job_->text) : nullptr;
}

std::string BackgroundWriter::TakeReason() {
    std::lock_guard lock(mutex_);
    return std::exchange(reason_, {});
}

void BackgroundWriter::Run() noexcept {
    PrepareExceptions();
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return job_ || stopping_; });
        if (!job_) return;
        auto job = job_;
        lock.unlock();
        std::string reason = TryToWrite(job->path, job->text);
        lock.lock();
        // A later text holds all that this one did.
        if (job_ != job) continue;
        reason_ = std::move(reason);
        job_.reset();
        changed_.notify_all();
    }
}

}  // namespace hge
