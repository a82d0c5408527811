#include "start_scene.h"

#include "palette.h"

namespace training {

namespace {

constexpr float kLeftMiddle = 268, kRightMiddle = 532;
constexpr float kWaitForItself = 1.5f;

}  // namespace

StartScene::StartScene(Stage& stage, std::function<void()> change_language)
    : Scene(stage),
      background_(stage.Resources(), "background.png", true),
      logo_(stage.Resources(), "logo.png", true),
      intro_(stage),
      reaction_(AddButton("button.png", kLeftMiddle - 120, 400, [this] { Start(ExerciseKind::kReaction); })),
      memory_(AddButton("button.png", kRightMiddle - 120, 400, [this] { Start(ExerciseKind::kMemory); })),
      language_(AddButton("button_small.png", 588, 22, [this] { change_language_(); })),
      settings_((AddButton("icon_settings.png", 732, 24, [this] { settings_.Open(); }), stage)),
      change_language_(std::move(change_language)) {
    for (CGameButton* button : {reaction_, memory_})
        button->loadMouseAni("glint.png", 10, 14, 240, 64);
    if (!CodePageHas(Say(Text::kOtherLanguage, Language::kEnglish))) language_->ShowWindow(false);
    Retext();
}

void StartScene::Retext() {
    SetCaption(reaction_, Text::kReaction);
    SetCaption(memory_, Text::kMemory);
    SetCaption(language_, Text::kOtherLanguage);
    settings_.Retext();
}

void StartScene::Start(ExerciseKind kind) {
    GetStage().Choose(kind);
    GetStage().GoTo(SceneName::kPlay);
}

void StartScene::show() {
    Scene::show();
    intro_.Play();
    waited_ = 0;
    ++visits_;
}

void StartScene::hide() {
    Scene::hide();
    settings_.Close();
    intro_.Stop();
}

void StartScene::update(float dt) {
    intro_.Update(dt);
    settings_.Update();
}

void StartScene::render() {
    Stage& stage = GetStage();
    background_.Render(0, 0);
    logo_.Render(140, 56);
    GetFonts().Draw(Fonts::kBody, Fonts::kCentre, 400, 176, kMuted, stage.Say(Text::kSubtitle));
    intro_.Render(kIntroLeft, kIntroTop);
    DrawChoice(ExerciseKind::kReaction, Text::kReactionHint, kLeftMiddle);
    DrawChoice(ExerciseKind::kMemory, Text::kMemoryHint, kRightMiddle);
    GetFonts().Draw(Fonts::kSmall, Fonts::kCentre, 400, 562, kMuted, stage.Say(Text::kKeys));
}

// What lies on the lamp hides its light.
void StartScene::RenderLight() {
    if (!settings_.IsOpen()) intro_.RenderLight(kIntroLeft, kIntroTop);
}

void StartScene::DrawChoice(ExerciseKind kind, Text hint, float middle) {
    Stage& stage = GetStage();
    GetFonts().Draw(Fonts::kSmall, Fonts::kCentre, middle, 478, kInk, stage.Say(hint));
    int best = stage.Scores(kind).Best();
    if (best)
        GetFonts().Draw(Fonts::kSmall, Fonts::kCentre, middle, 508, kAmber, stage.Say(Text::kBest, best));
}

// Both exercises and languages in turn, with a look at the settings.
void StartScene::PlayByItself(float dt) {
    waited_ += dt;
    if (!settings_.IsOpen() && waited_ > kWaitForItself / 2) settings_.Open();
    if (waited_ < kWaitForItself) return;
    settings_.Close();
    change_language_();
    Start(visits_ % 2 ? ExerciseKind::kReaction : ExerciseKind::kMemory);
}

}  // namespace training
