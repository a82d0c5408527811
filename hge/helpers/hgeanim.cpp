#include "hgeanim.h"

#include <algorithm>
#include <cmath>

hgeAnimation::hgeAnimation(HTEXTURE tex, int nframes, float fps, float x, float y, float w, float h)
    : hgeSprite(tex, x, y, w, h),
      orig_width(0),
      bPlaying(false),
      fSpeed(1.0f / fps),
      fSinceLastFrame(-1),
      Mode(HGEANIM_FWD | HGEANIM_LOOP),
      nDelta(1),
      nFrames(nframes),
      nCurFrame(0) {
    SetTexture(tex);
}

void hgeAnimation::Play() {
    bPlaying = true;
    fSinceLastFrame = -1;
    GoToStart();
}

void hgeAnimation::SetMode(int mode) {
    Mode = mode;
    GoToStart();
}

void hgeAnimation::GoToStart() {
    const bool reverse = (Mode & HGEANIM_REV) != 0;
    nDelta = reverse ? -1 : 1;
    SetFrame(reverse ? std::max(nFrames, 1) - 1 : 0);
}

void hgeAnimation::Update(float fDeltaTime) {
    if (!bPlaying) return;
    if (fSinceLastFrame < 0)
        fSinceLastFrame = 0;
    else if (fDeltaTime > 0)
        fSinceLastFrame += fDeltaTime;
    // No speed, an infinite or a negative one has no frames due.
    if (!(fSpeed > 0) || !std::isfinite(fSinceLastFrame)) {
        fSinceLastFrame = 0;
        return;
    }
    DropWholeRounds();
    while (bPlaying && fSinceLastFrame >= fSpeed) {
        fSinceLastFrame -= fSpeed;
        Step();
    }
}

// After a long pause a looped animation would step through every round in between.
void hgeAnimation::DropWholeRounds() {
    if (!(Mode & HGEANIM_LOOP)) return;
    const float frames = static_cast<float>(nFrames);
    const float steps = (Mode & HGEANIM_PINGPONG) ? 2 * (frames - 1) : frames;
    const float round = fSpeed * std::max(steps, 1.0f);
    if (fSinceLastFrame > 2 * round) fSinceLastFrame = std::fmod(fSinceLastFrame, round);
}

void hgeAnimation::Step() {
    const int next = nCurFrame + nDelta;
    if (next >= 0 && next < nFrames) return SetFrame(next);
    if (TurnsAtEnd())
        nDelta = -nDelta;
    else if (!(Mode & HGEANIM_LOOP))
        bPlaying = false;
    if (bPlaying) SetFrame(nCurFrame + nDelta);
}

// Ping-pong turns at the far end, and at the near one when it is looped.
bool hgeAnimation::TurnsAtEnd() const {
    if (!(Mode & HGEANIM_PINGPONG)) return false;
    const bool outward = (nDelta < 0) == ((Mode & HGEANIM_REV) != 0);
    return outward || (Mode & HGEANIM_LOOP);
}

void hgeAnimation::SetTexture(HTEXTURE tex) {
    hgeSprite::SetTexture(tex);
    orig_width = hge && tex ? static_cast<float>(hge->Texture_GetWidth(tex, true)) : 0;
    SetFrame(nCurFrame);
}

void hgeAnimation::SetTextureRect(float x, float y, float w, float h) {
    hgeSprite::SetTextureRect(x, y, w, h, true);
    SetFrame(nCurFrame);
}

void hgeAnimation::SetFrame(int n) {
    const int count = std::max(nFrames, 1);
    n %= count;
    nCurFrame = n < 0 ? n + count : n;

    // The first row begins at the first frame, the others at the left edge. Frames without a width have one
    // row.
    const auto fitting = [this](float room) {
        const float columns = width > 0 ? std::floor(room / width) : static_cast<float>(nFrames);
        return columns > 1 ? static_cast<int>(std::min(columns, 1e6f)) : 1;
    };
    const int first_row = fitting(orig_width - tx);
    if (nCurFrame < first_row) return SetFrameOffset(static_cast<float>(nCurFrame) * width, 0);
    const int columns = fitting(orig_width), rest = nCurFrame - first_row;
    SetFrameOffset(static_cast<float>(rest % columns) * width - tx,
                   static_cast<float>(1 + rest / columns) * height);
}
