#include "text/gdi_seams.h"

#include <windows.h>

namespace {

int g_live = 0;
int g_glyph_calls = 0;
bool g_fail_fonts = false;

template <typename Function>
Function Real(Function, const char* module, const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(module), name)));
}

}  // namespace

// These take the place of the import libraries' pointers; the real functions are asked for by name.
extern "C" {
HFONT WINAPI CountedCreateFont(int height, int width, int escapement, int orientation, int weight,
                               DWORD italic, DWORD underline, DWORD strike_out, DWORD charset, DWORD out,
                               DWORD clip, DWORD quality, DWORD pitch, LPCSTR face) {
    static const auto real = Real(&CountedCreateFont, "gdi32", "CreateFontA");
    if (g_fail_fonts) return nullptr;
    ++g_live;
    return real(height, width, escapement, orientation, weight, italic, underline, strike_out, charset, out,
                clip, quality, pitch, face);
}
HDC WINAPI CountedCreateDC(HDC dc) {
    static const auto real = Real(&CountedCreateDC, "gdi32", "CreateCompatibleDC");
    ++g_live;
    return real(dc);
}
BOOL WINAPI CountedDeleteDC(HDC dc) {
    static const auto real = Real(&CountedDeleteDC, "gdi32", "DeleteDC");
    BOOL deleted = real(dc);
    g_live -= deleted;
    return deleted;
}
BOOL WINAPI CountedDeleteObject(HGDIOBJ object) {
    static const auto real = Real(&CountedDeleteObject, "gdi32", "DeleteObject");
    BOOL deleted = real(object);
    g_live -= deleted;
    return deleted;
}
HDC WINAPI CountedGetDC(HWND window) {
    static const auto real = Real(&CountedGetDC, "user32", "GetDC");
    HDC dc = real(window);
    g_live += dc != nullptr;
    return dc;
}
int WINAPI CountedReleaseDC(HWND window, HDC dc) {
    static const auto real = Real(&CountedReleaseDC, "user32", "ReleaseDC");
    int released = real(window, dc);
    g_live -= released;
    return released;
}
DWORD WINAPI CountedGlyph(HDC dc, UINT c, UINT format, GLYPHMETRICS* metrics, DWORD size, void* buffer,
                          const MAT2* matrix) {
    static const auto real = Real(&CountedGlyph, "gdi32", "GetGlyphOutlineW");
    ++g_glyph_calls;
    return real(dc, c, format, metrics, size, buffer, matrix);
}

decltype(&CountedCreateFont) imported_create_font __asm__("__imp__CreateFontA@56") = CountedCreateFont;
decltype(&CountedCreateDC) imported_create_dc __asm__("__imp__CreateCompatibleDC@4") = CountedCreateDC;
decltype(&CountedDeleteDC) imported_delete_dc __asm__("__imp__DeleteDC@4") = CountedDeleteDC;
decltype(&CountedDeleteObject) imported_delete_object __asm__("__imp__DeleteObject@4") = CountedDeleteObject;
decltype(&CountedGetDC) imported_get_dc __asm__("__imp__GetDC@4") = CountedGetDC;
decltype(&CountedReleaseDC) imported_release_dc __asm__("__imp__ReleaseDC@8") = CountedReleaseDC;
decltype(&CountedGlyph) imported_glyph __asm__("__imp__GetGlyphOutlineW@28") = CountedGlyph;
}

namespace gdi_seams {

int LiveObjects() {
    return g_live;
}
int GlyphCalls() {
    return g_glyph_calls;
}
void FailFonts(bool fail) {
    g_fail_fonts = fail;
}

}  // namespace gdi_seams
