// packcheck PACK.zip [PASSWORD]: says which of a pack's files a program could not load, and why. Ends with 0
// when all load, 1 when some do not, 2 when the pack itself cannot be read. Writes UTF-8.

#include <windows.h>

#include <cstdio>

#include "resources/ansi_code_page.h"
#include "tools/pack_faults.h"

namespace {

std::string Convert(const std::string& text, UINT from, DWORD flags) {
    int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<size_t>(MultiByteToWideChar(from, flags, text.data(), size, wide.data(), size)));
    int length = static_cast<int>(wide.size());
    std::string utf8(wide.size() * 3, '\0');
    utf8.resize(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(),
                                                        static_cast<int>(utf8.size()), nullptr, nullptr)));
    return utf8;
}

// Names without a stated encoding are in UTF-8 or in the system's code page.
std::string Utf8(const std::string& text) {
    std::string utf8 = Convert(text, CP_UTF8, MB_ERR_INVALID_CHARS);
    return utf8.empty() ? Convert(text, CP_ACP, 0) : utf8;
}

int Check(const std::string& path, const std::string& password) {
    hge::CodePage code_page = hge::AnsiCodePage();
    std::string name = Utf8(path), reason;
    std::unique_ptr<hge::ZipArchive> archive;
    if (auto file = hge::FileSource::Open(path, &reason))
        archive = hge::ZipArchive::Open(std::move(file), code_page, &reason);
    if (!archive) {
        std::fprintf(stderr, "%s: cannot be attached: %s\n", name.c_str(), Utf8(reason).c_str());
        return 2;
    }
    auto faults = hge::FindPackFaults(*archive, password, code_page);
    for (const hge::PackFault& fault : faults)
        std::printf("%s: %s\n", Utf8(fault.name).c_str(), Utf8(fault.reason).c_str());
    auto files = static_cast<unsigned>(archive->entry_count());
    if (faults.empty())
        std::printf("%s: %u files, all load\n", name.c_str(), files);
    else
        std::printf("%s: %u of %u files would not load\n", name.c_str(), static_cast<unsigned>(faults.size()),
                    files);
    return faults.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 3) {
        std::fprintf(stderr, "usage: packcheck PACK.zip [PASSWORD]\n");
        return 2;
    }
    SetConsoleOutputCP(CP_UTF8);
    return Check(argv[1], argc == 3 ? argv[2] : "");
}
