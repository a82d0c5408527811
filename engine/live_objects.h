#pragma once

#include <string>

// How many of the objects that hosts make are alive. A copy is none of its own: of two, one is destroyed.
namespace live {

enum Kind { kControl, kSprite, kAnimation, kFont, kFlashSprite, kFlashPlayer, kKinds };

void Born(Kind kind);
void Gone(Kind kind);
// "2 sprites, 1 font"; "nothing".
std::string Text();

}  // namespace live
