#pragma once

// A test program that links gdi_seams makes and deletes GDI fonts and memory DCs through a counter.
namespace gdi_seams {

int LiveObjects();
// CreateFontA fails until told otherwise.
void FailFonts(bool fail);

}  // namespace gdi_seams
