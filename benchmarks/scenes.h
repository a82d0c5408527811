#pragma once

#include "harness.h"

namespace bench {

void AddQuadScenes(Suite& suite);
void AddTextScenes(Suite& suite);
void AddGuiScenes(Suite& suite);
void AddMovieScenes(Suite& suite);
void AddEffectScenes(Suite& suite);
void AddImageScenes(Suite& suite);
void AddPackScenes(Suite& suite);
void AddNameScenes(Suite& suite);
void AddSoundScenes(Suite& suite);
void AddPacingScenes(Suite& suite);
void AddStartupScenes(Suite& suite);

// Another process of this program: shows one frame, with the kit or with Direct3D alone, and sets the event.
int ShowFirstFrame(const char* event);
int ShowFirstFrameBare(const char* event);

}  // namespace bench
