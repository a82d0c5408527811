#include <new>

#include "drill2d/resources.h"
#include "engine/live_objects.h"
#include "engine/safely.h"
#include "hgesprite.h"

CGameSprite::CGameSprite()
    : m_hge(hgeCreate(HGE_VERSION)),
      m_sprite(nullptr),
      m_tex(0),
      m_width(0),
      m_height(0),
      m_origWidth(0),
      m_origHeight(0) {
    live::Born(live::kSprite);
}

CGameSprite::CGameSprite(CGameResourceManager* manager, const char* file, bool bOriginal) : CGameSprite() {
    LoadImageA(file, manager, bOriginal);
}

CGameSprite::CGameSprite(HTEXTURE tex, HTEXTURE tex2) : CGameSprite() {
    m_tex = tex;
    ReadSizes(tex);
    m_sprite = new (std::nothrow)
        hgeSprite(tex, 0, 0, static_cast<float>(m_width), static_cast<float>(m_height), tex2);
}

CGameSprite::CGameSprite(const char* file) : CGameSprite() {
    LoadImageA(file, true);
}

CGameSprite::~CGameSprite() {
    live::Gone(live::kSprite);
    delete m_sprite;
    m_sprite = nullptr;
    if (!m_hge) return;
    if (m_tex) m_hge->Texture_Free(m_tex);
    m_hge->Release();
}

bool CGameSprite::LoadImageA(const char* file, CGameResourceManager* manager, bool bOriginal) {
    if (!manager) return false;
    HTEXTURE tex = manager->GetImage(file);
    return tex && MakeSprite(tex, bOriginal);
}

bool CGameSprite::LoadImageA(const char* file, bool bOriginal) {
    m_tex = m_hge ? m_hge->Texture_Load(file, 0, false) : 0;
    return m_tex && MakeSprite(m_tex, bOriginal);
}

bool CGameSprite::load_tex(const char* file, bool bOriginal) {
    CGameResourceManager* manager = CGameResourceManager::getInstance();
    HTEXTURE tex = file && manager ? Safely("load_tex", [&] { return manager->create_tex(file); }) : 0;
    if (!tex) return false;
    MakeSprite(tex, bOriginal);
    return true;
}

void CGameSprite::ReadSizes(HTEXTURE tex) {
    if (!m_hge) return;
    m_width = m_hge->Texture_GetWidth(tex, false);
    m_height = m_hge->Texture_GetHeight(tex, false);
    m_origWidth = m_hge->Texture_GetWidth(tex, true);
    m_origHeight = m_hge->Texture_GetHeight(tex, true);
}

bool CGameSprite::MakeSprite(HTEXTURE tex, bool bOriginal) {
    ReadSizes(tex);
    m_sprite = new (std::nothrow) hgeSprite(tex, 0, 0, static_cast<float>(GetWidth(bOriginal)),
                                            static_cast<float>(GetHeight(bOriginal)), 0);
    if (!m_sprite) ReportTrouble("CGameSprite");
    return m_sprite != nullptr;
}

int CGameSprite::GetWidth(bool bOriginal) {
    return bOriginal ? m_origWidth : m_width;
}
int CGameSprite::GetHeight(bool bOriginal) {
    return bOriginal ? m_origHeight : m_height;
}
hgeSprite* CGameSprite::GetSprite() {
    return m_sprite;
}

void CGameSprite::Render(float x, float y) {
    if (m_sprite) m_sprite->Render(x, y);
}

void CGameSprite::RenderEx(float x, float y, float rot, float hscale, float vscale) {
    if (m_sprite) m_sprite->RenderEx(x, y, rot, hscale, vscale);
}

void CGameSprite::RenderStretch(float x1, float y1, float x2, float y2) {
    if (m_sprite) m_sprite->RenderStretch(x1, y1, x2, y2);
}

void CGameSprite::Render4V(float x0, float y0, float x1, float y1, float x2, float y2, float x3, float y3) {
    if (m_sprite) m_sprite->Render4V(x0, y0, x1, y1, x2, y2, x3, y3);
}

void CGameSprite::SetTexture(HTEXTURE tex) {
    if (m_sprite) m_sprite->SetTexture(tex);
}

void CGameSprite::SetTextureRect(float x, float y, float w, float h, bool adjSize) {
    if (m_sprite) m_sprite->SetTextureRect(x, y, w, h, adjSize);
}

void CGameSprite::SetColor(DWORD col, int i) {
    if (m_sprite) m_sprite->SetColor(col, i);
}

void CGameSprite::SetZ(float z, int i) {
    if (m_sprite) m_sprite->SetZ(z, i);
}

void CGameSprite::SetBlendMode(int blend) {
    if (m_sprite) m_sprite->SetBlendMode(blend);
}

void CGameSprite::SetHotSpot(float x, float y) {
    if (m_sprite) m_sprite->SetHotSpot(x, y);
}

void CGameSprite::SetFlip(bool bX, bool bY, bool bHotSpot) {
    if (m_sprite) m_sprite->SetFlip(bX, bY, bHotSpot);
}

DWORD CGameSprite::GetTexture() {
    return m_sprite ? m_sprite->GetTexture() : 0;
}

void CGameSprite::GetTextureRect(float* x, float* y, float* w, float* h) {
    if (m_sprite) m_sprite->GetTextureRect(x, y, w, h);
}

DWORD CGameSprite::GetColor(int i) {
    return m_sprite ? m_sprite->GetColor(i) : 0;
}

float CGameSprite::GetZ(int i) {
    return m_sprite ? m_sprite->GetZ(i) : 0.0f;
}

int CGameSprite::GetBlendMode() {
    return m_sprite ? m_sprite->GetBlendMode() : 0;
}

void CGameSprite::GetHotSpot(float* x, float* y) {
    if (m_sprite) m_sprite->GetHotSpot(x, y);
}

void CGameSprite::GetFlip(bool* bX, bool* bY) {
    if (m_sprite) m_sprite->GetFlip(bX, bY);
}

hgeRect* CGameSprite::GetBoundingBox(float x, float y, hgeRect* rect) {
    return m_sprite ? m_sprite->GetBoundingBox(x, y, rect) : nullptr;
}

hgeRect* CGameSprite::GetBoundingBoxEx(float x, float y, float rot, float hscale, float vscale,
                                       hgeRect* rect) {
    return m_sprite ? m_sprite->GetBoundingBoxEx(x, y, rot, hscale, vscale, rect) : nullptr;
}
