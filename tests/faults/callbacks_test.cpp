// The host does everything from inside everything that calls it.
#include <gmock/gmock.h>

#include <map>
#include <memory>
#include <new>
#include <set>

#include "drill2d/drill2d.h"
#include "faults/fault_seams.h"
#include "hgecounters.h"
#include "hgegui.h"
#include "support/failing_memory.h"
#include "support/noted_scene.h"

namespace {

class Game;
Game* g_game = nullptr;
void Called(const char* callback);

I2DGameEngine* Engine() {
    return C2DGameEngine::Get2DGameEngineInstance();
}

// A control of the host's own: each of its handlers is a callback.
struct Handle final : hgeGUIObject {
    Handle() { rect.Set(300, 300, 340, 340); }
    void Render() override { Called("Handle::Render"); }
    void Update(float) override { Called("Handle::Update"); }
    void Enter() override { Called("Handle::Enter"); }
    void Leave() override { Called("Handle::Leave"); }
    void Focus(bool) override { Called("Handle::Focus"); }
    void MouseOver(bool) override { Called("Handle::MouseOver"); }
    bool MouseMove(float, float) override { return Called("Handle::MouseMove"), false; }
    // True: the GUI leaves and enters again.
    bool MouseLButton(bool) override { return Called("Handle::MouseLButton"), true; }
    bool MouseRButton(bool) override { return Called("Handle::MouseRButton"), false; }
    bool MouseWheel(int) override { return Called("Handle::MouseWheel"), false; }
    bool KeyClick(int, int) override { return Called("Handle::KeyClick"), false; }
};

struct Scene final : NotedScene {
    void Note(const char* call, std::initializer_list<float>) override {
        Called((std::string("Scene::") + call).c_str());
    }
};

struct Sink final : I2DGameEngineSink {
    void OnInit() override;
    void OnRender() override;
    void OnRenderTarget() override { Called("OnRenderTarget"); }
    void OnRenderTarget1() override { Called("OnRenderTarget1"); }
    void OnFrame(float dt, int) override;
    void OnLButtonDown(float x, float y) override;
    void OnLButtonUp(float, float) override { Called("OnLButtonUp"); }
    void OnRButtonDown(float, float) override { Called("OnRButtonDown"); }
    void OnRButtonUp(float, float) override { Called("OnRButtonUp"); }
    void OnMouseMove(float, float) override { Called("OnMouseMove"); }
};

using Action = std::function<void(Game&)>;

// A game with one of everything. The action runs in the first call of the trigger, once; without a trigger,
// in the first call of every callback, each with a world made anew.
class Game : public INotifyMsg {
 public:
    Game(std::string trigger, Action action) : trigger_(std::move(trigger)), action_(std::move(action)) {
        g_game = this;
    }
    virtual ~Game() { g_game = nullptr; }

    // The callbacks in which the action has run.
    std::set<std::string> Play() {
        auto* engine = Engine();
        Engine()->SetEngineSink(static_cast<I2DGameEngineSink*>(sink = new Sink));
        EXPECT_TRUE(engine->InitHge(320, 240, "callbacks", false));
        FreeAll();
        // The engine leaves them to their users.
        for (CGameSprite* back : backs_)
            delete back;
        delete engine;
        delete sink;
        // The quit messages of this life.
        for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);) {
        }
        hgeCounters counters;
        EXPECT_EQ(hgeGetCounters(&counters), leaves_fonts) << counters.references << " references are left";
        for (HGE* hge = hgeCreate(HGE_VERSION); hgeGetCounters(&counters);)
            hge->Release();
        // The engine's address is the same for ever: the next life begins there.
        failing_memory::Revive(engine);
        new (static_cast<void*>(engine)) C2DGameEngine;
        return acted_;
    }

    void Notice(const char* callback) {
        if (!started_ || inside_ || (!trigger_.empty() && trigger_ != callback) || acted_.count(callback))
            return;
        acted_.insert(callback);
        inside_ = true;
        action_(*this);
        inside_ = false;
        // What the action has taken is there again for the next callback.
        rebuild_ = trigger_.empty();
    }

    void Start() {
        Engine()->GetHge()->System_SetState(HGE_FPS, 0);
        CGameResourceManager::getInstance()->AttachHge(Engine()->GetHge());
        Build();
        MakeEffect(TEST_DATA "fade.hlsl");
        started_ = true;
    }

    void MakeEffect(std::string file) {
        Engine()->CreateFx(file.data());
        backs_.push_back(Engine()->GetBackSpr());
    }

    void Build() {
        rebuild_ = false;
        FreeAll();
        font = std::make_unique<GfxFont>("Arial", 16, 0, 0, 1);
        button = new CGameButton;
        button->LoadImageInfo(TEST_DATA "picture.png");
        button->MoveWindow(100, 100, 60, 40, true);
        button->SetFont(font.get());
        button->SetCaption("a");
        button->SetDragCtl(true);
        button->SetINotifyMsg(this);
        check = new CGameCheckBox;
        check->LoadImageInfo(TEST_DATA "picture.png");
        check->MoveWindow(200, 100, 40, 40, true);
        check->SetINotifyMsg(this);
        handle = new Handle;
        for (hgeGUIObject* control : {static_cast<hgeGUIObject*>(button), static_cast<hgeGUIObject*>(check),
                                      static_cast<hgeGUIObject*>(handle)})
            Engine()->AddControl(control);
        cursor = Engine()->SetCursor(TEST_DATA "picture.png", CGameResourceManager::getInstance());
        char movie[] = "C:\\m";
        FlashManager::StartSingleFlash(movie, 0, 0, 20, 20);
        scenes.switch_scene(&scene[0]);
    }

    void FreeAll() {
        delete std::exchange(button, nullptr);
        delete std::exchange(check, nullptr);
        delete std::exchange(handle, nullptr);
        font.reset();
        Engine()->StopMusic();
        CGameResourceManager::getInstance()->FreePacketResource("");
    }

    // The player's doings, one a frame.
    void Step() {
        if (inside_) return;
        running = true;
        if (rebuild_) Build();
        HWND window = Engine()->GetHge()->System_GetState(HGE_HWND);
        fault_seams::AdvanceTicks(1000);
        const struct {
            UINT message;
            WPARAM wparam;
            int x, y;
        } doings[] = {
            {WM_MOUSEMOVE, 0, 20, 20},     {WM_LBUTTONDOWN, 1, 20, 20},   {WM_LBUTTONUP, 0, 20, 20},
            {WM_RBUTTONDOWN, 2, 20, 20},   {WM_RBUTTONUP, 0, 20, 20},     {WM_MOUSEMOVE, 0, 120, 110},
            {WM_LBUTTONDOWN, 1, 120, 110}, {WM_MOUSEMOVE, 1, 125, 112},   {WM_LBUTTONUP, 0, 125, 112},
            {WM_MOUSEMOVE, 0, 210, 110},   {WM_LBUTTONDOWN, 1, 210, 110}, {WM_LBUTTONUP, 0, 210, 110},
            {WM_MOUSEMOVE, 0, 310, 310},   {WM_LBUTTONDOWN, 1, 310, 310}, {WM_MOUSEMOVE, 1, 312, 310},
            {WM_LBUTTONUP, 0, 312, 310},   {WM_MOUSEMOVE, 0, 20, 20},     {WM_MOUSEMOVE, 0, 311, 310},
            {WM_RBUTTONDOWN, 2, 311, 310}, {WM_RBUTTONUP, 0, 311, 310},   {WM_KEYDOWN, 'A', 0, 0}};
        size_t count = std::size(doings);
        if (!window || step_ >= 3 * count)
            return PostThreadMessageA(GetCurrentThreadId(), WM_QUIT, 0, 0), void();
        const auto& doing = doings[step_++ % count];
        if (doing.message == WM_KEYDOWN && handle) Engine()->GetGui()->SetFocus(handle->id);
        PostMessageA(window, doing.message, doing.wparam, MAKELPARAM(doing.x, doing.y));
        scenes.update_scene(0.01f);
        if (step_ % 5 == 0) scenes.switch_scene(&scene[step_ / 5 % 2]);
    }

    bool IsValid() override { return true; }
    bool Release() override { return true; }
    void* QueryInterface(const GUID&, unsigned long) override { return static_cast<INotifyMsg*>(this); }
    void OnNotify(ControlNotify* msg) override {
        // The sender may not be destroyed in this one.
        if (msg->code == NOTIFY_MOUSEOVER) return;
        Called(("OnNotify " + std::to_string(msg->code)).c_str());
    }

    Sink* sink = nullptr;
    std::unique_ptr<GfxFont> font;
    CGameButton* button = nullptr;
    CGameCheckBox* check = nullptr;
    Handle* handle = nullptr;
    Scene scene[2];
    SceneManager scenes;
    bool cursor = false;
    bool running = false;
    bool leaves_fonts = false;  // those that controls make live as long as the process

 private:
    std::string trigger_;
    Action action_;
    std::set<std::string> acted_;
    bool started_ = false, inside_ = false, rebuild_ = false;
    size_t step_ = 0;
    std::vector<CGameSprite*> backs_;
};

void Called(const char* callback) {
    if (g_game) g_game->Notice(callback);
}
void Sink::OnInit() {
    for (Scene& scene : g_game->scene)
        g_game->scenes.register_scene(&scene);
    g_game->Start();
    Called("OnInit");
}
void Sink::OnRender() {
    g_game->scenes.render_scene();
    if (g_game->font) g_game->font->Print(5, 5, "text");
    Called("OnRender");
}
void Sink::OnFrame(float, int) {
    g_game->Step();
    Called("OnFrame");
}
void Sink::OnLButtonDown(float x, float y) {
    g_game->scenes.mouse_lbdown(x, y);
    Called("OnLButtonDown");
}

void RemoveControls(Game& game) {
    for (hgeGUIObject* control :
         {static_cast<hgeGUIObject*>(game.button), static_cast<hgeGUIObject*>(game.check),
          static_cast<hgeGUIObject*>(game.handle)})
        Engine()->RemoveControl(control);
}
void FreeAll(Game& game) {
    game.FreeAll();
    FlashManager::DestroyFlashManager();
    FlashManager::CreatFlashManager(Engine()->GetHge());
    Engine()->GetHge()->Resource_RemoveAllPacks();
}
void AddControls(Game&) {
    for (int i = 0; i < 3; ++i)
        Engine()->AddControl(new CGameLable);
}
void SwitchScenes(Game& game) {
    game.scenes.switch_scene(&game.scene[1]);
    game.scenes.register_scene(&game.scene[0]);
    game.scenes.switch_scene(&game.scene[0]);
    game.scenes.hide();
}
void ComeBackIn(Game& game) {
    C2DGameEngine::FrameFuc();
    C2DGameEngine::Render();
    EXPECT_TRUE(!game.running || !Engine()->GetHge()->System_Start());
    EXPECT_FALSE(Engine()->InitHge(100, 100, "again", false));
}
void AnotherSink(Game& game) {
    delete std::exchange(game.sink, nullptr);
    game.sink = new Sink;
    Engine()->SetEngineSink(static_cast<I2DGameEngineSink*>(game.sink));
}
void AnotherEffect(Game& game) {
    game.MakeEffect("missing.hlsl");
    game.MakeEffect(TEST_DATA "fade.hlsl");
    Engine()->saveImage("callbacks");
}
void StarveFrames(Game&) {
    for (int nth = 1; nth < 200; ++nth) {
        failing_memory::Fail(nth, nth % 2);
        C2DGameEngine::FrameFuc();
        C2DGameEngine::Render();
        Engine()->saveImage("x");
        if (!failing_memory::Stop()) return;
    }
}
void EndTraining(Game& game) {
    game.leaves_fonts = true;
    Engine()->setGameTimeTotal(1);
    Engine()->initPlayTime();
    fault_seams::AdvanceTicks(1000);
    Engine()->PlayGameOpr();
    Engine()->stop_game_time();
}

TEST(Callbacks, MayDoAnythingAndTheGameGoesOn) {
    struct {
        const char* name;
        void (*action)(Game&);
        size_t least;  // callbacks that come all the same
    } const actions[] = {{"nothing", [](Game&) {}, 31},       {"remove controls", RemoveControls, 10},
                         {"free all", FreeAll, 10},           {"add controls", AddControls, 10},
                         {"switch scenes", SwitchScenes, 10}, {"come back in", ComeBackIn, 10},
                         {"another sink", AnotherSink, 10},   {"another effect", AnotherEffect, 10},
                         {"end the training", EndTraining, 3}};
    for (const auto& each : actions) {
        SCOPED_TRACE(each.name);
        Game game("", each.action);
        EXPECT_GE(game.Play().size(), each.least);
    }
}

TEST(Callbacks, AFrameWithoutMemoryEndsEarly) {
    Game game("OnFrame", StarveFrames);
    EXPECT_THAT(game.Play(), testing::ElementsAre("OnFrame"));
}

TEST(Callbacks, MayEndTheProgram) {
    void (*const endings[])(Game&) = {
        [](Game&) { Engine()->GetHge()->System_Shutdown(); },
        [](Game&) { DestroyWindow(Engine()->GetHge()->System_GetState(HGE_HWND)); }};
    int life = 0;
    for (const char* callback :
         {"OnInit", "OnFrame", "OnRender", "OnRenderTarget", "OnRenderTarget1", "OnLButtonDown", "OnNotify 1",
          "OnNotify 256", "Scene::update", "Scene::render", "Handle::Update", "Handle::Render",
          "Handle::Focus", "Handle::MouseLButton"}) {
        SCOPED_TRACE(callback);
        Game game(callback, endings[life++ % 2]);
        EXPECT_THAT(game.Play(), testing::Contains(callback));
    }
}

}  // namespace
