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
    void Sleep(int64_t ticks);

    HANDLE timer_;
    bool raised_period_ = false;
};

}  // namespace hge
