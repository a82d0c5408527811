#pragma once

#include <string>

namespace hge {

// Puts name=value into the section of an ini file's text, in place of the value that is there; the rest of
// the text stays as it is.
void SetIniValue(std::string* text, const std::string& section, const std::string& name,
                 const std::string& value);

// The value as the system's reader gives it, without the blanks and the pair of quotes around it. False when
// there is none.
bool GetIniValue(const std::string& text, const std::string& section, const std::string& name,
                 std::string* value);

}  // namespace hge
