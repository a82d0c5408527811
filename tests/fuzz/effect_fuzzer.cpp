#include <algorithm>

#include "fuzz.h"
#include "graphics/effect_text.h"

// The file as an effect, and as what a compiler has to say about one.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text, reason;
    bool made = hge::MakeEffectText(data, size, &text, &reason);
    PROMISED(made == reason.empty());
    // What stands before the file is ours.
    for (size_t i = text.size() - std::min(size, text.size()); i < text.size(); ++i)
        PROMISED(static_cast<unsigned char>(text[i]) < 0x80 && text[i]);
    std::string messages =
        hge::EffectMessages(std::string(reinterpret_cast<const char*>(data), size), "a.hlsl");
    PROMISED(!messages.empty() && messages.find_first_of("\r\n") == messages.npos);
    return 0;
}
