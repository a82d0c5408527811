#pragma once

#include "fuzz.h"
#include "resources/file_names.h"

inline bool IsLeadByte(unsigned char byte) {
    return byte >= 0x81 && byte <= 0xFE;
}

// Like 936 for names; of UTF-8, only what is plain text has a form in it.
inline const hge::CodePage& FuzzCodePage() {
    static const hge::CodePage page{IsLeadByte, [](const std::string& text) {
                                        for (char c : text)
                                            if (static_cast<unsigned char>(c) >= 0x80) return std::string();
                                        return text;
                                    }};
    return page;
}
