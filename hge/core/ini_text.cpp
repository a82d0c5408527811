#include "core/ini_text.h"

#include <mbstring.h>

#include <string_view>

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

}  // namespace

void SetIniValue(std::string* text, const std::string& section, const std::string& name,
                 const std::string& value) {
    const std::string entry = name + '=' + value + kEnd;
    EndLastLine(text);
    bool inside = false;
    size_t place = 0;  // behind the section's last line that is not empty
    size_t begin = text->rfind(kUtf8Mark, 0) == 0 ? kUtf8Mark.size() : 0;
    for (size_t next; begin < text->size(); begin = next) {
        next = text->find('\n', begin) + 1;
        std::string_view line = Trimmed(std::string_view(*text).substr(begin, next - begin));
        if (line.empty()) continue;
        if (line[0] == '[') {
            if (inside) break;
            inside = IsSection(line, section);
        } else if (inside && line.find('=') != line.npos && SameName(line.substr(0, line.find('=')), name)) {
            text->replace(begin, next - begin, entry);
            return;
        }
        place = next;
    }
    if (inside)
        text->insert(place, entry);
    else
        *text += '[' + section + ']' + kEnd + entry;
}

}  // namespace hge
