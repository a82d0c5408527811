#include "audio/output_driver.h"

#include <new>
#include <utility>

namespace hge {
namespace {

constexpr double kClockStep = 0.01;

}  // namespace

OutputDriver::OutputDriver(SoundFeed& feed, SoundDevice* device, uint32_t rate, double now)
    : feed_(feed), device_(device), rate_(rate), next_try_(now), last_(now) {
    if (!device_) notice_ = "sound: off, channels run silently";
}

double OutputDriver::Step(double now) {
    if (!open_ && device_ && now >= next_try_) {
        TryOpen(now);
        return 0;
    }
    if (!open_) {
        SkipTo(now);
        return kClockStep;
    }
    switch (device_->Wait()) {
        case DeviceState::kHungry:
            Feed(now);
            break;
        case DeviceState::kBusy:
            if (now - last_ > kStarved) Lose(now);
            break;
        case DeviceState::kLost:
            Lose(now);
            break;
    }
    return 0;
}

void OutputDriver::Close() {
    if (std::exchange(open_, false)) device_->Close();
}

std::string OutputDriver::TakeNotice() {
    return std::exchange(notice_, {});
}

void OutputDriver::TryOpen(double now) {
    std::string text;
    next_try_ = now + kRetry;
    behind_ = true;
    open_ = device_->Open(rate_, &text) && MakeRoom(&text);
    if (open_) {
        last_failure_.clear();
        notice_ = "sound: " + text;
    } else if (std::exchange(last_failure_, text) != text) {
        notice_ = "sound: no device (" + text + "), channels run silently";
    }
}

bool OutputDriver::MakeRoom(std::string* text) {
    try {
        block_.resize(device_->block_frames() * 2);
        return true;
    } catch (const std::bad_alloc&) {
        device_->Close();
        *text = "out of memory";
        return false;
    }
}

void OutputDriver::Feed(double now) {
    if (std::exchange(behind_, false)) SkipTo(now);
    feed_.Render(block_.data(), device_->block_frames());
    last_ = now;
    if (!device_->Submit(block_.data())) Lose(now);
}

void OutputDriver::Lose(double now) {
    Close();
    notice_ = "sound: the device is gone, channels run silently until one is back";
    next_try_ = now + kRetry;
}

void OutputDriver::SkipTo(double now) {
    auto frames = static_cast<size_t>((now - last_) * rate_);
    if (frames == 0) return;
    feed_.Skip(frames);
    // What is left of a frame counts next time.
    last_ += static_cast<double>(frames) / rate_;
}

}  // namespace hge
