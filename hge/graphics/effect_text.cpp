#include "graphics/effect_text.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace hge {

namespace {

// Macros, and none inside another: one of the compilers in use neither calls functions nor hands arguments on
// from macro to macro. Stored colours are straight but for those of targets; _alpha makes all premultiplied.
constexpr std::string_view kPrelude = R"(
cbuffer EffectValues : register(b0)
{
    float4 first_place;
    float4 second_place;
    float4 first_reach;
    float4 second_reach;
    float4 first_alpha;
    float4 second_alpha;
    float2 first_size;
    float2 second_size;
    float2 screen_size;
    float first_slice;
    float second_slice;
    float time;
};
struct Fragment
{
    float4 place : SV_POSITION;
    float4 color : COLOR0;
    float2 uv : TEXCOORD0;
};
Texture2DArray first_pages : register(t0);
Texture2DArray second_pages : register(t1);
SamplerState first_sampler : register(s0);
SamplerState second_sampler : register(s1);
#define First(uv_) (first_pages.Sample(first_sampler, float3(clamp(uv_, first_reach.xy, first_reach.zw) * first_place.xy + first_place.zw, first_slice)) * max(first_pages.Sample(first_sampler, float3(clamp(uv_, first_reach.xy, first_reach.zw) * first_place.xy + first_place.zw, first_slice)).aaaa, first_alpha))
#define Second(uv_) (second_pages.Sample(second_sampler, float3(clamp(uv_, second_reach.xy, second_reach.zw) * second_place.xy + second_place.zw, second_slice)) * max(second_pages.Sample(second_sampler, float3(clamp(uv_, second_reach.xy, second_reach.zw) * second_place.xy + second_place.zw, second_slice)).aaaa, second_alpha))
#define Tinted(texel_, color_) ((texel_) * float4((color_).rgb * (color_).a, (color_).a))
)";
constexpr long kPreludeLines = std::count(kPrelude.begin(), kPrelude.end(), '\n');

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool IsForeign(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

// Comments may be in any code page, of which compilers know nothing. The second byte of an ideograph may look
// like a backslash and would glue a line to the next.
void HideForeignCharacters(std::string* text) {
    bool after_foreign = false;
    for (char& c : *text) {
        bool foreign = IsForeign(c);
        if (foreign || (after_foreign && c == '\\')) c = '?';
        after_foreign = foreign;
    }
}

// "effect:34:10: ..." or "C:\folder\effect(34,10-12): ...": where the line's number begins; npos without one.
size_t FindPlace(std::string_view line) {
    constexpr std::string_view kName = kEffectTextName;
    for (size_t at = line.find(kName); at != line.npos; at = line.find(kName, at + 1)) {
        size_t number = at + kName.size() + 1;
        bool begins = at == 0 || line[at - 1] == '\\' || line[at - 1] == '/';
        if (begins && number <= line.size() && (line[number - 1] == ':' || line[number - 1] == '('))
            return number;
    }
    return line.npos;
}

std::string InTermsOfFile(std::string_view line, const std::string& name) {
    size_t number = FindPlace(line);
    if (number == line.npos) return std::string(line);
    std::string moved = name + line[number - 1];
    size_t end = std::min(line.find_first_not_of("0123456789", number), line.size());
    long long in_text = 0;
    // What is no line of a text, a file can have written into the messages by its own directives: it stays.
    bool is_line = std::from_chars(line.data() + number, line.data() + end, in_text).ec == std::errc();
    if (is_line) moved += std::to_string(in_text - kPreludeLines);
    return moved.append(line.substr(is_line ? end : number));
}

}  // namespace

bool MakeEffectText(const void* bytes, size_t size, std::string* text, std::string* reason) {
    std::string_view file(static_cast<const char*>(bytes), size);
    if (file.substr(0, kUtf8Mark.size()) == kUtf8Mark) file.remove_prefix(kUtf8Mark.size());
    if (file.find('\0') != file.npos)
        *reason = "it holds bytes that are no text";
    else if (file.find_first_not_of(" \t\r\n") == file.npos)
        *reason = "it is empty";
    else
        reason->clear();
    if (!reason->empty()) return false;
    std::string own(file);
    HideForeignCharacters(&own);
    text->assign(kPrelude).append(own);
    return true;
}

std::string EffectMessages(const std::string& messages, const std::string& name) {
    std::string_view rest(messages);
    rest = rest.substr(0, rest.find('\0'));
    std::string moved;
    while (!rest.empty()) {
        size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
        if (end > 0) moved += (moved.empty() ? "" : "; ") + InTermsOfFile(rest.substr(0, end), name);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return moved.empty() ? "the compiler does not say why" : moved;
}

}  // namespace hge
