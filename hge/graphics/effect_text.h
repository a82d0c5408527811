#pragma once

#include <cstddef>
#include <string>

namespace hge {

// The name under which the compiler knows an effect's text.
inline constexpr char kEffectTextName[] = "effect";
inline constexpr char kEffectEntry[] = "Effect";

// What the compiler gets for the bytes of an effect file. False with the reason when they are no text.
bool MakeEffectText(const void* bytes, size_t size, std::string* text, std::string* reason);

// The compiler's messages, which need not end with a NUL, with the places of the file called name.
std::string EffectMessages(const std::string& messages, const std::string& name);

}  // namespace hge
