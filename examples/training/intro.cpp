#include "intro.h"

#include <hgeanim.h>

#include <cmath>

#include "palette.h"

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

Intro::Intro(Stage& stage) : light_(stage.Resources(), "light.png", true) {
    light_.SetHotSpot(128, 128);
    light_.SetBlendMode(BLEND_COLORMUL | BLEND_ALPHAADD);
    light_.SetColor(kAmber, -1);
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
    time_ = std::fmod(time_ + dt, 60.0f);
}

// It breathes as the lamp does; a movie has its own light.
void Intro::RenderLight(float x, float y) {
    if (MoviePlays()) return;
    float scale = 0.62f + 0.08f * std::sin(time_ * 5.236f);
    light_.RenderEx(x + kSize / 2, y + 84, 0, scale, scale);
}

void Intro::Render(float x, float y) {
    if (MoviePlays())
        movie_->Render(static_cast<int>(x), static_cast<int>(y));
    else
        animation_.Render(x, y);
}

}  // namespace training
