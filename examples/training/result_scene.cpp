#include "result_scene.h"

#include <algorithm>
#include <cmath>

#include "palette.h"

namespace training {

namespace {

constexpr float kCountSeconds = 0.8f;
constexpr float kWaitForItself = 2.0f;

}  // namespace

ResultScene::ResultScene(Stage& stage)
    : Scene(stage),
      background_(stage.Resources(), "background.png", true),
      card_(stage.Resources(), "card.png", true),
      star_(stage.Resources(), "star.png", true),
      again_(AddButton("button.png", 148, 476, [this] { GetStage().GoTo(SceneName::kPlay); })),
      home_(AddButton("button.png", 412, 476, [this] { GetStage().GoTo(SceneName::kStart); })) {
    star_.SetHotSpot(64, 64);
    for (CGameButton* button : {again_, home_})
        button->loadMouseAni("glint.png", 10, 14, 240, 64);
    Retext();
}

void ResultScene::Retext() {
    SetCaption(again_, Text::kAgain);
    SetCaption(home_, Text::kHome);
}

void ResultScene::show() {
    Scene::show();
    time_ = 0;
    GetStage().PlaySound(GetStage().LastPlace() == 0 ? "win.wav" : "level.wav");
}

void ResultScene::update(float dt) {
    time_ += dt;
}

void ResultScene::render() {
    Stage& stage = GetStage();
    Fonts& fonts = GetFonts();
    const Summary& result = stage.LastResult();
    background_.Render(0, 0);
    card_.Render(160, 130);
    float grown = std::min(1.0f, time_ / 0.3f);
    star_.RenderEx(400, 126, 0.06f * std::sin(time_ * 2), grown, grown);
    bool best = stage.LastPlace() == 0;
    fonts.Draw(Fonts::kBody, Fonts::kCentre, 400, 188, best ? kTeal : kInk,
               stage.Say(best ? Text::kNewBest : Text::kResult));
    float counted = std::min(1.0f, time_ / kCountSeconds);
    int score = static_cast<int>(static_cast<float>(result.score) * counted);
    fonts.Draw(Fonts::kLarge, Fonts::kCentre, 400, 228, kAmber, stage.Say(Text::kScore, score));
    fonts.Draw(Fonts::kBody, Fonts::kCentre, 400, 298, kInk, stage.Say(Text::kReached, result.level));
    fonts.Draw(Fonts::kBody, Fonts::kCentre, 400, 330, kInk, stage.Say(Text::kAccuracy, result.Accuracy()));
    DrawPlace();
}

void ResultScene::DrawPlace() {
    Stage& stage = GetStage();
    int place = stage.LastPlace();
    std::wstring text = place < 0 ? stage.Say(Text::kNoPlace) : stage.Say(Text::kPlace, place + 1);
    GetFonts().Draw(Fonts::kSmall, Fonts::kCentre, 400, 374, kMuted, text);
}

void ResultScene::PlayByItself(float dt) {
    if (time_ >= kWaitForItself) GetStage().GoTo(SceneName::kStart);
}

}  // namespace training
