#include "intro.h"

#include <hgeanim.h>

namespace training {

namespace {

constexpr int kFrames = 12;
constexpr int kFramesPerSecond = 10;

bool IsBesideProgram(HGE& hge, const char* file) {
    return GetFileAttributesA(hge.Resource_MakePath(file)) != INVALID_FILE_ATTRIBUTES;
}

bool HasMovieControl(HGE& hge) {
    return IsBesideProgram(hge, "flash.ocx") || FlashPlayer::GetFlashVersion() > 0;
}

}  // namespace

Intro::Intro(Stage& stage) {
    // The library reads names only, although it takes them as writable.
    char picture[] = "spark.png", movie[] = "intro.swf";
    animation_.LoadAniImage(picture, kFrames, kFramesPerSecond, kSize, kSize);
    animation_.SetMode(HGEANIM_FWD | HGEANIM_LOOP);
    if (!IsBesideProgram(stage.Hge(), movie) || !HasMovieControl(stage.Hge())) return;
    movie_ = FlashManager::CreatFlashSprite(false);
    if (movie_) movie_->LoadFlash(movie, kSize, kSize);
}

Intro::~Intro() {
    if (movie_) FlashManager::DestroyFlashSprite(movie_);
}

void Intro::Play() {
    animation_.Play();
    if (movie_) movie_->Play();
}

void Intro::Stop() {
    animation_.Stop();
    if (movie_) movie_->Stop();
}

void Intro::Update(float dt) {
    animation_.Update(dt);
}

void Intro::Render(float x, float y) {
    if (MoviePlays())
        movie_->Render(static_cast<int>(x), static_cast<int>(y));
    else
        animation_.Render(x, y);
}

}  // namespace training
