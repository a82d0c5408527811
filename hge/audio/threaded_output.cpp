#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "audio/output_driver.h"

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
        thread_ = std::thread([this, &feed, rate] { Run(feed, rate); });
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
    void Run(SoundFeed& feed, uint32_t rate) {
        OutputDriver driver(feed, device_.get(), rate, Now());
        while (Publish(driver, driver.Step(Now()))) {
        }
        driver.Close();
    }

    // Waits out the pause; false when it is time to stop.
    bool Publish(OutputDriver& driver, double pause) {
        std::string notice = driver.TakeNotice();
        std::unique_lock lock(mutex_);
        if (!notice.empty()) notice_ = std::move(notice);
        if (!std::exchange(tried_, true)) changed_.notify_all();
        if (pause > 0)
            changed_.wait_for(lock, std::chrono::duration<double>(pause), [this] { return stopping_; });
        return !stopping_;
    }

    std::unique_ptr<SoundDevice> device_;
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
