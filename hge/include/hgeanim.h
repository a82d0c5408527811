#pragma once

#include "hgesprite.h"

#define HGEANIM_FWD 0
#define HGEANIM_REV 1
#define HGEANIM_PINGPONG 2
#define HGEANIM_NOPINGPONG 0
#define HGEANIM_LOOP 4
#define HGEANIM_NOLOOP 0

// A strip of equal frames, left to right. Where the source image's width is used up, frames go on in the next
// row, at the image's left edge. New: forward, looped, stopped at frame 0.
class hgeAnimation : public hgeSprite {
 public:
    // (x, y, w, h): the first frame in pixels. fps 0 stands still.
    hgeAnimation(HTEXTURE tex, int nframes, float fps, float x, float y, float w, float h);

    // Starts at the first frame of the mode; the first Update after it shows that frame.
    void Play();
    void Stop() { bPlaying = false; }
    void Resume() { bPlaying = true; }
    // Seconds.
    void Update(float fDeltaTime);
    bool IsPlaying() const { return bPlaying; }

    void SetTexture(HTEXTURE tex);
    // The first frame's rectangle; the current frame stays.
    void SetTextureRect(float x, float y, float w, float h);
    // HGEANIM_* bits; goes to the first frame of the mode.
    void SetMode(int mode);
    // Frames per second.
    void SetSpeed(float fps) { fSpeed = 1.0f / fps; }
    // Wraps n into 0..frames-1.
    void SetFrame(int n);
    void SetFrames(int n) { nFrames = n; }

    int GetMode() const { return Mode; }
    float GetSpeed() const { return 1.0f / fSpeed; }
    int GetFrame() const { return nCurFrame; }
    int GetFrames() const { return nFrames; }

 private:
    void GoToStart();
    void Step();
    bool TurnsAtEnd() const;
    void DropWholeRounds();

    float orig_width;  // the texture's source width
    bool bPlaying;
    float fSpeed;           // seconds a frame
    float fSinceLastFrame;  // seconds; negative until the first Update after Play
    int Mode;
    int nDelta;
    int nFrames;
    int nCurFrame;
};
