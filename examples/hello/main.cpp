// A picture from a pack, a ball that flies about, a knob that stops it, and a mouse that drags it.
#include <drill2d/drill2d.h>
#include <hgegui.h>

#include <memory>

class Knob : public hgeGUIObject {
 public:
    Knob(CGameResourceManager* res, float x, float y) : image_(res, "knob.png", true) {
        rect.Set(x, y, x + image_.GetWidth(true), y + image_.GetHeight(true));
    }
    void Render() override { image_.Render(rect.x1, rect.y1); }
    void MouseOver(bool over) override { image_.SetColor(over ? 0xFFFFD166 : 0xFFFFFFFF, -1); }
    // True makes this press the frame's command: OnFrame gets our id.
    bool MouseLButton(bool down) override { return down; }

 private:
    CGameSprite image_;
};

class Hello : public I2DGameEngineSink {
 public:
    explicit Hello(I2DGameEngine* engine) : engine_(engine) {}

    void OnInit() override {
        CGameResourceManager* res = CGameResourceManager::getInstance();
        res->AttachHge(engine_->GetHge());
        res->AttachPacket("hello.zip");
        res->SetCurPacket("hello.zip");
        background_ = std::make_unique<CGameSprite>(res, "background.png", true);
        ball_ = std::make_unique<CGameSprite>(res, "ball.png", true);
        ball_->SetHotSpot(48, 48);
        Knob* knob = new Knob(res, 320, 500);
        engine_->AddControl(knob);  // the engine owns it now
        knob_ = knob->id;
    }
    void OnFrame(float dt, int id) override {
        if (id == knob_) flying_ = !flying_;
        if (flying_ && !held_) Fly(dt);
        if (engine_->GetHge()->Input_KeyDown(HGEK_ESCAPE)) PostQuitMessage(0);
    }
    void OnRender() override {
        background_->Render(0, 0);
        ball_->RenderEx(x_, y_, turn_, held_ ? 1.15f : 1.0f, 0);
    }
    void OnLButtonDown(float x, float y) override {
        engine_->GetHge()->System_Log("left button down at %g, %g", x, y);
        held_ = true;
    }
    void OnLButtonUp(float x, float y) override {
        engine_->GetHge()->System_Log("left button up at %g, %g", x, y);
        held_ = false;
    }
    void OnMouseMove(float x, float y) override {
        if (!held_) return;
        x_ = x;
        y_ = y;
    }
    void OnRButtonDown(float, float) override {}
    void OnRButtonUp(float, float) override {}
    void OnRenderTarget() override {}
    void OnRenderTarget1() override {}

 private:
    void Fly(float dt) {
        x_ += speed_x_ * dt;
        y_ += speed_y_ * dt;
        turn_ += 2.0f * dt;
        if ((x_ < 48 && speed_x_ < 0) || (x_ > 752 && speed_x_ > 0)) speed_x_ = -speed_x_;
        if ((y_ < 48 && speed_y_ < 0) || (y_ > 552 && speed_y_ > 0)) speed_y_ = -speed_y_;
    }

    I2DGameEngine* engine_;
    std::unique_ptr<CGameSprite> background_, ball_;
    int knob_ = 0;
    bool flying_ = true, held_ = false;
    float x_ = 250, y_ = 200, turn_ = 0, speed_x_ = 220, speed_y_ = 160;
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    Hello hello(engine.get());
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&hello));
    return engine->InitHge(800, 600, "Hello, drill2d", false) ? 0 : 1;
}
