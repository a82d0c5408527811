#include "support/clock_seams.h"

#include <windows.h>

#include <ctime>

namespace {

long long g_seconds = 0;
int g_microseconds = 0;
int g_seconds_east = 0;

}  // namespace

// The linker takes these symbols from here and so never looks into the import libraries for them: the
// pointers serve calls through the import table, the functions direct ones (the C run-time's own).
extern "C" {
__time64_t FakeTime(__time64_t* time) __asm__("__time64");
tm* FakeLocalTime(const __time64_t* time) __asm__("__localtime64");
void WINAPI FakeGetSystemTime(FILETIME* time) __asm__("_GetSystemTimeAsFileTime@4");

__time64_t FakeTime(__time64_t* time) {
    if (time) *time = g_seconds;
    return g_seconds;
}
// Null before 1970, as the real one.
tm* FakeLocalTime(const __time64_t* time) {
    __time64_t local = *time + g_seconds_east;
    return *time < 0 ? nullptr : _gmtime64(&local);
}
void WINAPI FakeGetSystemTime(FILETIME* time) {
    long long ticks = (g_seconds * 1000000 + g_microseconds) * 10 + 116444736000000000;
    time->dwLowDateTime = static_cast<DWORD>(ticks);
    time->dwHighDateTime = static_cast<DWORD>(ticks >> 32);
}

__time64_t (*imported_time)(__time64_t*) __asm__("__imp___time64") = FakeTime;
tm* (*imported_local_time)(const __time64_t*)__asm__("__imp___localtime64") = FakeLocalTime;
void(WINAPI* imported_system_time)(FILETIME*) __asm__("__imp__GetSystemTimeAsFileTime@4") = FakeGetSystemTime;
}

namespace clock_seams {

void Set(long long seconds, int microseconds, int seconds_east) {
    g_seconds = seconds;
    g_microseconds = microseconds;
    g_seconds_east = seconds_east;
}

}  // namespace clock_seams
