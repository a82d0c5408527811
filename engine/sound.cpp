#include "drill2d/engine.h"
#include "engine/safely.h"

EffectHandle* C2DGameEngine::Play2DSound(unsigned long effect) {
    if (!m_pGui) return nullptr;
    return Safely("Play2DSound", [&] {
        m_sounds.push_back({effect, 0});
        m_sounds.back().channel = m_pHge->Effect_PlayEx(effect, 100, 0, 1.0f, false);
        return &m_sounds.back();
    });
}

EffectHandle* C2DGameEngine::Play2DSound(const char* file) {
    if (!m_pGui) return nullptr;
    unsigned long effect = m_pHge->Effect_Load(file, 0);
    EffectHandle* sound = effect ? Play2DSound(effect) : nullptr;
    if (effect && !sound) m_pHge->Effect_Free(effect);
    return sound;
}

EffectHandle* C2DGameEngine::EnumSound(int index) {
    if (index < 0 || index >= static_cast<int>(m_sounds.size())) return nullptr;
    return &m_sounds[static_cast<size_t>(index)];
}

void C2DGameEngine::FreeSound(int index) {
    if (EnumSound(index)) m_sounds.erase(m_sounds.begin() + index);
}

unsigned long C2DGameEngine::GetSoundSize() {
    return static_cast<unsigned long>(m_sounds.size());
}

void C2DGameEngine::PlayMusic(const char* file, bool loop) {
    if (!m_pGui) return;
    if (m_hMusic) m_pHge->Effect_Free(m_hMusic);
    m_hMusic = m_pHge->Effect_Load(file, 0);
    m_pHge->System_GetErrorMessage();
    if (m_hMusic) m_pHge->Effect_PlayEx(m_hMusic, 100, 0, 1.0f, loop);
}

void C2DGameEngine::StopMusic() {
    if (!m_hMusic) return;
    m_pHge->Effect_Free(m_hMusic);
    m_hMusic = 0;
}
