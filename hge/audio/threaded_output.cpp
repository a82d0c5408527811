#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "audio/output_driver.h"
#include "core/exceptions.h"

namespace hge {
namespace {

double Now() {
    using std::chrono::steady_clock;
    return std::chrono::duration<double>(steady_clock::now().time_since_epoch()).count();
}

class ThreadedOutput final : public SoundOutput {
 public:
    explicit ThreadedOutput(std::unique_ptr<SoundDevice> device) : device_(std::move(device)) {}
    ~ThreadedOutput() override { Stop(); }

    void Start(SoundFeed& feed, uint32_t rate) override {
        Stop();
        stopping_ = tried_ = false;
        driver_.emplace(feed, device_.get(), rate, Now());
        thread_ = std::thread([this] { Run(); });
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return tried_; });
    }

    void Stop() override {
        if (!thread_.joinable()) return;
        {
            std::lock_guard lock(mutex_);
            stopping_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }

    std::string TakeNotice() override {
        std::lock_guard lock(mutex_);
        return std::exchange(notice_, {});
    }

 private:
    void Run() noexcept {
        PrepareExceptions();
        while (Publish(Step())) {
        }
        driver_->Close();
    }

    // Seconds until the next one. Without memory a block stays silent: the thread must live on.
    double Step() noexcept {
        try {
            return driver_->Step(Now());
        } catch (const std::exception&) {
            return 0.01;
        }
    }

    // Waits out the pause; false when it is time to stop.
    bool Publish(double pause) {
        std::string notice = driver_->TakeNotice();
        std::unique_lock lock(mutex_);
        if (!notice.empty()) notice_ = std::move(notice);
        if (!std::exchange(tried_, true)) changed_.notify_all();
        if (pause > 0)
            changed_.wait_for(lock, std::chrono::duration<double>(pause), [this] { return stopping_; });
        return !stopping_;
    }

    std::unique_ptr<SoundDevice> device_;
    std::optional<OutputDriver> driver_;
    std::thread thread_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool stopping_ = false;
    bool tried_ = false;
    std::string notice_;
};

}  // namespace

std::unique_ptr<SoundOutput> MakeThreadedOutput(std::unique_ptr<SoundDevice> device) {
    return std::make_unique<ThreadedOutput>(std::move(device));
}

}  // namespace hge
