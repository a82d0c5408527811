#include <drill2d/drill2d.h>

#include <memory>

struct Game : I2DGameEngineSink {
    I2DGameEngine* engine = C2DGameEngine::Get2DGameEngineInstance();
    CGameSprite picture;

    void OnInit() override {
        engine->GetHge()->Resource_AttachPack("game.zip");
        picture.LoadImageA("picture.png", true);
    }
    void OnRender() override { picture.Render(0, 0); }
    void OnFrame(float, int) override {
        if (engine->GetHge()->Input_KeyDown(HGEK_ESCAPE)) PostQuitMessage(0);
    }
    void OnLButtonDown(float, float) override {}
    void OnLButtonUp(float, float) override {}
    void OnRButtonDown(float, float) override {}
    void OnRButtonUp(float, float) override {}
    void OnMouseMove(float, float) override {}
    void OnRenderTarget() override {}
    void OnRenderTarget1() override {}
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    Game game;
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&game));
    return engine->InitHge(800, 600, "My game", false) ? 0 : 1;
}
