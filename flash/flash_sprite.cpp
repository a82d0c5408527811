#include <mbstring.h>

#include <cstdint>
#include <new>

#include "drill2d/flash.h"
#include "engine/live_objects.h"
#include "engine/safely.h"
#include "hgesprite.h"

namespace {

enum SpriteState { kNew = 0, kPlaying = 1, kStopped = 2 };

// With the backslash. A trail byte of a character in the path may look like one.
std::string ProgramFolder() {
    char path[MAX_PATH + 1] = "";
    GetModuleFileNameA(GetModuleHandleA(nullptr), path, MAX_PATH);
    unsigned char* name = _mbsrchr(reinterpret_cast<unsigned char*>(path), '\\');
    if (name) name[1] = '\0';
    return path;
}

bool IsFullPath(const std::string& file) {
    return file.size() >= 2 && file[1] == ':';
}

}  // namespace

CFlashSprite::CFlashSprite(HGE* hge, bool removeWhenDone, bool autoRender)
    : m_player(nullptr),
      m_quad(),
      m_hge(hge),
      m_autoX(0),
      m_autoY(0),
      m_width(0),
      m_height(0),
      m_state(kNew),
      m_removeWhenDone(removeWhenDone),
      m_autoRender(autoRender),
      m_loop(true) {
    live::Born(live::kFlashSprite);
}

CFlashSprite::~CFlashSprite() {
    live::Gone(live::kFlashSprite);
    delete m_player;
    if (m_quad.tex) m_hge->Texture_Free(m_quad.tex);
}

bool CFlashSprite::LoadFlash(char* file, int width, int height) {
    Stop();
    if (!file) {
        m_hge->System_Log("LoadFlash: no file name");
        return false;
    }
    m_width = width;
    m_height = height;
    return Safely("LoadFlash", [&] {
        m_file = file;
        if (!IsFullPath(m_file)) m_file.insert(0, ProgramFolder());
        return true;
    });
}

void CFlashSprite::Play() {
    if (!m_player) {
        m_player = new (std::nothrow) FlashPlayer;
        if (!m_player) return ReportTrouble("a movie");
        m_player->StartAnimation(m_file, m_width, m_height, nullptr);
        m_player->SetQuality(FLASH_QUALITY_HIGH);
    }
    if (!m_quad.tex) MakeTexture();
    m_state = kPlaying;
    m_player->Play();
    m_player->SetLoopPlay(m_loop);
}

void CFlashSprite::MakeTexture() {
    HTEXTURE tex = m_hge->Texture_Create(m_width, m_height);
    if (!tex) return;
    m_quad = hgeSprite(tex, 0, 0, static_cast<float>(m_width), static_cast<float>(m_height)).GetQuad();
}

void CFlashSprite::Stop() {
    m_state = kStopped;
    if (FlashPlayer* player = m_player) {
        m_player = nullptr;
        player->Stop();
        delete player;
    }
    if (m_quad.tex) {
        m_hge->Texture_Free(m_quad.tex);
        m_quad = hgeQuad();
    }
}

void CFlashSprite::Rewind() {
    if (!m_player) return;
    m_state = kPlaying;
    m_player->Rewind();
}

void CFlashSprite::Pause() {
    if (!m_player) return;
    m_state = kStopped;
    m_player->Pause();
}

void CFlashSprite::Unpause() {
    if (!m_player) return;
    m_state = kPlaying;
    m_player->Unpause();
}

bool CFlashSprite::IsPlaying() {
    return m_player && m_state == kPlaying && m_player->IsPlaying();
}

void CFlashSprite::SetLoopPlay(bool loop) {
    m_loop = loop;
    if (m_player) m_player->SetLoopPlay(loop);
}

void CFlashSprite::SetAutoRenderPos(int x, int y) {
    m_autoX = x;
    m_autoY = y;
}

bool CFlashSprite::IsAutoRender() {
    return m_autoRender;
}

bool CFlashSprite::BufferUpdate() {
    if (!m_player || !m_quad.tex || m_state != kPlaying || !m_player->DrawNewFrame()) return false;
    const int stride = m_hge->Texture_GetWidth(m_quad.tex, false);
    DWORD* pixels = m_hge->Texture_Lock(m_quad.tex, false, 0, 0, m_width, m_height);
    m_player->FinishFrame(reinterpret_cast<uint32_t*>(pixels), static_cast<size_t>(stride));
    if (!pixels) return false;
    m_hge->Texture_Unlock(m_quad.tex);
    return true;
}

bool CFlashSprite::StateUpdate() {
    if (!m_player) return false;
    if (m_player->IsPlaying()) return true;
    Stop();
    return false;
}

void CFlashSprite::Render() {
    BufferUpdate();
    const float left = static_cast<float>(m_autoX), right = static_cast<float>(m_autoX + m_width);
    const float top = static_cast<float>(m_autoY), bottom = static_cast<float>(m_autoY + m_height);
    m_quad.v[0].x = m_quad.v[3].x = left;
    m_quad.v[1].x = m_quad.v[2].x = right;
    m_quad.v[0].y = m_quad.v[1].y = top;
    m_quad.v[2].y = m_quad.v[3].y = bottom;
    m_hge->Gfx_RenderQuad(&m_quad);
}

void CFlashSprite::Render(int x, int y) {
    if (m_autoRender || m_state != kPlaying) return;
    SetAutoRenderPos(x, y);
    StateUpdate();
    Render();
}

void CFlashSprite::setZ(float z, int vertex) {
    for (int i = 0; i < 4; ++i)
        if (vertex == -1 || vertex == i) m_quad.v[i].z = z;
}
