// The fragments of the guide as one host, on the template's assets. F9 to F12 do what the guide says of them.

#include <drill2d/drill2d.h>

#include <memory>
#include <string>

// What a control has to tell its owner.
class Clicks final : public INotifyMsg {
 public:
    explicit Clicks(I2DGameEngine* engine) : engine_(engine) {}
    bool IsValid() override { return true; }
    bool Release() override { return false; }  // whoever made it owns it
    void* QueryInterface(const GUID& iid, unsigned long) override {
        return iid == IID_INotifyMsg ? static_cast<INotifyMsg*>(this) : nullptr;
    }
    void OnNotify(ControlNotify* msg) override {
        if (msg->code == NOTIFY_CLICK) engine_->Play2DSound("click.wav");
    }

 private:
    I2DGameEngine* engine_;
};

// Captions, labels and Print take text in the system's code page.
std::string ToAnsi(const wchar_t* text) {
    char bytes[256] = "";
    WideCharToMultiByte(CP_ACP, 0, text, -1, bytes, sizeof bytes, nullptr, nullptr);
    return bytes;
}

class StartScene : public IScener {
 public:
    StartScene(CGameButton* button, CGameSprite* picture) : button_(button), picture_(picture) {}
    void show() override { button_->ShowWindow(true); }
    void hide() override { button_->ShowWindow(false); }
    void render() override { picture_->Render(0, 0); }
    void update(float) override {}
    void save_ctl_status() override {}
    void repeat_status() override {}
    void mouse_lbdown(float, float) override {}
    void mouse_lbup(float, float) override {}
    void mouse_rbdown(float, float) override {}
    void mouse_rbup(float, float) override {}
    void mouse_move(float, float) override {}

 private:
    CGameButton* button_;
    CGameSprite* picture_;
};

class Guide : public I2DGameEngineSink {
 public:
    explicit Guide(I2DGameEngine* engine) : engine_(engine), clicks_(engine) {}

    void OnInit() override {
        CGameResourceManager* res = CGameResourceManager::getInstance();
        res->AttachHge(engine_->GetHge());
        res->AttachPacket("game.zip");
        res->SetCurPacket("game.zip");
        picture_ = std::make_unique<CGameSprite>(res, "picture.png", true);
        MakeButton();
        MakeText();
        MakeMovie();
        scenes_.register_scene(MakeScene());
        scenes_.switch_scene(start_.get());
    }
    void OnFrame(float dt, int) override {
        HGE* hge = engine_->GetHge();
        if (!limited_) LimitTime();
        scenes_.update_scene(dt);
        if (hge->Input_KeyDown(HGEK_F9)) PlayMusic();
        if (hge->Input_KeyDown(HGEK_F10)) UseEffect();
        if (hge->Input_KeyDown(HGEK_F12)) engine_->saveImage("my game ");
        if (hge->Input_KeyDown(HGEK_ESCAPE)) PostQuitMessage(0);
    }
    void OnRender() override {
        if (!engine_->IsEnableFx()) Draw();
    }
    void OnRenderTarget() override { Draw(); }
    void OnRenderTarget1() override {
        picture_->RenderEx(400, 300, 0.5f, 1, 1);  // turned, radians
    }
    void OnLButtonDown(float x, float y) override { scenes_.mouse_lbdown(x, y); }
    void OnLButtonUp(float x, float y) override { scenes_.mouse_lbup(x, y); }
    void OnRButtonDown(float x, float y) override { scenes_.mouse_rbdown(x, y); }
    void OnRButtonUp(float x, float y) override { scenes_.mouse_rbup(x, y); }
    void OnMouseMove(float x, float y) override { scenes_.mouse_move(x, y); }

 private:
    void MakeButton() {
        button_ = new CGameButton;
        button_->LoadImageInfo(CGameResourceManager::getInstance(), "button.png");
        button_->MoveWindow(300, 480, 0, 0, false);
        button_->SetFont("SimSun", 24, 0, 0, 1);
        button_->SetFontColor(0xFFFFFFFF);
        button_->SetTextAlign(ALIGN_CENTER);
        button_->SetCaption("Click!");
        button_->SetINotifyMsg(&clicks_);
        engine_->AddControl(button_);  // the engine owns it now
    }

    void MakeText() {
        font_ = std::make_unique<GfxFont>("SimSun", 32, 0, 0, 1);
        font_->SetColor(0xFF3D405B, -1);
        button_->SetCaption(ToAnsi(L"\u5f00\u59cb").c_str());
    }
    void DrawText() {
        font_->Render(40, 40, L"\u8bad\u7ec3\u5f00\u59cb");
        font_->Print(40, 90, "%d points", 120);
    }

    void PlayMusic() {
        engine_->PlayMusic("music.ogg", true);
        engine_->GetHge()->System_SetState(HGE_FXVOLUME, 60);
    }

    void MakeMovie() {
        char file[] = "intro.swf";
        movie_ = FlashManager::CreatFlashSprite(true);
        movie_->SetAutoRenderPos(560, 40);
        if (movie_->LoadFlash(file, 200, 150)) movie_->Play();
    }
    void EndMovie() { FlashManager::DestroyFlashSprite(movie_); }

    IScener* MakeScene() {
        start_ = std::make_unique<StartScene>(button_, picture_.get());
        return start_.get();
    }

    void LimitTime() {
        engine_->setGameTimeTotal(10 * 60 * 1000);
        engine_->initPlayTime();
        limited_ = true;
    }

    void UseEffect() {
        char file[] = "ripple.hlsl";
        engine_->CreateFx(file);
    }

    void Draw() {
        scenes_.render_scene();
        DrawText();
    }

    I2DGameEngine* engine_;
    Clicks clicks_;
    std::unique_ptr<CGameSprite> picture_;
    std::unique_ptr<GfxFont> font_;
    std::unique_ptr<StartScene> start_;
    CGameButton* button_ = nullptr;
    IFlashSprite* movie_ = nullptr;
    SceneManager scenes_;
    bool limited_ = false;
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    Guide guide(engine.get());
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&guide));
    return engine->InitHge(800, 600, "Guide", false) ? 0 : 1;
}
