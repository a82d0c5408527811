#pragma once

#include <memory>

#include "drill2d/engine.h"

// A host that does nothing; tests' hosts override what they need.
class SilentSink : public I2DGameEngineSink {
 public:
    void OnInit() override {}
    void OnRender() override {}
    void OnRenderTarget() override {}
    void OnRenderTarget1() override {}
    void OnFrame(float, int) override {}
    void OnLButtonDown(float, float) override {}
    void OnLButtonUp(float, float) override {}
    void OnRButtonDown(float, float) override {}
    void OnRButtonUp(float, float) override {}
    void OnMouseMove(float, float) override {}

 protected:
    static I2DGameEngine* Engine() { return C2DGameEngine::Get2DGameEngineInstance(); }
};

// A host's whole life in the engine, which is gone afterwards. False: the engine did not start.
inline bool RunHost(I2DGameEngineSink* host, int width, int height, const char* title) {
    std::unique_ptr<I2DGameEngine> engine(C2DGameEngine::Get2DGameEngineInstance());
    engine->SetEngineSink(host);
    return engine->InitHge(width, height, title, false);
}
