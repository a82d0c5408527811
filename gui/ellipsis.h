#pragma once

#include <string>

// Takes characters off the end of a text that is text_width pixels wide until it fits width, and puts dots
// there. False, with the text as it was, when it never fits.
bool CutWithDots(std::wstring* text, int text_width, int width, float font_size);
