#include "core/live_report.h"

namespace hge {

std::string LiveText(const hgeCounters& counters) {
    const struct {
        DWORD count;
        const char* kind;
    } holdings[] = {{counters.textures - counters.targets, "texture"},  // without the targets' own
                    {counters.targets, "target"},
                    {counters.effects, "effect"},
                    {counters.streams, "stream"},
                    {counters.channels, "channel"},
                    {counters.resource_blocks, "resource block"},
                    {counters.packs, "pack"}};
    std::string text;
    for (const auto& [count, kind] : holdings)
        if (count)
            text += (text.empty() ? "" : ", ") + std::to_string(count) + ' ' + kind + (count > 1 ? "s" : "");
    return text.empty() ? "nothing" : text;
}

}  // namespace hge
