#pragma once

#include <cstdint>

namespace hge {

// Decides when a frame is due and what its delta is. Times are ticks of one steady clock.
class FramePacer {
 public:
    explicit FramePacer(int64_t ticks_per_second);

    // Frames per second; 0 or less: a frame is always due.
    void SetFps(int fps);
    // Forgets everything measured; the next frame is due at now.
    void Restart(int64_t now);
    // The next frame is due at now and its delta counts from there; the summed time stays.
    void Resume(int64_t now);

    // When the next frame is due, at latest now plus one frame time; now when there is no limit.
    int64_t DueTime(int64_t now) const;
    void BeginFrame(int64_t now);

    // Seconds of the last frame; a gap of more than 0.2 s counts as one frame time.
    float delta() const { return delta_; }
    // Seconds summed over frames.
    float time() const { return static_cast<float>(time_); }
    // Frames counted in the last full second.
    int fps() const { return fps_; }

 private:
    int64_t Period() const;
    void MeasureDelta(int64_t now);
    void CountFrame(int64_t now);
    void MoveDeadline(int64_t now);

    int64_t frequency_;
    int limit_ = 0;
    int64_t previous_ = 0;
    int64_t deadline_ = 0;
    int64_t count_start_ = 0;
    int counted_ = 0;
    int fps_ = 0;
    float delta_ = 0;
    double time_ = 0;
};

}  // namespace hge
