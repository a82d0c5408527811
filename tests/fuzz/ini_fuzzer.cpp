#include <cmath>

#include "core/ini_value.h"
#include "fuzz.h"

namespace {

// What the system's reader takes off a value.
std::string Stripped(std::string text) {
    size_t first = text.find_first_not_of(" \t");
    if (first == text.npos) return {};
    text = text.substr(first, text.find_last_not_of(" \t") - first + 1);
    bool quoted = text.size() > 1 && text.front() == text.back() && (text[0] == '"' || text[0] == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    PROMISED(Stripped(hge::QuotedIniValue(text)) == text);
    PROMISED(hge::UnquotedIniValue(hge::QuotedIniValue(text)) == text);
    int whole = 0;
    float broken = 0;
    if (!hge::ParseIniNumber(text, &whole)) PROMISED(whole == 0);
    hge::ParseIniNumber(text, &broken);
    PROMISED(std::isfinite(broken));
    return 0;
}
