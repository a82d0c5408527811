#pragma once

#include <cstddef>
#include <functional>

// Where a text that is longer than limit bytes may be cut: how many of its first limit bytes are whole
// characters.
namespace code_page {

std::size_t WholeUtf8(const char* text, std::size_t limit);

// For code pages of one byte and two. is_lead_byte: whether a byte begins a character of two.
std::size_t WholeDoubleBytes(const char* text, std::size_t limit,
                             const std::function<bool(unsigned char)>& is_lead_byte);

}  // namespace code_page
