#pragma once

#include <string>

namespace hge {

// What Windows says about an error code (GetLastError or HRESULT), with the number.
std::string Win32ErrorText(unsigned long code);

}  // namespace hge
