#include "drill2d/engine.h"

#include <new>

#include "drill2d/flash.h"
#include "drill2d/resources.h"
#include "engine/live_objects.h"
#include "engine/safely.h"
#include "hgegui.h"

namespace {

// Ids are never used twice in a process: a host may keep one longer than its control lives.
int g_nNextCtrlId = 1;

// The framework's loop runs: InitHge is on the stack.
bool g_bInLoop = false;

}  // namespace

I2DGameEngine* C2DGameEngine::m_instance = nullptr;

I2DGameEngine* C2DGameEngine::Get2DGameEngineInstance() {
    if (!m_instance) m_instance = new (std::nothrow) C2DGameEngine;
    return m_instance;
}

C2DGameEngine::C2DGameEngine()
    : m_hMusic(0),
      m_pCursor(nullptr),
      m_pHge(nullptr),
      m_pGui(nullptr),
      m_pSink(nullptr),
      m_pBackSpr(nullptr),
      m_hTarget(0),
      m_hTarget1(0),
      m_bEnableFx(false),
      m_dwPauseTick(0),
      m_nRestTime(0),
      m_dwPlayStartTick(0),
      m_dwPlayTime(5),
      m_dwGameTimeTotal(0),
      m_nPlayedTime(0),
      m_nGameState(0),
      m_dwStartTick(0),
      m_dwPausedTotal(0),
      m_dwPauseSpan(0) {
    PrepareExceptions();
}

C2DGameEngine::~C2DGameEngine() {
    FlashManager::DestroyFlashManager();
    // Without a GUI the framework never started, and m_pHge is null or already given back.
    if (!m_pGui) return;
    delete m_pCursor;
    delete m_pGui;
    Safely("~C2DGameEngine",
           [&] { m_pHge->System_Log("shutdown: still alive in the kit: %s", live::Text().c_str()); });
    m_pHge->System_Shutdown();
    m_pHge->Release();
}

bool C2DGameEngine::InitHge(int width, int height, const char* title, bool zbuffer) {
    if (g_bInLoop) {
        m_pHge->System_Log("InitHge: the engine runs already");
        return false;
    }
    m_pHge = hgeCreate(HGE_VERSION);
    if (!m_pHge || !StartFramework(width, height, title, zbuffer)) return false;

    m_pGui = new (std::nothrow) hgeGUI;
    if (!m_pGui) {
        ReportTrouble("InitHge");
        StopFramework();
        return false;
    }
    m_pGui->SetNavMode(HGEGUI_NONAVKEYS);
    m_pGui->SetFocus(1);
    m_pGui->Enter();
    FlashManager::CreatFlashManager(m_pHge);

    g_bInLoop = true;
    if (m_pSink) {
        m_pSink->OnInit();
        m_dwStartTick = m_dwPlayStartTick;
        stop_game_time();
    }
    m_pHge->System_Start();
    g_bInLoop = false;
    return true;
}

void C2DGameEngine::StopFramework() {
    m_pHge->System_Shutdown();
    m_pHge->Release();
}

bool C2DGameEngine::StartFramework(int width, int height, const char* title, bool zbuffer) {
    m_pHge->System_SetState(HGE_FRAMEFUNC, FrameFuc);
    m_pHge->System_SetState(HGE_RENDERFUNC, Render);
    m_pHge->System_SetState(HGE_TITLE, "");
    m_pHge->System_SetState(HGE_WINDOWED, false);
    m_pHge->System_SetState(HGE_SCREENBPP, 32);
    m_pHge->System_SetState(HGE_SCREENWIDTH, width);
    m_pHge->System_SetState(HGE_SCREENHEIGHT, height);
    m_pHge->System_SetState(HGE_USESOUND, true);
    m_pHge->System_SetState(HGE_FPS, 60);
    m_pHge->System_SetState(HGE_ZBUFFER, zbuffer);
    m_pHge->System_SetState(HGE_SHOWSPLASH, false);
    m_pHge->System_SetState(HGE_DONTSUSPEND, true);
    m_pHge->System_SetState(HGE_HIDEMOUSE, false);
    if (title) m_pHge->System_SetState(HGE_TITLE, title);
    m_pHge->System_SetState(HGE_LOGFILE, "game.log");
    if (m_pHge->System_Initiate()) return true;
    StopFramework();
    return false;
}

bool C2DGameEngine::SetEngineSink(void* sink) {
    if (!sink) return false;
    m_pSink = static_cast<I2DGameEngineSink*>(sink);
    return true;
}

void C2DGameEngine::AddControl(hgeGUIObject* ctrl) {
    if (!ctrl || !m_pGui) return;
    ctrl->id = g_nNextCtrlId;
    m_pGui->AddCtrl(ctrl);
    m_pGui->SetFocus(g_nNextCtrlId);
    ++g_nNextCtrlId;
}

void C2DGameEngine::RemoveControl(hgeGUIObject* ctrl) {
    if (ctrl && m_pGui) m_pGui->DelCtrl(ctrl->id);
}

void C2DGameEngine::GotoTailControl(hgeGUIObject* ctrl) {
    if (ctrl && m_pGui) m_pGui->MoveToTail(ctrl->id);
}

bool C2DGameEngine::SetCursor(const char* file, CGameResourceManager* res) {
    if (!m_pGui) return false;
    m_pGui->SetCursor(nullptr);
    delete m_pCursor;
    m_pCursor = new (std::nothrow) CGameSprite;
    if (!m_pCursor) {
        ReportTrouble("SetCursor");
        return false;
    }
    // An image that does not load leaves an empty cursor; the framework's log names it.
    m_pCursor->LoadImageA(file, res, true);
    m_pGui->SetCursor(m_pCursor->GetSprite());
    return true;
}

I2DGameEngineSink* C2DGameEngine::GetEngineSink() {
    return m_pSink;
}
hgeGUI* C2DGameEngine::GetGui() {
    return m_pGui;
}
HGE* C2DGameEngine::GetHge() {
    return m_pHge;
}
CGameSprite* C2DGameEngine::GetBackSpr() {
    return m_pBackSpr;
}
unsigned long C2DGameEngine::GetTaget() {
    return m_hTarget;
}
unsigned long C2DGameEngine::GetTaget1() {
    return m_hTarget1;
}
bool C2DGameEngine::IsEnableFx() {
    return m_bEnableFx;
}
