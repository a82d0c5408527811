#pragma once

#include <windows.h>

namespace training {

// The colours of texts, 0xAARRGGBB; make_pictures.sh has those of the pictures.
constexpr DWORD kInk = 0xFFF6F2E6;
constexpr DWORD kMuted = 0xFFA4AADC;
constexpr DWORD kAmber = 0xFFFFC857;
constexpr DWORD kTeal = 0xFF3DDBC2;
constexpr DWORD kCoral = 0xFFFF6B7A;

}  // namespace training
