#pragma once

#include <string>

namespace hge {

// Puts name=value into the section of an ini file's text, in place of the value that is there; the rest of
// the text stays as it is.
void SetIniValue(std::string* text, const std::string& section, const std::string& name,
                 const std::string& value);

}  // namespace hge
