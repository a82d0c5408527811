#include "text/known_characters.h"

#include <new>
#include <utility>

namespace code_page {
namespace {

// 0 unless the bytes are exactly one character of one unit.
wchar_t AskSystem(unsigned int code_page, const char* bytes, int count) {
    wchar_t units[4];
    int length = MultiByteToWideChar(code_page, MB_ERR_INVALID_CHARS, bytes, count, units, 4);
    return length == 1 ? units[0] : 0;
}

}  // namespace

KnownCharacters::KnownCharacters(unsigned int code_page) : code_page_(code_page), locale_(GetThreadLocale()) {
    CPINFO info = {};
    const bool double_byte = GetCPInfo(code_page, &info) && info.MaxCharSize == 2;
    for (int i = 0; double_byte && i < MAX_LEADBYTES && info.LeadByte[i]; i += 2)
        for (int lead = info.LeadByte[i]; lead <= info.LeadByte[i + 1]; ++lead)
            leads_[lead] = true;
    for (int byte = 1; byte < 256; ++byte) {
        const char text = static_cast<char>(byte);
        if (!leads_[byte]) single_[byte] = AskSystem(code_page, &text, 1);
    }
}

bool KnownCharacters::ToWide(const char* text, wchar_t* dest, int size) {
    for (const wchar_t* end = dest + size; dest != end; ++dest) {
        const auto byte = static_cast<unsigned char>(*text++);
        if (byte == 0) {
            *dest = 0;
            return true;
        }
        *dest = leads_[byte] ? Unit(byte, static_cast<unsigned char>(*text)) : single_[byte];
        if (*dest == 0) return false;
        if (leads_[byte]) ++text;
    }
    return false;
}

wchar_t KnownCharacters::Unit(unsigned char lead, unsigned char trail) {
    if (!pairs_[lead]) Learn(lead);
    return pairs_[lead] ? pairs_[lead]->unit[trail] : 0;
}

void KnownCharacters::Learn(unsigned char lead) {
    std::unique_ptr<Pairs> pairs(new (std::nothrow) Pairs());
    if (!pairs) return;
    for (int trail = 1; trail < 256; ++trail) {
        const char text[] = {static_cast<char>(lead), static_cast<char>(trail)};
        pairs->unit[trail] = AskSystem(code_page_, text, 2);
    }
    pairs_[lead] = std::move(pairs);
}

}  // namespace code_page
