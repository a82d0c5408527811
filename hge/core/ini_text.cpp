#include "core/ini_text.h"

#include <mbstring.h>

#include <algorithm>
#include <string_view>

#include "core/ini_value.h"

namespace hge {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr char kEnd[] = "\r\n";

std::string_view Trimmed(std::string_view text) {
    size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

// As the system reads them: without regard to case, by the characters of the code page.
bool SameName(std::string_view in_file, const std::string& name) {
    auto bytes = [](const std::string& text) { return reinterpret_cast<const unsigned char*>(text.c_str()); };
    return _mbsicmp(bytes(std::string(Trimmed(in_file))), bytes(std::string(Trimmed(name)))) == 0;
}

bool IsSection(std::string_view line, const std::string& section) {
    return line.size() >= 2 && line.back() == ']' && SameName(line.substr(1, line.size() - 2), section);
}

void EndLastLine(std::string* text) {
    if (!text->empty() && text->back() != '\n') *text += kEnd;
}

// The line of a value, or an empty place for it behind the section's last line that is not empty.
struct Place {
    bool section, value;
    size_t begin, end;
};

Place Find(std::string_view text, const std::string& section, const std::string& name) {
    Place place{};
    size_t begin = text.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
    for (size_t next; begin < text.size(); begin = next) {
        next = std::min(text.find('\n', begin), text.size() - 1) + 1;
        std::string_view line = Trimmed(text.substr(begin, next - begin));
        if (line.empty()) continue;
        if (line[0] == '[') {
            if (place.section) break;
            place.section = IsSection(line, section);
        } else if (place.section && line.find('=') != line.npos &&
                   SameName(line.substr(0, line.find('=')), name)) {
            return {true, true, begin, next};
        }
        place.begin = place.end = next;
    }
    return place;
}

}  // namespace

void SetIniValue(std::string* text, const std::string& section, const std::string& name,
                 const std::string& value) {
    const std::string entry = name + '=' + value + kEnd;
    EndLastLine(text);
    Place place = Find(*text, section, name);
    if (place.section)
        text->replace(place.begin, place.end - place.begin, entry);
    else
        *text += '[' + section + ']' + kEnd + entry;
}

bool GetIniValue(const std::string& text, const std::string& section, const std::string& name,
                 std::string* value) {
    Place place = Find(text, section, name);
    if (!place.value) return false;
    std::string_view line = std::string_view(text).substr(place.begin, place.end - place.begin);
    *value = UnquotedIniValue(std::string(Trimmed(line.substr(line.find('=') + 1))));
    return true;
}

}  // namespace hge
