#include <exception>
#include <utility>

#include "drill2d/engine.h"
#include "drill2d/flash.h"
#include "drill2d/resources.h"
#include "engine/safely.h"
#include "hgegui.h"

namespace {

// The control whose command made the GUI leave; gets the focus back when the GUI enters again.
int g_nLastCtrlId = 0;

void FreeFinishedSounds(I2DGameEngine* engine, HGE* hge) {
    if (engine->GetSoundSize() == 0) return;
    for (int i = 0; EffectHandle* sound = engine->EnumSound(i);) {
        // The order of calls is fixed; position and length are not needed here.
        hge->Channel_GetPos(sound->channel);
        hge->Channel_GetLength(sound->channel);
        if (hge->Channel_IsPlaying(sound->channel)) {
            ++i;
            continue;
        }
        hge->Effect_Free(sound->effect);
        engine->FreeSound(i);
    }
}

void CycleGui(hgeGUI* gui, int id) {
    if (id == -1 && g_nLastCtrlId != 0) {
        gui->SetFocus(g_nLastCtrlId);
        gui->Enter();
    } else if (id != 0) {
        g_nLastCtrlId = id;
        gui->Leave();
    }
}

bool IsOverFocusedControl(hgeGUI* gui, float x, float y) {
    hgeGUIObject* focused = gui->GetCtrl(gui->GetFocus());
    return focused && focused->rect.TestPoint(x, y);
}

// Asked for anew at each call: the one before may have set another sink and ended its own.
template <class... Args>
void Call(I2DGameEngine* engine, void (I2DGameEngineSink::*callback)(Args...), Args... args) {
    if (I2DGameEngineSink* sink = engine->GetEngineSink()) (sink->*callback)(args...);
}

void RouteMouse(I2DGameEngine* engine, HGE* hge, hgeGUI* gui, int id) {
    float x = 0, y = 0;
    hge->Input_GetMousePos(&x, &y);
    if (IsOverFocusedControl(gui, x, y)) return;

    bool left_down = hge->Input_KeyDown(HGEK_LBUTTON);
    bool left_up = hge->Input_KeyUp(HGEK_LBUTTON);
    bool right_down = hge->Input_KeyDown(HGEK_RBUTTON);
    bool right_up = hge->Input_KeyUp(HGEK_RBUTTON);
    // The order of calls is fixed; the held state is not needed here.
    hge->Input_GetKeyState(HGEK_LBUTTON);
    hge->Input_GetKeyState(HGEK_RBUTTON);
    if (id != 0) return;

    if (left_down) Call(engine, &I2DGameEngineSink::OnLButtonDown, x, y);
    if (left_up) Call(engine, &I2DGameEngineSink::OnLButtonUp, x, y);
    if (right_down) Call(engine, &I2DGameEngineSink::OnRButtonDown, x, y);
    if (right_up) Call(engine, &I2DGameEngineSink::OnRButtonUp, x, y);
    float width = static_cast<float>(hge->System_GetState(HGE_SCREENWIDTH));
    float height = static_cast<float>(hge->System_GetState(HGE_SCREENHEIGHT));
    if (hgeRect(0, 0, width, height).TestPoint(x, y)) Call(engine, &I2DGameEngineSink::OnMouseMove, x, y);
}

void RenderPlainly(I2DGameEngine* engine, HGE* hge, hgeGUI* gui) {
    hge->Gfx_BeginScene(0);
    hge->Gfx_Clear(0);
    Call(engine, &I2DGameEngineSink::OnRender);
    FlashManager::Render();
    gui->Render();
    hge->Gfx_EndScene();
}

void RenderThroughEffect(I2DGameEngine* engine, HGE* hge, hgeGUI* gui) {
    // Taken before the sink runs: it may set up the effect anew.
    HTARGET target = engine->GetTaget();
    HTARGET target1 = engine->GetTaget1();
    CGameSprite* back = engine->GetBackSpr();

    hge->Gfx_BeginScene(target);
    hge->Gfx_Clear(0);
    Call(engine, &I2DGameEngineSink::OnRenderTarget);
    FlashManager::Render();
    gui->Render();
    hge->Gfx_EndScene();

    hge->Gfx_BeginScene(target1);
    hge->Gfx_Clear(0);
    Call(engine, &I2DGameEngineSink::OnRenderTarget1);
    hge->Gfx_EndScene();

    hge->Gfx_BeginScene(0);
    hge->Gfx_Clear(0);
    Call(engine, &I2DGameEngineSink::OnRender);
    if (back && back->GetSprite()) back->GetSprite()->Render(0, 0);
    hge->Gfx_EndScene();
}

void UpdateFrame(I2DGameEngine* engine, HGE* hge, hgeGUI* gui) {
    FreeFinishedSounds(engine, hge);
    if (GetActiveWindow() != hge->System_GetState(HGE_HWND)) return;

    float dt = hge->Timer_GetDelta();
    int id = gui->Update(dt);
    bool ended = engine->PlayGameOpr();
    if (!ended) Call(engine, &I2DGameEngineSink::OnFrame, dt, id);
    CycleGui(gui, id);
    if (!ended) RouteMouse(engine, hge, gui, id);
}

// A frame that runs out of memory goes no further; the next one begins anew. One line for all of them.
template <class Frame>
void Run(Frame frame) noexcept {
    static bool reported = false;
    I2DGameEngine* engine = C2DGameEngine::Get2DGameEngineInstance();
    HGE* hge = engine ? engine->GetHge() : nullptr;
    hgeGUI* gui = hge ? engine->GetGui() : nullptr;
    if (!gui) return;
    try {
        frame(engine, hge, gui);
    } catch (const std::exception& problem) {
        if (!std::exchange(reported, true)) ReportTrouble("a frame", &problem);
    }
}

}  // namespace

bool C2DGameEngine::FrameFuc() {
    Run(UpdateFrame);
    return false;
}

bool C2DGameEngine::Render() {
    Run([](I2DGameEngine* engine, HGE* hge, hgeGUI* gui) {
        (engine->IsEnableFx() ? RenderThroughEffect : RenderPlainly)(engine, hge, gui);
    });
    return false;
}
