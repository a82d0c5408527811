// Three effects over two scenes each. Space or the button: the next one; S: a screenshot; a click throws a
// stone.
#include <drill2d/drill2d.h>
#include <hgegui.h>

#include <cmath>
#include <memory>
#include <vector>

constexpr float kWidth = 800, kHeight = 600;
const char* const kEffects[] = {"ripple.hlsl", "lantern.hlsl", "crossfade.hlsl"};
constexpr int kEffectCount = 3;

class NextButton : public hgeGUIObject {
 public:
    NextButton(CGameResourceManager* res, float x, float y) : image_(res, "next.png", true) {
        rect.Set(x, y, x + image_.GetWidth(true), y + image_.GetHeight(true));
    }
    void Render() override { image_.Render(rect.x1, rect.y1); }
    // True makes this press the frame's command: OnFrame gets our id.
    bool MouseLButton(bool down) override { return down; }

 private:
    CGameSprite image_;
};

struct Ring {
    float x, y, age;  // pixels, seconds
};

class Effects : public I2DGameEngineSink {
 public:
    explicit Effects(I2DGameEngine* engine) : engine_(engine) {}

    void OnInit() override {
        CGameResourceManager* res = CGameResourceManager::getInstance();
        res->AttachHge(engine_->GetHge());
        res->AttachPacket("effects.zip");
        res->SetCurPacket("effects.zip");
        day_ = std::make_unique<CGameSprite>(res, "day.jpg", true);
        night_ = std::make_unique<CGameSprite>(res, "night.jpg", true);
        cloud_ = std::make_unique<CGameSprite>(res, "cloud.png", true);
        ring_ = std::make_unique<CGameSprite>(res, "ring.png", true);
        ring_->SetHotSpot(64, 64);
        glow_ = std::make_unique<CGameSprite>(res, "glow.png", true);
        glow_->SetHotSpot(128, 128);
        glow_->SetBlendMode(BLEND_ALPHAADD);
        NextButton* button = new NextButton(res, 690, 490);
        engine_->AddControl(button);  // the engine owns it now
        button_ = button->id;
        char first[] = "ripple.hlsl";
        engine_->CreateFx(first);
    }
    void OnFrame(float dt, int id) override {
        HGE* hge = engine_->GetHge();
        seconds_ += dt;
        MoveRings(dt);
        if (id == button_ || hge->Input_KeyDown(HGEK_SPACE)) Next();
        if (hge->Input_KeyDown('S')) engine_->saveImage("effects");
        if (hge->Input_KeyDown(HGEK_ESCAPE)) PostQuitMessage(0);
    }
    // The picture, with the button over it.
    void OnRenderTarget() override {
        day_->Render(0, 0);
        for (int i = 0; i < 3; ++i)
            cloud_->Render(std::fmod(260.0f * i + 12 * seconds_, kWidth + 220) - 210, 40.0f + 35 * i);
    }
    // What the effect does with it.
    void OnRenderTarget1() override {
        if (effect_ == 0) DrawRings();
        if (effect_ == 1) DrawLights();
        if (effect_ == 2) night_->Render(0, 0);
    }
    // The sprite over both comes next; its colour is what the effect is told.
    void OnRender() override {
        CGameSprite* back = engine_->GetBackSpr();
        if (!back) return;
        float progress = 0.5f - 0.5f * std::cos(seconds_ * 0.9f);
        back->SetColor(effect_ == 2 ? 0xFF000000 | static_cast<DWORD>(255 * progress) << 16 : 0xFFFFFFFF, -1);
    }
    void OnLButtonDown(float x, float y) override { rings_.push_back({x, y, 0}); }
    void OnLButtonUp(float, float) override {}
    void OnRButtonDown(float, float) override {}
    void OnRButtonUp(float, float) override {}
    void OnMouseMove(float x, float y) override {
        mouse_x_ = x;
        mouse_y_ = y;
    }

 private:
    static constexpr float kRingSeconds = 3;
    static constexpr int kShore = 400;  // where the water begins

    // The targets stay; only the effect changes.
    void Next() {
        effect_ = (effect_ + 1) % kEffectCount;
        seconds_ = 0;
        rings_.clear();
        engine_->GetHge()->Gfx_LoadEffect(kEffects[effect_]);
    }
    void MoveRings(float dt) {
        for (Ring& ring : rings_)
            ring.age += dt;
        while (!rings_.empty() && rings_.front().age > kRingSeconds)
            rings_.erase(rings_.begin());
        until_drop_ -= dt;
        if (until_drop_ > 0) return;
        until_drop_ = 0.7f;
        HGE* hge = engine_->GetHge();
        rings_.push_back({hge->Random_Float(60, kWidth - 60), hge->Random_Float(420, kHeight - 30), 0});
    }
    void DrawRings() {
        engine_->GetHge()->Gfx_SetClipping(0, kShore, 800, 600 - kShore);
        for (const Ring& ring : rings_) {
            float life = 1 - ring.age / kRingSeconds;
            ring_->SetColor(static_cast<DWORD>(255 * life) << 24 | 0xFFFFFF, -1);
            float size = 0.25f + 1.1f * ring.age;
            ring_->RenderEx(ring.x, ring.y, 0, size, size * 0.45f);
        }
    }
    void DrawLights() {
        glow_->SetColor(0xFFFFD9A0, -1);
        glow_->RenderEx(mouse_x_, mouse_y_, 0, 1.5f, 1.5f);
        const DWORD colors[] = {0xC0FF8040, 0xC060C0FF, 0xC0C0FF70};
        for (int i = 0; i < 3; ++i) {
            glow_->SetColor(colors[i], -1);
            float swing = seconds_ * (0.7f + 0.2f * i) + 2.0f * i;
            glow_->RenderEx(170.0f + 230 * i + 50 * std::sin(swing), 330 + 40 * std::cos(2 * swing), 0, 1.2f,
                            1.2f);
        }
    }

    I2DGameEngine* engine_;
    std::unique_ptr<CGameSprite> day_, night_, cloud_, ring_, glow_;
    std::vector<Ring> rings_;  // the oldest first
    int button_ = 0, effect_ = 0;
    float seconds_ = 0, until_drop_ = 0, mouse_x_ = 400, mouse_y_ = 200;
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    Effects effects(engine.get());
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&effects));
    return engine->InitHge(800, 600, "drill2d effects", false) ? 0 : 1;
}
