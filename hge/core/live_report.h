#pragma once

#include <string>

#include "hgecounters.h"

namespace hge {

// What is still alive, by kind and count: "3 textures, 1 target"; "nothing".
std::string LiveText(const hgeCounters& counters);

}  // namespace hge
