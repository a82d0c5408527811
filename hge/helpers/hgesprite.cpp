#include "hgesprite.h"

#include <emmintrin.h>

#include <cmath>
#include <utility>

namespace {

// In one piece, as the renderer reads it: it would wait for two.
void MoveTo(hgeVertex* corner, float x, float y) {
    const __m128 xy = _mm_unpacklo_ps(_mm_set_ss(x), _mm_set_ss(y));
    _mm_storeu_ps(&corner->x, _mm_loadh_pi(xy, reinterpret_cast<const __m64*>(&corner->z)));
}

}  // namespace

hgeSprite::hgeSprite(HTEXTURE tex, float x, float y, float w, float h, HTEXTURE tex2)
    : hge(hgeCreate(HGE_VERSION)),
      quad(),
      tx(x),
      ty(y),
      width(w),
      height(h),
      tex_width(1),
      tex_height(1),
      hotX(0),
      hotY(0),
      bXFlip(false),
      bYFlip(false),
      bHSFlip(false),
      rect_width(w),
      rect_height(h),
      frame_dx(0),
      frame_dy(0) {
    quad.tex = tex;
    quad.tex2 = tex2;
    quad.blend = BLEND_DEFAULT;
    SetColor(0xFFFFFFFF);
    SetZ(0.5f);
    MeasureTexture();
    UpdateTexCoords();
}

hgeSprite::hgeSprite(const hgeSprite& other) : hge(hgeCreate(HGE_VERSION)) {
    *this = other;
}

hgeSprite& hgeSprite::operator=(const hgeSprite& other) {
    quad = other.quad;
    tx = other.tx;
    ty = other.ty;
    width = other.width;
    height = other.height;
    tex_width = other.tex_width;
    tex_height = other.tex_height;
    hotX = other.hotX;
    hotY = other.hotY;
    bXFlip = other.bXFlip;
    bYFlip = other.bYFlip;
    bHSFlip = other.bHSFlip;
    rect_width = other.rect_width;
    rect_height = other.rect_height;
    frame_dx = other.frame_dx;
    frame_dy = other.frame_dy;
    return *this;
}

hgeSprite::~hgeSprite() {
    if (hge) hge->Release();
}

void hgeSprite::Render(float x, float y) {
    x -= hotX;
    y -= hotY;
    RenderStretch(x, y, x + width, y + height);
}

void hgeSprite::RenderEx(float x, float y, float rot, float hscale, float vscale) {
    Corners c = Turned(x, y, rot, hscale, vscale);
    Render4V(c.x[0], c.y[0], c.x[1], c.y[1], c.x[2], c.y[2], c.x[3], c.y[3]);
}

void hgeSprite::RenderStretch(float x1, float y1, float x2, float y2) {
    Render4V(x1, y1, x2, y1, x2, y2, x1, y2);
}

void hgeSprite::Render4V(float x0, float y0, float x1, float y1, float x2, float y2, float x3, float y3) {
    MoveTo(&quad.v[0], x0, y0);
    MoveTo(&quad.v[1], x1, y1);
    MoveTo(&quad.v[2], x2, y2);
    MoveTo(&quad.v[3], x3, y3);
    Draw();
}

void hgeSprite::Draw() {
    if (hge) hge->Gfx_RenderQuad(&quad);
}

void hgeSprite::SetTexture(HTEXTURE tex) {
    quad.tex = tex;
    MeasureTexture();
    UpdateTexCoords();
}

void hgeSprite::SetTextureRect(float x, float y, float w, float h, bool adjSize) {
    // Buttons set the rectangle of their state in every frame.
    if (x == tx && y == ty && w == rect_width && h == rect_height &&
        !(adjSize && (w != width || h != height)))
        return;
    tx = x;
    ty = y;
    rect_width = w;
    rect_height = h;
    if (adjSize) {
        MirrorHotSpot();
        width = w;
        height = h;
        MirrorHotSpot();
    }
    UpdateTexCoords();
}

void hgeSprite::SetColor(DWORD col, int i) {
    for (int corner = 0; corner < 4; ++corner)
        if (i == -1 || i == corner) quad.v[corner].col = col;
}

void hgeSprite::SetZ(float z, int i) {
    for (int corner = 0; corner < 4; ++corner)
        if (i == -1 || i == corner) quad.v[corner].z = z;
}

void hgeSprite::SetFlip(bool bX, bool bY, bool bHotSpot) {
    MirrorHotSpot();
    bXFlip = bX;
    bYFlip = bY;
    bHSFlip = bHotSpot;
    MirrorHotSpot();
    UpdateTexCoords();
}

void hgeSprite::GetTextureRect(float* x, float* y, float* w, float* h) const {
    *x = tx;
    *y = ty;
    *w = rect_width;
    *h = rect_height;
}

hgeRect* hgeSprite::GetBoundingBox(float x, float y, hgeRect* rect) const {
    if (rect) rect->Set(x - hotX, y - hotY, x - hotX + width, y - hotY + height);
    return rect;
}

hgeRect* hgeSprite::GetBoundingBoxEx(float x, float y, float rot, float hscale, float vscale,
                                     hgeRect* rect) const {
    if (!rect) return nullptr;
    Corners c = Turned(x, y, rot, hscale, vscale);
    rect->Clear();
    for (int i = 0; i < 4; ++i)
        rect->Encapsulate(c.x[i], c.y[i]);
    return rect;
}

hgeSprite::Corners hgeSprite::Turned(float x, float y, float rot, float hscale, float vscale) const {
    if (vscale == 0) vscale = hscale;
    const float left = -hotX * hscale, right = (width - hotX) * hscale;
    const float top = -hotY * vscale, bottom = (height - hotY) * vscale;
    Corners c = {{left, right, right, left}, {top, top, bottom, bottom}};
    const float cosine = rot == 0 ? 1 : std::cos(rot), sine = rot == 0 ? 0 : std::sin(rot);
    for (int i = 0; i < 4; ++i) {
        const float cx = c.x[i], cy = c.y[i];
        c.x[i] = cx * cosine - cy * sine + x;
        c.y[i] = cx * sine + cy * cosine + y;
    }
    return c;
}

// Without a texture the size is 1, which keeps the unused coordinates finite.
void hgeSprite::MeasureTexture() {
    const int w = hge && quad.tex ? hge->Texture_GetWidth(quad.tex) : 0;
    const int h = hge && quad.tex ? hge->Texture_GetHeight(quad.tex) : 0;
    tex_width = w > 0 ? static_cast<float>(w) : 1;
    tex_height = h > 0 ? static_cast<float>(h) : 1;
}

// Undoes itself, so that a change in between keeps a mirrored hot spot mirrored.
void hgeSprite::MirrorHotSpot() {
    if (bHSFlip && bXFlip) hotX = width - hotX;
    if (bHSFlip && bYFlip) hotY = height - hotY;
}

void hgeSprite::SetFrameOffset(float dx, float dy) {
    frame_dx = dx;
    frame_dy = dy;
    UpdateTexCoords();
}

void hgeSprite::UpdateTexCoords() {
    float left = (tx + frame_dx) / tex_width, right = (tx + frame_dx + rect_width) / tex_width;
    float top = (ty + frame_dy) / tex_height, bottom = (ty + frame_dy + rect_height) / tex_height;
    if (bXFlip) std::swap(left, right);
    if (bYFlip) std::swap(top, bottom);
    quad.v[0].tx = quad.v[3].tx = left;
    quad.v[1].tx = quad.v[2].tx = right;
    quad.v[0].ty = quad.v[1].ty = top;
    quad.v[2].ty = quad.v[3].ty = bottom;
}
