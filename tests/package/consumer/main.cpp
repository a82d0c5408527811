// A host as its author writes it: opens the screen, draws a few frames, quits.

#include <windows.h>

#include <cstdio>

#include "drill2d/engine.h"
#include "hgesprite.h"

namespace {

class Game : public I2DGameEngineSink {
 public:
    explicit Game(I2DGameEngine* engine) : engine_(engine) {}

    void OnInit() override {
        HTEXTURE texture = engine_->GetHge()->Texture_Create(16, 16);
        sprite_ = new hgeSprite(texture, 0, 0, 16, 16);
    }
    void OnRender() override {
        if (sprite_ == nullptr) return;
        sprite_->Render(10, 10);
        ++rendered_;
    }
    void OnFrame(float dt, int id) override {
        if (rendered_ < 3) return;
        delete sprite_;
        sprite_ = nullptr;
        PostQuitMessage(0);
    }
    void OnRenderTarget() override {}
    void OnRenderTarget1() override {}
    void OnLButtonDown(float x, float y) override {}
    void OnLButtonUp(float x, float y) override {}
    void OnRButtonDown(float x, float y) override {}
    void OnRButtonUp(float x, float y) override {}
    void OnMouseMove(float x, float y) override {}

    int Rendered() const { return rendered_; }

 private:
    I2DGameEngine* engine_;
    hgeSprite* sprite_ = nullptr;
    int rendered_ = 0;
};

}  // namespace

int main() {
    I2DGameEngine* engine = C2DGameEngine::Get2DGameEngineInstance();
    Game game(engine);
    engine->SetEngineSink(&game);
    const bool ran = engine->InitHge(320, 240, "drill2d consumer", false);
    std::printf("ran: %d, frames: %d\n", ran, game.Rendered());
    return ran && game.Rendered() >= 3 ? 0 : 1;
}
