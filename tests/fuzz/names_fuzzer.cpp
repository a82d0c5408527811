#include "code_page.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string name(reinterpret_cast<const char*>(data), size);
    std::string folded = hge::FoldName(name, FuzzCodePage());
    PROMISED(folded.size() <= name.size());
    PROMISED(hge::FoldName(folded, FuzzCodePage()) == folded);
    PROMISED(hge::FoldName("./" + name, FuzzCodePage()) == folded);
    PROMISED(!hge::IsAbsolute(folded) || hge::IsAbsolute(name) || name.starts_with('.'));
    return 0;
}
