#include <algorithm>
#include <memory>
#include <new>

#include "drill2d/flash.h"
#include "engine/safely.h"
#include "flash/control_loader.h"

FlashManager* FlashManager::m_instance = nullptr;

FlashManager::FlashManager(HGE* hge) : m_hge(hge) {}

bool FlashManager::CreatFlashManager(HGE* hge) {
    if (!hge || m_instance) return false;
    m_instance = new (std::nothrow) FlashManager(hge);
    flash::ForgetMissingControl();
    if (!m_instance) ReportTrouble("CreatFlashManager");
    return true;
}

FlashManager* FlashManager::GetFlashManager() {
    return m_instance;
}

void FlashManager::DestroyFlashManager() {
    if (!m_instance) return;
    // One-shots have no other owner; the host's sprites may still be deleted by it.
    for (IFlashSprite* sprite : m_instance->m_sprites)
        if (static_cast<CFlashSprite*>(sprite)->m_removeWhenDone) delete sprite;
    delete m_instance;
    m_instance = nullptr;
}

void FlashManager::Render() {
    if (!m_instance) return;
    std::vector<IFlashSprite*>& sprites = m_instance->m_sprites;
    for (size_t i = 0; i < sprites.size();) {
        IFlashSprite* sprite = sprites[i];
        if (!sprite->IsAutoRender() || m_instance->DrawOrStop(sprite)) {
            ++i;
            continue;
        }
        sprites.erase(sprites.begin() + i);
        delete sprite;
    }
}

// False when the sprite has had its time.
bool FlashManager::DrawOrStop(IFlashSprite* sprite) {
    CFlashSprite* movie = static_cast<CFlashSprite*>(sprite);
    bool playing = movie->m_player && movie->m_player->IsPlaying();
    if (playing)
        sprite->Render();
    else if (movie->m_player)
        sprite->Stop();
    return playing || !movie->m_removeWhenDone;
}

bool FlashManager::StartSingleFlash(char* file, int x, int y, int w, int h) {
    if (!m_instance) return false;
    return Safely("StartSingleFlash", [&] {
        auto sprite = std::make_unique<CFlashSprite>(m_instance->m_hge, true, true);
        if (!sprite->LoadFlash(file, w, h)) return false;
        sprite->SetLoopPlay(false);
        sprite->SetAutoRenderPos(x, y);
        sprite->Play();
        m_instance->m_sprites.push_back(sprite.get());
        sprite.release();
        return true;
    });
}

IFlashSprite* FlashManager::CreatFlashSprite(bool autoRender) {
    if (!m_instance) return nullptr;
    return Safely("CreatFlashSprite", [&]() -> IFlashSprite* {
        auto sprite = std::make_unique<CFlashSprite>(m_instance->m_hge, false, autoRender);
        m_instance->m_sprites.push_back(sprite.get());
        return sprite.release();
    });
}

void FlashManager::DestroyFlashSprite(IFlashSprite*& sprite) {
    if (!m_instance) return;
    IFlashSprite* doomed = sprite;
    sprite = nullptr;
    std::vector<IFlashSprite*>& sprites = m_instance->m_sprites;
    auto found = std::find(sprites.begin(), sprites.end(), doomed);
    if (found == sprites.end()) return;
    sprites.erase(found);
    delete doomed;
}
