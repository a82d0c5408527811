#include "drill2d/engine.h"

namespace {

enum GameState { kStopped = 0, kPlaying = 1, kPaused = 2 };

bool g_bGameTimeEnd = false;

}  // namespace

void C2DGameEngine::initPlayTime() {
    m_dwStartTick = GetTickCount();
}

void C2DGameEngine::playGame() {
    m_dwPauseSpan = 0;
    m_dwPlayStartTick = GetTickCount();
    m_nGameState = kPlaying;
}

void C2DGameEngine::PauseGame() {
    m_dwPauseTick = GetTickCount();
    m_nGameState = kPaused;
}

void C2DGameEngine::stop_game_time() {
    m_dwGameTimeTotal = 0;
    m_nPlayedTime = 0;
    m_dwStartTick = 0;
    m_dwPausedTotal = 0;
    m_dwPauseSpan = 0;
    m_dwPlayStartTick = 0;
    m_nGameState = kStopped;
    m_dwPauseTick = 0;
}

void C2DGameEngine::setPlayTime(unsigned long value) {
    m_dwPlayTime = value;
}
void C2DGameEngine::setRestTime(int value) {
    m_nRestTime = value;
}
void C2DGameEngine::setGameTimeTotal(unsigned long milliseconds) {
    m_dwGameTimeTotal = milliseconds;
}

int C2DGameEngine::getPlayTimed() {
    if (!g_bGameTimeEnd && m_dwStartTick != 0)
        m_nPlayedTime = static_cast<int>(GetTickCount() - m_dwPauseSpan - m_dwPausedTotal - m_dwStartTick);
    return m_nPlayedTime;
}

// The limit is not enforced in this build: the end notice needs a label.
bool C2DGameEngine::PlayGameOpr() {
    return false;
}

bool C2DGameEngine::IsGameTimeEnd() {
    return g_bGameTimeEnd;
}
