#pragma once

#include "hge.h"
#include "hgerect.h"

// A rectangle of a texture drawn as one quad. Keeps no texture alive; holds its own HGE reference.
// New: white, z 0.5, BLEND_DEFAULT, hot spot (0, 0), not flipped.
class hgeSprite {
 public:
    // Pixels of the created texture; tex 0 draws plain colour. tex2 goes into the quad for the loaded effect.
    hgeSprite(HTEXTURE tex, float x, float y, float w, float h, HTEXTURE tex2 = 0);
    hgeSprite(const hgeSprite& other);
    hgeSprite& operator=(const hgeSprite& other);
    virtual ~hgeSprite();

    // The hot spot comes to lie at (x, y), in screen pixels.
    void Render(float x, float y);
    // rot in radians, clockwise on the screen; vscale 0 takes hscale.
    void RenderEx(float x, float y, float rot, float hscale = 1.0f, float vscale = 0.0f);
    // The hot spot plays no part here and in Render4V.
    void RenderStretch(float x1, float y1, float x2, float y2);
    // Corners clockwise from the top left.
    void Render4V(float x0, float y0, float x1, float y1, float x2, float y2, float x3, float y3);

    // The rectangle stays the same in pixels.
    void SetTexture(HTEXTURE tex);
    // adjSize takes w x h for the drawn size too.
    void SetTextureRect(float x, float y, float w, float h, bool adjSize = true);
    // i: corner 0..3 clockwise from the top left, -1 for all; others are ignored.
    void SetColor(DWORD col, int i = -1);
    // z 0 (front) .. 1 (back).
    void SetZ(float z, int i = -1);
    void SetBlendMode(int blend) { quad.blend = blend; }
    void SetHotSpot(float x, float y) {
        hotX = x;
        hotY = y;
    }
    // bHotSpot mirrors the hot spot too.
    void SetFlip(bool bX, bool bY, bool bHotSpot = false);

    HTEXTURE GetTexture() const { return quad.tex; }
    void GetTextureRect(float* x, float* y, float* w, float* h) const;
    // 0 for a corner other than 0..3.
    DWORD GetColor(int i = 0) const { return IsCorner(i) ? quad.v[i].col : 0; }
    float GetZ(int i = 0) const { return IsCorner(i) ? quad.v[i].z : 0; }
    int GetBlendMode() const { return quad.blend; }
    void GetHotSpot(float* x, float* y) const {
        *x = hotX;
        *y = hotY;
    }
    void GetFlip(bool* bX, bool* bY) const {
        *bX = bXFlip;
        *bY = bYFlip;
    }
    // The drawn size in pixels, unscaled.
    float GetWidth() const { return width; }
    float GetHeight() const { return height; }
    const hgeQuad& GetQuad() const { return quad; }
    // The screen rectangle that the matching Render call would cover; returns rect.
    hgeRect* GetBoundingBox(float x, float y, hgeRect* rect) const;
    hgeRect* GetBoundingBoxEx(float x, float y, float rot, float hscale, float vscale, hgeRect* rect) const;

 protected:
    static bool IsCorner(int i) { return i >= 0 && i < 4; }
    // Moves the drawn part away from the corner of the texture rectangle, in pixels.
    void SetFrameOffset(float dx, float dy);

    HGE* hge;
    hgeQuad quad;
    float tx, ty, width, height;
    float tex_width, tex_height;
    float hotX, hotY;
    bool bXFlip, bYFlip, bHSFlip;

 private:
    struct Corners {
        float x[4], y[4];
    };
    Corners Turned(float x, float y, float rot, float hscale, float vscale) const;
    void MeasureTexture();
    void MirrorHotSpot();
    void UpdateTexCoords();
    void Draw();

    float rect_width, rect_height;  // of the texture rectangle; the drawn size may differ
    float frame_dx, frame_dy;
};
