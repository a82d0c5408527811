#pragma once

#include <cstddef>
#include <string>

// Conversions between UTF-16 and the ANSI code pages. code_page: CP_ACP, CP_THREAD_ACP or a number.
namespace code_page {

// Copies what fits of text and fills the rest of the size bytes with zeros. Never cuts a character in two.
void CopyText(unsigned int code_page, char* dest, std::size_t size, const char* text);

// Writes at most size units with the terminator; an empty text when the conversion fails.
void ToWide(unsigned int code_page, const char* text, wchar_t* dest, int size);
std::wstring ToWide(unsigned int code_page, const char* text);

// An empty text when the conversion fails.
std::string FromWide(unsigned int code_page, const wchar_t* text);

// The text in the system's code page, or fallback when the code page lacks one of its characters.
std::string SystemText(const wchar_t* text, const char* fallback);

}  // namespace code_page
