#pragma once

#include <drill2d/resources.h>

#include "scene.h"

namespace training {

// What the last exercise brought.
class ResultScene : public Scene {
 public:
    explicit ResultScene(Stage& stage);

    void show() override;
    void update(float dt) override;
    void render() override;
    void Retext() override;
    void PlayByItself(float dt) override;

 private:
    void DrawPlace();

    CGameSprite background_, card_, star_;
    CGameButton *again_, *home_;
    float time_ = 0;
};

}  // namespace training
