#include "core/frame_waiter.h"

#include <mmsystem.h>

#include <algorithm>

#ifndef CREATE_WAITABLE_TIMER_HIGH_RESOLUTION
#define CREATE_WAITABLE_TIMER_HIGH_RESOLUTION 0x00000002
#endif

namespace hge {

namespace {

// The end of a wait is spun, because sleeping wakes up late. More than 0.5 ms would take more than 3 % of a
// core at 60 frames a second.
constexpr int64_t kSpinMicroseconds = 400;
constexpr int64_t kTimerUnitsPerSecond = 10'000'000;
// Windows wakes up closer on a timer of high resolution, Wine on a delay, as its timers go through another
// process: each is tried so often.
constexpr int kTries = 8;

using Delay = LONG(NTAPI*)(BOOLEAN alertable, const LARGE_INTEGER* interval);

// Sleep with units of 100 ns; null where the system has none.
Delay SystemDelay() {
    static const auto delay = reinterpret_cast<Delay>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtDelayExecution")));
    return delay;
}

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
    const Way way = Closest();
    const int64_t due = Now() + ticks;
    SleepOn(way, ticks);
    if (tries_[way] == kTries) return;
    ++tries_[way];
    // Waking up later than 2 ms is another program's doing.
    late_[way] += std::min(Now() - due, TicksPerSecond() / 500);
}

FrameWaiter::Way FrameWaiter::Closest() const {
    if (!SystemDelay()) return kTimer;
    if (!timer_) return kDelay;
    if (tries_[kTimer] < kTries || tries_[kDelay] < kTries)
        return tries_[kTimer] <= tries_[kDelay] ? kTimer : kDelay;
    return late_[kTimer] <= late_[kDelay] ? kTimer : kDelay;
}

void FrameWaiter::SleepOn(Way way, int64_t ticks) {
    LARGE_INTEGER due;
    due.QuadPart = -(ticks * kTimerUnitsPerSecond / TicksPerSecond());
    if (way == kDelay)
        SystemDelay()(FALSE, &due);
    else if (timer_ && SetWaitableTimer(timer_, &due, 0, nullptr, nullptr, FALSE))
        WaitForSingleObject(timer_, INFINITE);
    else
        ::Sleep(static_cast<DWORD>(ticks * 1000 / TicksPerSecond()));
}

}  // namespace hge
