#include "drill2d/engine.h"
#include "drill2d/flash.h"
#include "drill2d/resources.h"
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

void RouteMouse(HGE* hge, hgeGUI* gui, I2DGameEngineSink* sink, int id) {
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

    if (sink) {
        if (left_down) sink->OnLButtonDown(x, y);
        if (left_up) sink->OnLButtonUp(x, y);
        if (right_down) sink->OnRButtonDown(x, y);
        if (right_up) sink->OnRButtonUp(x, y);
    }
    float width = static_cast<float>(hge->System_GetState(HGE_SCREENWIDTH));
    float height = static_cast<float>(hge->System_GetState(HGE_SCREENHEIGHT));
    if (hgeRect(0, 0, width, height).TestPoint(x, y) && sink) sink->OnMouseMove(x, y);
}

void RenderPlainly(HGE* hge, hgeGUI* gui, I2DGameEngineSink* sink) {
    hge->Gfx_BeginScene(0);
    hge->Gfx_Clear(0);
    if (sink) sink->OnRender();
    FlashManager::Render();
    gui->Render();
    hge->Gfx_EndScene();
}

void RenderThroughEffect(I2DGameEngine* engine, HGE* hge, hgeGUI* gui, I2DGameEngineSink* sink) {
    // Taken before the sink runs: it may set up the effect anew.
    HTARGET target = engine->GetTaget();
    HTARGET target1 = engine->GetTaget1();
    CGameSprite* back = engine->GetBackSpr();

    hge->Gfx_BeginScene(target);
    hge->Gfx_Clear(0);
    if (sink) sink->OnRenderTarget();
    FlashManager::Render();
    gui->Render();
    hge->Gfx_EndScene();

    hge->Gfx_BeginScene(target1);
    hge->Gfx_Clear(0);
    if (sink) sink->OnRenderTarget1();
    hge->Gfx_EndScene();

    hge->Gfx_BeginScene(0);
    hge->Gfx_Clear(0);
    if (sink) sink->OnRender();
    if (back && back->GetSprite()) back->GetSprite()->Render(0, 0);
    hge->Gfx_EndScene();
}

}  // namespace

bool C2DGameEngine::FrameFuc() {
    I2DGameEngine* engine = Get2DGameEngineInstance();
    HGE* hge = engine->GetHge();
    hgeGUI* gui = engine->GetGui();
    I2DGameEngineSink* sink = engine->GetEngineSink();
    if (!hge || !gui) return false;

    FreeFinishedSounds(engine, hge);
    if (GetActiveWindow() != hge->System_GetState(HGE_HWND)) return false;

    float dt = hge->Timer_GetDelta();
    int id = gui->Update(dt);
    bool ended = engine->PlayGameOpr();
    if (sink && !ended) sink->OnFrame(dt, id);
    CycleGui(gui, id);
    if (!ended) RouteMouse(hge, gui, sink, id);
    return false;
}

bool C2DGameEngine::Render() {
    I2DGameEngine* engine = Get2DGameEngineInstance();
    HGE* hge = engine->GetHge();
    hgeGUI* gui = engine->GetGui();
    I2DGameEngineSink* sink = engine->GetEngineSink();
    if (!hge || !gui) return false;

    if (engine->IsEnableFx())
        RenderThroughEffect(engine, hge, gui, sink);
    else
        RenderPlainly(hge, gui, sink);
    return false;
}
