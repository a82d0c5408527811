#include "core/frame_waiter.h"

#include <mmsystem.h>

#ifndef CREATE_WAITABLE_TIMER_HIGH_RESOLUTION
#define CREATE_WAITABLE_TIMER_HIGH_RESOLUTION 0x00000002
#endif

namespace hge {

namespace {

// The end of a wait is spun, because sleeping wakes up late: by about 0.5 ms on Windows, up to 1.1 ms on
// Wine. All of that would take more than 3 % of a core at 60 frames a second.
constexpr int64_t kSpinMicroseconds = 400;
constexpr int64_t kTimerUnitsPerSecond = 10'000'000;

}  // namespace

FrameWaiter::FrameWaiter()
    : timer_(
          CreateWaitableTimerExW(nullptr, nullptr, CREATE_WAITABLE_TIMER_HIGH_RESOLUTION, TIMER_ALL_ACCESS)) {
    if (timer_) return;
    timer_ = CreateWaitableTimerW(nullptr, TRUE, nullptr);
    raised_period_ = timeBeginPeriod(1) == TIMERR_NOERROR;
}

FrameWaiter::~FrameWaiter() {
    if (timer_) CloseHandle(timer_);
    if (raised_period_) timeEndPeriod(1);
}

int64_t FrameWaiter::Now() {
    LARGE_INTEGER ticks;
    QueryPerformanceCounter(&ticks);
    return ticks.QuadPart;
}

int64_t FrameWaiter::TicksPerSecond() {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
}

void FrameWaiter::WaitUntil(int64_t tick) {
    int64_t spin = TicksPerSecond() * kSpinMicroseconds / 1'000'000;
    int64_t left = tick - Now();
    if (left > spin) Sleep(left - spin);
    while (Now() < tick)
        YieldProcessor();
}

void FrameWaiter::Sleep(int64_t ticks) {
    LARGE_INTEGER due;
    due.QuadPart = -(ticks * kTimerUnitsPerSecond / TicksPerSecond());
    if (timer_ && SetWaitableTimer(timer_, &due, 0, nullptr, nullptr, FALSE))
        WaitForSingleObject(timer_, INFINITE);
    else
        ::Sleep(static_cast<DWORD>(ticks * 1000 / TicksPerSecond()));
}

}  // namespace hge
