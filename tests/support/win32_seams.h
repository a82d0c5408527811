#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <vector>

// A test program that links win32_seams runs on these in place of the system's GetTickCount,
// GetActiveWindow and PostQuitMessage; the code under test is not changed for it.
namespace win32_seams {

// Milliseconds; stands still until set.
void SetTick(DWORD tick);
void AdvanceTick(DWORD milliseconds);
void SetActiveWindow(HWND window);
// Exit codes of PostQuitMessage, in order.
const std::vector<int>& QuitMessages();
// Tick 0, no active window, no quit messages.
void Reset();

}  // namespace win32_seams
