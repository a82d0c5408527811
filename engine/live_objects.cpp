#include "engine/live_objects.h"

namespace live {
namespace {

constexpr const char* kNames[kKinds] = {"control", "sprite",       "animation",
                                        "font",    "flash sprite", "flash player"};

int g_alive[kKinds] = {};

}  // namespace

void Born(Kind kind) {
    ++g_alive[kind];
}

void Gone(Kind kind) {
    --g_alive[kind];
}

std::string Text() {
    std::string text;
    for (int kind = 0; kind < kKinds; ++kind) {
        if (g_alive[kind] <= 0) continue;
        if (!text.empty()) text += ", ";
        text += std::to_string(g_alive[kind]) + ' ' + kNames[kind] + (g_alive[kind] > 1 ? "s" : "");
    }
    return text.empty() ? "nothing" : text;
}

}  // namespace live
