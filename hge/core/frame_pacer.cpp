#include "core/frame_pacer.h"

#include <algorithm>

namespace hge {

namespace {

constexpr double kLongestDelta = 0.2;
// Stands for the frame time where no limit says what it is.
constexpr int kNominalFps = 60;

}  // namespace

FramePacer::FramePacer(int64_t ticks_per_second) : frequency_(std::max<int64_t>(ticks_per_second, 1)) {}

void FramePacer::SetFps(int fps) {
    limit_ = std::max(fps, 0);
    deadline_ = previous_ + Period();
}

void FramePacer::Restart(int64_t now) {
    Resume(now);
    count_start_ = now;
    counted_ = fps_ = 0;
    delta_ = 0;
    time_ = 0;
}

void FramePacer::Resume(int64_t now) {
    previous_ = deadline_ = now;
}

int64_t FramePacer::Period() const {
    return limit_ > 0 ? frequency_ / limit_ : 0;
}

int64_t FramePacer::DueTime(int64_t now) const {
    if (limit_ <= 0) return now;
    // A clock that was set back must not make a frame wait for long.
    return std::min(deadline_, now + Period());
}

void FramePacer::BeginFrame(int64_t now) {
    MeasureDelta(now);
    CountFrame(now);
    MoveDeadline(now);
    previous_ = now;
}

void FramePacer::MeasureDelta(int64_t now) {
    double seconds = static_cast<double>(now - previous_) / static_cast<double>(frequency_);
    if (seconds > kLongestDelta) seconds = 1.0 / (limit_ > 0 ? limit_ : kNominalFps);
    delta_ = static_cast<float>(std::max(seconds, 0.0));
    time_ += std::max(seconds, 0.0);
}

void FramePacer::CountFrame(int64_t now) {
    ++counted_;
    int64_t elapsed = now - count_start_;
    if (elapsed < frequency_) return;
    fps_ = static_cast<int>((counted_ * frequency_ + elapsed / 2) / elapsed);
    counted_ = 0;
    count_start_ = now;
}

// By whole periods, so that a late frame does not shift the ones after it; after a stall from now on.
void FramePacer::MoveDeadline(int64_t now) {
    deadline_ += Period();
    if (deadline_ <= now) deadline_ = now + Period();
}

}  // namespace hge
