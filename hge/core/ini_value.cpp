#include "core/ini_value.h"

#include <charconv>
#include <cmath>

namespace hge {
namespace {

bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

// Such a value gets a pair of quotes to lose.
bool NeedsQuotes(const std::string& value) {
    if (value.empty()) return false;
    char first = value.front(), last = value.back();
    return IsSpace(first) || IsSpace(last) || first == '"' || first == '\'';
}

template <class T>
bool Parse(const std::string& text, T* value) {
    const char* begin = text.data();
    const char* end = begin + text.size();
    while (begin != end && (IsSpace(*begin) || *begin == '+'))
        ++begin;
    T parsed{};
    if (std::from_chars(begin, end, parsed).ec != std::errc()) return false;
    *value = parsed;
    return true;
}

}  // namespace

std::string QuotedIniValue(const std::string& value) {
    return NeedsQuotes(value) ? '"' + value + '"' : value;
}

std::string UnquotedIniValue(const std::string& value) {
    bool quoted =
        value.size() > 1 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

bool ParseIniNumber(const std::string& text, int* value) {
    return Parse(text, value);
}

// Words such as "nan" and "inf" are numbers to the parser only.
bool ParseIniNumber(const std::string& text, float* value) {
    float parsed = 0;
    if (!Parse(text, &parsed) || !std::isfinite(parsed)) return false;
    *value = parsed;
    return true;
}

}  // namespace hge
