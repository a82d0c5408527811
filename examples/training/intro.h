#pragma once

#include <drill2d/flash.h>
#include <drill2d/resources.h>

#include "stage.h"

namespace training {

// The moving picture of the start scene: the movie "intro.swf" beside the program where there is a movie
// control, else a frame animation of ours.
class Intro {
 public:
    static constexpr int kSize = 192;  // pixels, both ways

    explicit Intro(Stage& stage);
    Intro(const Intro&) = delete;
    Intro& operator=(const Intro&) = delete;
    ~Intro();

    void Play();
    void Stop();
    void Update(float dt);
    void Render(float x, float y);
    void RenderLight(float x, float y);

 private:
    bool MoviePlays() const { return movie_ && movie_->IsPlaying(); }

    IFlashSprite* movie_ = nullptr;
    CGameAnimation animation_;
    CGameSprite light_;
    float time_ = 0;
};

}  // namespace training
