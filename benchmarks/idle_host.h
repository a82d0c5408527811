#pragma once

#include "drill2d/engine.h"

namespace bench {

// A host that does nothing.
struct IdleHost : I2DGameEngineSink {
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
};

}  // namespace bench
