#pragma once

#include <windows.h>

#include <cstdint>

namespace hge {

// The steady clock and the wait for a point of it, finer than the system's 15.6 ms timer step.
class FrameWaiter {
 public:
    FrameWaiter();
    ~FrameWaiter();
    FrameWaiter(const FrameWaiter&) = delete;
    FrameWaiter& operator=(const FrameWaiter&) = delete;

    static int64_t Now();
    static int64_t TicksPerSecond();

    // Returns at tick, or at once when it has passed.
    void WaitUntil(int64_t tick);

 private:
    enum Way { kTimer, kDelay, kWays };

    void Sleep(int64_t ticks);
    Way Closest() const;
    void SleepOn(Way way, int64_t ticks);

    HANDLE timer_;
    bool raised_period_ = false;
    // How late each way woke up in its first tries, in ticks together.
    int tries_[kWays] = {};
    int64_t late_[kWays] = {};
};

}  // namespace hge
