#pragma once

#include <functional>
#include <string>

namespace hge {

// The 8-bit code page that the host's names are in.
struct CodePage {
    // Whether a byte begins a two-byte character.
    std::function<bool(unsigned char)> is_lead_byte;
    // "" for text that is not UTF-8 or has characters that the code page lacks.
    std::function<std::string(const std::string&)> from_utf8;
};

// No two-byte characters; names stay the bytes that they are.
CodePage PlainBytes();

// The form under which names are compared: ASCII letters in lower case, "\" as "/", without leading "./".
// A second byte of a character is kept, also when it looks like a letter or a "\".
std::string FoldName(const std::string& name, const CodePage& code_page);

// With a drive or a leading slash.
bool IsAbsolute(const std::string& path);

}  // namespace hge
