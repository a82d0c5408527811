#pragma once

#include <exception>

// The run-time library takes memory for a thread's first exception, and ends the program when there is none:
// called while there is some.
void PrepareExceptions();
// One line in the framework's log: what failed for lack of memory, or what was thrown.
void ReportTrouble(const char* operation, const std::exception* problem = nullptr) noexcept;

// The DLL's edge: nothing is thrown out of an operation, which then gives 0, false, null or an empty text.
template <class F>
auto Safely(const char* operation, F&& body) noexcept -> decltype(body()) {
    try {
        return body();
    } catch (const std::exception& problem) {
        ReportTrouble(operation, &problem);
    }
    return decltype(body())();
}
