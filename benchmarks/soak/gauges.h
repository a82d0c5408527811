#pragma once

#include <array>

namespace soak {

// What must not grow, with the growth that is allowed: pages that the allocators keep, and objects of the
// system's that come and go by themselves.
struct GaugeKind {
    const char* name;
    long slack;
};
constexpr GaugeKind kGauges[] = {{"memory KB", 8192}, {"heap KB", 256},  {"gdi", 2},     {"user", 0},
                                 {"handles", 4},      {"textures", 0},   {"targets", 0}, {"blocks", 0},
                                 {"packs", 0},        {"references", 0}, {"effects", 0}, {"streams", 0},
                                 {"channels", 0}};
constexpr std::size_t kMemory = 0, kHandles = 4;
using Gauges = std::array<long, std::size(kGauges)>;

// Of this process and its framework, now.
Gauges ReadGauges();

}  // namespace soak
