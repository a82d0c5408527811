#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <mutex>

// What the system refuses the program under test, until told otherwise.
namespace fault_seams {

// The Direct3D device is removed: it makes nothing, maps nothing and shows nothing; a new one works once
// attempts of making it have failed. Works on the devices of this process.
void RemoveDevice(int attempts);
bool DeviceRemoved();

// WriteFile takes so many bytes more and then the disk is full; -1 for no limit.
void LimitDisk(long long bytes);
// WriteFile waits as long as the lock is held.
std::unique_lock<std::mutex> StallDisk();
// GetTickCount goes forward.
void AdvanceTicks(DWORD milliseconds);
// CoCreateInstance gives this for every class; S_OK for the truth.
void FailCom(HRESULT result);

}  // namespace fault_seams
