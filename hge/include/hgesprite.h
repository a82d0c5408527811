#pragma once

#include "hge.h"
#include "hgerect.h"

// A rectangle of a texture drawn as one quad. Keeps no texture alive; holds its own HGE reference.
class hgeSprite {
 public:
    // Pixels of the source image; tex 0 draws plain colour. tex2 goes into the quad for the loaded effect.
    hgeSprite(HTEXTURE tex, float x, float y, float w, float h, HTEXTURE tex2 = 0);
    hgeSprite(const hgeSprite& other);
    hgeSprite& operator=(const hgeSprite& other);
    virtual ~hgeSprite();

    // The hot spot comes to lie at (x, y), in screen pixels.
    void Render(float x, float y);
    // rot in radians, clockwise on the screen; vscale 0 takes hscale.
    void RenderEx(float x, float y, float rot, float hscale = 1.0f, float vscale = 0.0f);
    void RenderStretch(float x1, float y1, float x2, float y2);
    // Corners clockwise from the top left.
    void Render4V(float x0, float y0, float x1, float y1, float x2, float y2, float x3, float y3);

    void SetTexture(HTEXTURE tex);
    // adjSize takes w x h for the drawn size too.
    void SetTextureRect(float x, float y, float w, float h, bool adjSize = true);
    // i: corner 0..3 clockwise from the top left, -1 for all.
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
    DWORD GetColor(int i = 0) const { return quad.v[i].col; }
    float GetZ(int i = 0) const { return quad.v[i].z; }
    int GetBlendMode() const { return quad.blend; }
    void GetHotSpot(float* x, float* y) const {
        *x = hotX;
        *y = hotY;
    }
    void GetFlip(bool* bX, bool* bY) const {
        *bX = bXFlip;
        *bY = bYFlip;
    }
    float GetWidth() const { return width; }
    float GetHeight() const { return height; }
    const hgeQuad& GetQuad() const { return quad; }
    // The screen rectangle that the matching Render call would cover; returns rect.
    hgeRect* GetBoundingBox(float x, float y, hgeRect* rect) const;
    hgeRect* GetBoundingBoxEx(float x, float y, float rot, float hscale, float vscale, hgeRect* rect) const;

 protected:
    HGE* hge;
    hgeQuad quad;
    float tx, ty, width, height;
    float tex_width, tex_height;
    float hotX, hotY;
    bool bXFlip, bYFlip, bHSFlip;
};
