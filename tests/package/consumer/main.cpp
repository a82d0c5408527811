// A host as its author writes it: opens the screen, draws a few frames, quits.

#include <windows.h>

#include <cstdio>
#include <memory>

#include "drill2d/engine.h"
#include "hgesprite.h"

namespace {

class Game : public I2DGameEngineSink {
 public:
    void OnInit() override {}
    void OnRender() override { hgeSprite(0, 0, 0, 16, 16).Render(10, 10); }
    void OnFrame(float dt, int id) override {
        if (++frames == 3) PostQuitMessage(0);
    }
    void OnRenderTarget() override {}
    void OnRenderTarget1() override {}
    void OnLButtonDown(float x, float y) override {}
    void OnLButtonUp(float x, float y) override {}
    void OnRButtonDown(float x, float y) override {}
    void OnRButtonUp(float x, float y) override {}
    void OnMouseMove(float x, float y) override {}

    int frames = 0;
};

}  // namespace

int main() {
    // Gone before the process ends: drivers may crash when a device is still drawing then.
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    Game game;
    engine->SetEngineSink(&game);
    const bool ran = engine->InitHge(320, 240, "drill2d consumer", false);
    std::printf("ran: %d, frames: %d\n", ran, game.frames);
    return ran && game.frames == 3 ? 0 : 1;
}
