#include "resources/file_names.h"

namespace hge {
namespace {

char FoldAscii(char c) {
    if (c >= 'A' && c <= 'Z') return static_cast<char>(c - 'A' + 'a');
    return c == '\\' ? '/' : c;
}

bool IsLetter(char c) {
    c = FoldAscii(c);
    return c >= 'a' && c <= 'z';
}

}  // namespace

CodePage PlainBytes() {
    return {[](unsigned char) { return false; }, [](const std::string& text) { return text; }};
}

std::string FoldName(const std::string& name, const CodePage& code_page) {
    std::string folded;
    folded.reserve(name.size());
    for (size_t i = 0; i < name.size(); ++i) {
        if (code_page.is_lead_byte(static_cast<unsigned char>(name[i])) && i + 1 < name.size()) {
            folded += name[i++];
            folded += name[i];
        } else {
            folded += FoldAscii(name[i]);
        }
    }
    size_t start = 0;
    while (folded.compare(start, 2, "./") == 0)
        start += 2;
    return folded.substr(start);
}

bool IsAbsolute(const std::string& path) {
    if (path.empty()) return false;
    if (path[0] == '/' || path[0] == '\\') return true;
    return path.size() > 1 && path[1] == ':' && IsLetter(path[0]);
}

}  // namespace hge
