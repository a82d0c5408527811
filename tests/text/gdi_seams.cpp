#include "text/gdi_seams.h"

#include <windows.h>

namespace {

int g_live = 0;
bool g_fail_fonts = false;

// Behind the seam the real functions are asked for by name.
template <typename Function>
Function Real(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("gdi32"), name)));
}

}  // namespace

// The linker takes these in place of the import library's pointers.
extern "C" {
HFONT WINAPI CountedFont(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                         DWORD underline, DWORD strike_out, DWORD charset, DWORD out, DWORD clip,
                         DWORD quality, DWORD pitch, LPCSTR face) {
    if (g_fail_fonts) return nullptr;
    ++g_live;
    return Real<decltype(&CountedFont)>("CreateFontA")(height, width, escapement, orientation, weight, italic,
                                                       underline, strike_out, charset, out, clip, quality,
                                                       pitch, face);
}
HDC WINAPI CountedDC(HDC dc) {
    ++g_live;
    return Real<decltype(&CountedDC)>("CreateCompatibleDC")(dc);
}
BOOL WINAPI CountedDeleteDC(HDC dc) {
    --g_live;
    return Real<decltype(&CountedDeleteDC)>("DeleteDC")(dc);
}
BOOL WINAPI CountedDelete(HGDIOBJ object) {
    --g_live;
    return Real<decltype(&CountedDelete)>("DeleteObject")(object);
}

decltype(&CountedFont) imported_create_font __asm__("__imp__CreateFontA@56") = CountedFont;
decltype(&CountedDC) imported_create_dc __asm__("__imp__CreateCompatibleDC@4") = CountedDC;
decltype(&CountedDeleteDC) imported_delete_dc __asm__("__imp__DeleteDC@4") = CountedDeleteDC;
decltype(&CountedDelete) imported_delete __asm__("__imp__DeleteObject@4") = CountedDelete;
}

namespace gdi_seams {

int LiveObjects() {
    return g_live;
}
void FailFonts(bool fail) {
    g_fail_fonts = fail;
}

}  // namespace gdi_seams
