#pragma once

namespace hge {

// English name of a virtual key code or mouse button; "" for an unknown one.
const char* KeyName(int key);

}  // namespace hge
