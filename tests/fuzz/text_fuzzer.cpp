#include "code_page.h"
#include "gui/ellipsis.h"
#include "text/whole_characters.h"

namespace {

void CheckUtf8(const std::string& text, size_t limit) {
    size_t length = code_page::WholeUtf8(text.c_str(), limit);
    PROMISED(length <= limit && (length == 0 || (text[length] & 0xC0) != 0x80));
}

// No character begins before the cut and ends behind it, and none more would have fitted.
void CheckDoubleBytes(const std::string& text, size_t limit) {
    size_t length = code_page::WholeDoubleBytes(text.c_str(), limit, IsLeadByte);
    size_t at = 0;
    while (at < length)
        at += IsLeadByte(static_cast<unsigned char>(text[at])) ? 2 : 1;
    PROMISED(at == length && length <= limit && limit - length <= 1);
}

void CheckDots(const uint8_t* data, size_t size, int width) {
    std::wstring text;
    for (size_t i = 0; i + 1 < size; i += 2)
        text += static_cast<wchar_t>(data[i] << 8 | data[i + 1]);
    std::wstring whole = text;
    bool cut = CutWithDots(&text, static_cast<int>(text.size()) * 8, width, 16);
    PROMISED(cut ? text.ends_with(L'.') && text.size() <= whole.size() + 1 : text == whole);
}

}  // namespace

// The first byte says where to cut.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) return 0;
    std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    size_t limit = data[0] % text.size();
    CheckUtf8(text, limit);
    CheckDoubleBytes(text, limit);
    CheckDots(data + 1, size - 1, data[0]);
    return 0;
}
