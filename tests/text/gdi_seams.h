#pragma once

// A test program that links gdi_seams calls GDI through counters; drawing works as ever.
namespace gdi_seams {

// Fonts, memory DCs and window DCs that were made and not given back.
int LiveObjects();
// Calls of GetGlyphOutlineW so far.
int GlyphCalls();
// CreateFontA fails until told otherwise.
void FailFonts(bool fail);

}  // namespace gdi_seams
