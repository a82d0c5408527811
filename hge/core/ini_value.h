#pragma once

#include <string>

namespace hge {

// The value as it has to stand in the file: the system's reader strips blanks and one pair of quotes.
std::string QuotedIniValue(const std::string& value);
// Without that pair.
std::string UnquotedIniValue(const std::string& value);

// The number that text begins with, after blanks and plus signs. False for none, one out of range, and for
// what is not finite.
bool ParseIniNumber(const std::string& text, int* value);
bool ParseIniNumber(const std::string& text, float* value);

}  // namespace hge
