#include "text/whole_characters.h"

namespace code_page {
namespace {

bool IsContinuation(char byte) {
    return (byte & 0xC0) == 0x80;
}

}  // namespace

size_t WholeUtf8(const char* text, size_t limit) {
    while (limit > 0 && IsContinuation(text[limit]))
        --limit;
    return limit;
}

size_t WholeDoubleBytes(const char* text, size_t limit,
                        const std::function<bool(unsigned char)>& is_lead_byte) {
    size_t length = 0;
    while (length < limit) {
        size_t next = length + (is_lead_byte(static_cast<unsigned char>(text[length])) ? 2 : 1);
        if (next > limit) break;
        length = next;
    }
    return length;
}

}  // namespace code_page
