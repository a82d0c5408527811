#include <memory>
#include <string>

#include "drill2d/controls.h"
#include "drill2d/engine.h"
#include "engine/safely.h"
#include "hgegui.h"
#include "text/code_page.h"

namespace {

enum GameState { kStopped = 0, kPlaying = 1, kPaused = 2 };

constexpr DWORD kNoticeMs = 5000;
constexpr int kNoticeTextSize = 28;
constexpr DWORD kNoticeTextColor = 0x96FFFFFF;
constexpr DWORD kNoticeDimColor = 0x96000000;

CGameLableEx* g_pTimeEndLable = nullptr;
bool g_bGameTimeEnd = false;

// The GUI deletes the controls that it still holds.
class TimeEndNotice final : public CGameLableEx {
 public:
    TimeEndNotice() = default;
    ~TimeEndNotice() override {
        if (g_pTimeEndLable == this) g_pTimeEndLable = nullptr;
    }
};

RECT ClientArea(HWND window) {
    RECT area = {};
    GetClientRect(window, &area);
    return area;
}

CGameLableEx* MakeNotice(HWND window) {
    auto notice = std::make_unique<TimeEndNotice>();
    notice->SetFont(code_page::SystemText(L"\u5b8b\u4f53", "SimSun").c_str(), kNoticeTextSize, false, false,
                    true);
    notice->SetColor(kNoticeTextColor);
    notice->setformat(FORMAT_CENTER);
    notice->LoadImageInfo(
        code_page::SystemText(L"game/\u5168\u9ed1\u900f\u660e.png", "game/black.png").c_str());
    RECT area = ClientArea(window);
    notice->MoveWindow(0, 0, static_cast<float>(area.right), static_cast<float>(area.bottom), true);
    notice->setbackgroundColor(kNoticeDimColor);
    return notice.release();
}

std::string NoticeText() {
    return code_page::SystemText(
        L" \u5c0a\u656c\u7684\u7528\u6237,"
        L"\u8bad\u7ec3\u65f6\u95f4\u5df2\u5230\uff0c\u6e38\u620f\u5373\u5c06\u9000\u51fa!",
        " The training time is over, the game is about to end!");
}

}  // namespace

void C2DGameEngine::initPlayTime() {
    m_dwStartTick = GetTickCount();
}

void C2DGameEngine::playGame() {
    if (g_pTimeEndLable) {
        if (m_pGui) m_pGui->SetFocus(-1);
        g_pTimeEndLable->ShowWindow(false);
        m_dwPausedTotal += m_dwPauseSpan;
    }
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
    if (!g_pTimeEndLable) return;
    // The notice stays alive: this may run inside the GUI's walk over its controls.
    RemoveControl(g_pTimeEndLable);
    g_pTimeEndLable = nullptr;
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

// Wall-clock time, pauses included: the limit bounds the whole training run.
bool C2DGameEngine::PlayGameOpr() {
    if (m_dwStartTick == 0 || m_dwGameTimeTotal == 0) return false;
    if (GetTickCount() - m_dwStartTick < m_dwGameTimeTotal) return false;
    ShowTimeEndNotice();
    m_nGameState = kStopped;
    m_nPlayedTime = static_cast<int>(m_dwGameTimeTotal);
    // Once in a process: the end of a second run quits at once.
    static const DWORD notice_start = GetTickCount();
    if (GetTickCount() - notice_start >= kNoticeMs) {
        g_bGameTimeEnd = true;
        PostQuitMessage(0);
    }
    return true;
}

void C2DGameEngine::ShowTimeEndNotice() {
    if (!m_pGui) return;
    // A notice that cannot be made now is made in a later frame; the time runs out meanwhile.
    Safely("the notice of the end", [&] {
        if (!g_pTimeEndLable) {
            g_pTimeEndLable = MakeNotice(m_pHge->System_GetState(HGE_HWND));
            AddControl(g_pTimeEndLable);
        }
        g_pTimeEndLable->SetText(NoticeText().c_str());
        g_pTimeEndLable->ShowWindow(true);
    });
}

bool C2DGameEngine::IsGameTimeEnd() {
    return g_bGameTimeEnd;
}
