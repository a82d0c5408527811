#pragma once

#include <windows.h>

#include <memory>

namespace code_page {

// What the system makes of the characters of one code page, asked once for each first byte: texts are
// converted in every frame, and the system takes longer over one than drawing it does.
class KnownCharacters {
 public:
    // code_page: CP_ACP, CP_THREAD_ACP or a number. Characters of more than two bytes are never known.
    explicit KnownCharacters(unsigned int code_page);

    // Whether these are the characters of that code page for the calling thread.
    bool Are(unsigned int code_page) const {
        return code_page == code_page_ && (code_page != CP_THREAD_ACP || GetThreadLocale() == locale_);
    }
    // Writes at most size units with the terminator. False, and dest is not to be used, when the text is too
    // long or has a character that the system must judge.
    bool ToWide(const char* text, wchar_t* dest, int size);

 private:
    struct Pairs {
        wchar_t unit[256];  // by second byte; 0: not known
    };

    wchar_t Unit(unsigned char lead, unsigned char trail);
    void Learn(unsigned char lead);

    unsigned int code_page_;
    LCID locale_;
    bool leads_[256] = {};
    wchar_t single_[256] = {};  // 0: not known
    std::unique_ptr<Pairs> pairs_[256];
};

}  // namespace code_page
