#pragma once

// A test program that links clock_seams runs on this in place of the system's _time64, _localtime64 and
// GetSystemTimeAsFileTime; the code under test is not changed for it.
namespace clock_seams {

// What the clock shows until set again: seconds since 1970 and microseconds in UTC. Local time is ahead of it
// by seconds_east.
void Set(long long seconds, int microseconds, int seconds_east);

}  // namespace clock_seams
