// A training for eye and memory: two exercises, best scores, settings, two languages.
#include <drill2d/drill2d.h>

#include <memory>

#include "game.h"
#include "logic/options.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR command_line, int) {
    std::string unknown;
    training::Options options = training::Options::Parse(command_line, &unknown);
    if (!unknown.empty()) OutputDebugStringA(("options not taken: " + unknown + "\n").c_str());

    // The game is destroyed before the engine whose images and sounds it uses.
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    training::Game game(engine.get(), options);
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&game));
    return engine->InitHge(800, 600, "Lamplight", false) ? 0 : 1;
}
