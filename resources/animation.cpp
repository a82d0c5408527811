#include <new>

#include "drill2d/resources.h"
#include "engine/live_objects.h"
#include "engine/safely.h"
#include "hgeanim.h"

CGameAnimation::CGameAnimation() : m_reserved(0), m_ani(nullptr), m_hge(hgeCreate(HGE_VERSION)) {
    live::Born(live::kAnimation);
}

CGameAnimation::CGameAnimation(char* file, int frames, int fps, int w, int h) : CGameAnimation() {
    LoadAniImage(file, frames, fps, w, h);
}

CGameAnimation::~CGameAnimation() {
    live::Gone(live::kAnimation);
    Unload();
    if (m_hge) m_hge->Release();
    m_hge = nullptr;
}

void CGameAnimation::Unload() {
    delete m_ani;
    m_ani = nullptr;
}

bool CGameAnimation::LoadAniImage(char* file, int frames, int fps, int w, int h) {
    if (!file) return false;
    Unload();
    CGameResourceManager* manager = CGameResourceManager::getInstance();
    HTEXTURE tex = manager ? manager->GetImage(file) : 0;
    if (!tex || !m_hge) return false;
    if (MakeAnimation(tex, frames, fps, w, h)) return true;
    m_hge->Texture_Free(tex);
    return false;
}

bool CGameAnimation::loadAniTex(char* file, int frames, int fps, int w, int h) {
    if (!file) return false;
    Unload();
    CGameResourceManager* manager = CGameResourceManager::getInstance();
    if (!manager || !m_hge) return false;
    HTEXTURE tex = Safely("loadAniTex", [&] { return manager->create_tex(file); });
    return MakeAnimation(tex, frames, fps, w, h);
}

bool CGameAnimation::MakeAnimation(HTEXTURE tex, int frames, int fps, int w, int h) {
    if (w == 0 && h == 0) {
        w = frames ? m_hge->Texture_GetWidth(tex, true) / frames : 0;
        h = m_hge->Texture_GetHeight(tex, true);
    }
    m_ani = new (std::nothrow) hgeAnimation(tex, frames, static_cast<float>(fps), 0, 0, static_cast<float>(w),
                                            static_cast<float>(h));
    if (!m_ani) ReportTrouble("CGameAnimation");
    return m_ani != nullptr;
}

void CGameAnimation::Play() {
    if (m_ani) m_ani->Play();
}

void CGameAnimation::Stop() {
    if (m_ani) m_ani->Stop();
}

void CGameAnimation::Resume() {
    if (m_ani) m_ani->Resume();
}

bool CGameAnimation::IsPlaying() {
    return m_ani ? m_ani->IsPlaying() : false;
}

void CGameAnimation::Update(float dt) {
    if (m_ani) m_ani->Update(dt);
}

void CGameAnimation::Render(float x, float y) {
    if (m_ani) m_ani->Render(x, y);
}

void CGameAnimation::RenderEx(float x, float y, float rot, float hscale, float vscale) {
    if (m_ani) m_ani->RenderEx(x, y, rot, hscale, vscale);
}

void CGameAnimation::RenderStretch(float x1, float y1, float x2, float y2) {
    if (m_ani) m_ani->RenderStretch(x1, y1, x2, y2);
}

void CGameAnimation::Render4V(float x0, float y0, float x1, float y1, float x2, float y2, float x3,
                              float y3) {
    if (m_ani) m_ani->Render4V(x0, y0, x1, y1, x2, y2, x3, y3);
}

void CGameAnimation::SetMode(int mode) {
    if (m_ani) m_ani->SetMode(mode);
}

int CGameAnimation::GetMode() {
    return m_ani ? m_ani->GetMode() : 0;
}

void CGameAnimation::SetFrames(int n) {
    if (m_ani) m_ani->SetFrames(n);
}

int CGameAnimation::GetFrames() {
    return m_ani ? m_ani->GetFrames() : 0;
}

void CGameAnimation::SetFrame(int n) {
    if (m_ani) m_ani->SetFrame(n);
}

int CGameAnimation::GetFrame() {
    return m_ani ? m_ani->GetFrame() : 0;
}

void CGameAnimation::SetSpeed(float fps) {
    if (m_ani) m_ani->SetSpeed(fps);
}

float CGameAnimation::GetSpeed() {
    return m_ani ? m_ani->GetSpeed() : 0.0f;
}

int CGameAnimation::GetWidth() {
    return m_ani ? static_cast<int>(m_ani->GetWidth()) : 0;
}

int CGameAnimation::GetHeight() {
    return m_ani ? static_cast<int>(m_ani->GetHeight()) : 0;
}

void CGameAnimation::SetTexture(DWORD tex) {
    if (m_ani) m_ani->SetTexture(tex);
}

DWORD CGameAnimation::GetTexture() {
    return m_ani ? m_ani->GetTexture() : 0;
}

void CGameAnimation::SetTextureRect(float x, float y, float w, float h) {
    if (m_ani) m_ani->SetTextureRect(x, y, w, h);
}

void CGameAnimation::SetColor(DWORD col, int i) {
    if (m_ani) m_ani->SetColor(col, i);
}

DWORD CGameAnimation::GetColor() {
    return m_ani ? m_ani->GetColor() : 0;
}

void CGameAnimation::SetZ(float z, int i) {
    if (m_ani) m_ani->SetZ(z, i);
}

int CGameAnimation::GetZ() {
    return m_ani ? static_cast<int>(m_ani->GetZ()) : 0;
}

void CGameAnimation::SetBlendMode(int blend) {
    if (m_ani) m_ani->SetBlendMode(blend);
}

int CGameAnimation::GetBlendMode() {
    return m_ani ? m_ani->GetBlendMode() : 0;
}

void CGameAnimation::SetHotSpot(float x, float y) {
    if (m_ani) m_ani->SetHotSpot(x, y);
}

void CGameAnimation::GetHotSpot(float* x, float* y) {
    if (m_ani) m_ani->GetHotSpot(x, y);
}

void CGameAnimation::SetFlip(bool bX, bool bY, bool bHotSpot) {
    if (m_ani) m_ani->SetFlip(bX, bY, bHotSpot);
}

void CGameAnimation::GetFlip(bool* bX, bool* bY) {
    if (m_ani) m_ani->GetFlip(bX, bY);
}

hgeRect* CGameAnimation::GetBoundingBox(float x, float y, hgeRect* rect) {
    return m_ani ? m_ani->GetBoundingBox(x, y, rect) : nullptr;
}

hgeRect* CGameAnimation::GetBoundingBoxEx(float x, float y, float rot, float hscale, float vscale,
                                          hgeRect* rect) {
    return m_ani ? m_ani->GetBoundingBoxEx(x, y, rot, hscale, vscale, rect) : nullptr;
}
