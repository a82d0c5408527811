// The fragments of the guide as one host, on the template's assets. F9 to F12 do what the guide says of them.

#include <drill2d/drill2d.h>

#include <memory>
#include <string>

// What a control has to tell its owner.
struct Clicks final : INotifyMsg {
    bool IsValid() override { return true; }
    bool Release() override { return false; }  // whoever made it owns it
    void* QueryInterface(const GUID& iid, unsigned long) override {
        return iid == IID_INotifyMsg ? static_cast<INotifyMsg*>(this) : nullptr;
    }
    void OnNotify(ControlNotify* msg) override {
        if (msg->code == NOTIFY_CLICK) C2DGameEngine::Get2DGameEngineInstance()->Play2DSound("click.wav");
    }
};

// Captions, labels and Print take text in the system's code page.
std::string ToAnsi(const wchar_t* text) {
    char bytes[256] = "";
    WideCharToMultiByte(CP_ACP, 0, text, -1, bytes, sizeof bytes, nullptr, nullptr);
    return bytes;
}

struct StartScene : IScener {
    CGameButton* button;
    CGameSprite* picture;

    StartScene(CGameButton* its_button, CGameSprite* its_picture)
        : button(its_button), picture(its_picture) {}
    void show() override { button->ShowWindow(true); }
    void hide() override { button->ShowWindow(false); }
    void render() override { picture->Render(0, 0); }
    void update(float) override {}
    void save_ctl_status() override {}
    void repeat_status() override {}
    void mouse_lbdown(float, float) override {}
    void mouse_lbup(float, float) override {}
    void mouse_rbdown(float, float) override {}
    void mouse_rbup(float, float) override {}
    void mouse_move(float, float) override {}
};

struct Game : I2DGameEngineSink {
    I2DGameEngine* engine = C2DGameEngine::Get2DGameEngineInstance();
    CGameSprite picture;
    Clicks clicks;
    CGameButton* button = nullptr;
    std::unique_ptr<GfxFont> font;
    std::unique_ptr<CGameSprite> ball;
    IFlashSprite* movie = nullptr;
    std::unique_ptr<StartScene> start;
    SceneManager scenes;
    bool limited = false;

    ~Game() override { FlashManager::DestroyFlashSprite(movie); }
    void OnInit() override {
        engine->GetHge()->Resource_AttachPack("game.zip");
        picture.LoadImageA("picture.png", true);
        MakeBall();
        MakeButton();
        MakeText();
        MakeMovie();
        scenes.register_scene(MakeScene());
        scenes.switch_scene(start.get());
    }
    void OnFrame(float dt, int) override {
        HGE* hge = engine->GetHge();
        if (!limited) LimitTime();
        scenes.update_scene(dt);
        if (hge->Input_KeyDown(HGEK_F9)) PlayMusic();
        if (hge->Input_KeyDown(HGEK_F10)) UseEffect();
        if (hge->Input_KeyDown(HGEK_F12)) engine->saveImage("my game ");
        if (hge->Input_KeyDown(HGEK_ESCAPE)) PostQuitMessage(0);
    }
    void OnRender() override {
        if (!engine->IsEnableFx()) Draw();
    }
    void OnRenderTarget() override { Draw(); }
    void OnRenderTarget1() override {
        picture.RenderEx(400, 300, 0.5f, 1, 1);  // turned, radians
    }
    void OnLButtonDown(float x, float y) override { scenes.mouse_lbdown(x, y); }
    void OnLButtonUp(float x, float y) override { scenes.mouse_lbup(x, y); }
    void OnRButtonDown(float x, float y) override { scenes.mouse_rbdown(x, y); }
    void OnRButtonUp(float x, float y) override { scenes.mouse_rbup(x, y); }
    void OnMouseMove(float x, float y) override { scenes.mouse_move(x, y); }

    void MakeBall() {
        CGameResourceManager* res = CGameResourceManager::getInstance();
        res->AttachHge(engine->GetHge());
        res->AttachPacket("game.zip");
        res->SetCurPacket("game.zip");
        ball = std::make_unique<CGameSprite>(res, "picture.png", true);
    }
    void MakeButton() {
        button = new CGameButton;
        button->LoadImageInfo("button.png");
        button->MoveWindow(300, 480, 0, 0, false);
        button->SetFont("SimSun", 24, 0, 0, 1);
        button->SetFontColor(0xFFFFFFFF);
        button->SetTextAlign(ALIGN_CENTER);
        button->SetCaption("Click!");
        button->SetINotifyMsg(&clicks);
        engine->AddControl(button);  // the engine owns it now
    }

    void MakeText() {
        font = std::make_unique<GfxFont>("SimSun", 32, 0, 0, 1);
        font->SetColor(0xFF3D405B, -1);
        button->SetCaption(ToAnsi(L"\u5f00\u59cb").c_str());
    }
    void DrawText() {
        font->Render(40, 40, L"\u8bad\u7ec3\u5f00\u59cb");
        font->Print(40, 90, "%d points", 120);
    }

    void PlayMusic() {
        engine->PlayMusic("music.ogg", true);
        engine->GetHge()->System_SetState(HGE_FXVOLUME, 60);
    }

    void MakeMovie() {
        char file[] = "intro.swf";
        movie = FlashManager::CreatFlashSprite(true);
        movie->SetAutoRenderPos(560, 40);
        if (movie->LoadFlash(file, 200, 150)) movie->Play();
    }

    IScener* MakeScene() {
        start = std::make_unique<StartScene>(button, &picture);
        return start.get();
    }

    void LimitTime() {
        engine->setGameTimeTotal(10 * 60 * 1000);
        engine->initPlayTime();
        limited = true;
    }

    void UseEffect() {
        char file[] = "ripple.hlsl";
        engine->CreateFx(file);
    }

    void Draw() {
        scenes.render_scene();
        DrawText();
    }
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    Game game;
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&game));
    return engine->InitHge(800, 600, "Guide", false) ? 0 : 1;
}
