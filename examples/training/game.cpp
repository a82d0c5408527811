#include "game.h"

#include <hgecounters.h>
#include <psapi.h>

#include <cwchar>

#include "palette.h"

namespace training {

namespace {

constexpr float kReportSeconds = 15;

// The number of the next handle: it grows where handles are not closed. Not every system tells their count.
unsigned NextHandle() {
    HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(event);
    return static_cast<unsigned>(reinterpret_cast<UINT_PTR>(event) / 4);
}

// What a program that runs for long must not gather.
void LogHoldings(HGE& hge, float seconds) {
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    hgeCounters counters = {};
    hgeGetCounters(&counters);
    hge.System_Log("after %.0f s: %u KB, next handle %u, %u textures, %u blocks, %u references, %u frames",
                   seconds, static_cast<unsigned>(memory.PagefileUsage / 1024), NextHandle(),
                   static_cast<unsigned>(counters.textures), static_cast<unsigned>(counters.resource_blocks),
                   static_cast<unsigned>(counters.references), static_cast<unsigned>(counters.frames));
}

}  // namespace

Game::Game(I2DGameEngine* engine, const Options& options) : stage_(engine, options) {}

void Game::OnInit() {
    if (!stage_.Open()) return PostQuitMessage(1);
    start_ = std::make_unique<StartScene>(stage_, [this] { ChangeLanguage(); });
    play_ = std::make_unique<PlayScene>(stage_);
    result_ = std::make_unique<ResultScene>(stage_);
    for (Scene* scene : {static_cast<Scene*>(start_.get()), static_cast<Scene*>(play_.get()),
                         static_cast<Scene*>(result_.get())})
        scenes_.register_scene(scene);
    LoadEffect();
    SwitchTo(SceneName::kStart);
}

void Game::OnFrame(float dt, int /*id*/) {
    if (!start_) return;
    // The engine sets its training time back after OnInit.
    if (!std::exchange(begun_, true)) stage_.Begin();
    if (stage_.GetOptions().self_play_minutes) PlayByItself(dt);
    scenes_.update_scene(dt);
    SwitchTo(stage_.TakeNext());
    TakeKeys();
}

// Without the effect the game is as playable: the log says why it did not load.
void Game::LoadEffect() {
    char effect[] = "light.hlsl";
    if (!stage_.GetOptions().plain) stage_.Engine().CreateFx(effect);
}

void Game::OnRender() {
    if (!stage_.Engine().IsEnableFx()) DrawScene();
}

void Game::DrawScene() {
    scenes_.render_scene();
    DrawTimeLeft();
}

void Game::DrawTimeLeft() {
    int seconds = stage_.SecondsLeft();
    if (seconds < 0) return;
    wchar_t clock[32];
    std::swprintf(clock, std::size(clock), L"  %d:%02d", seconds / 60, seconds % 60);
    stage_.GetFonts().Draw(Fonts::kSmall, Fonts::kRight, 776, 562, seconds < 60 ? kCoral : kMuted,
                           stage_.Say(Text::kTimeLeft) + std::wstring(clock));
}

Scene* Game::Current() {
    return static_cast<Scene*>(scenes_.get_cur_scene());
}

void Game::SwitchTo(SceneName name) {
    switch (name) {
        case SceneName::kNone:
            return;
        case SceneName::kStart:
            scenes_.switch_scene(start_.get());
            stage_.Hge().System_Log("scene: start");
            break;
        case SceneName::kPlay:
            scenes_.switch_scene(play_.get());
            stage_.Hge().System_Log("scene: play");
            break;
        case SceneName::kResult:
            scenes_.switch_scene(result_.get());
            stage_.Hge().System_Log("scene: result");
            break;
    }
}

void Game::TakeKeys() {
    HGE& hge = stage_.Hge();
    if (hge.Input_KeyDown(HGEK_ESCAPE)) PostQuitMessage(0);
    if (hge.Input_KeyDown(HGEK_F12)) stage_.Engine().saveImage("");
}

void Game::ChangeLanguage() {
    Settings settings = stage_.GetSettings();
    settings.language = settings.language == Language::kEnglish ? Language::kChinese : Language::kEnglish;
    stage_.Change(settings);
    for (Scene* scene : {static_cast<Scene*>(start_.get()), static_cast<Scene*>(play_.get()),
                         static_cast<Scene*>(result_.get())})
        scene->Retext();
}

void Game::PlayByItself(float dt) {
    Current()->PlayByItself(dt);
    played_ += dt;
    if (played_ >= next_report_) {
        LogHoldings(stage_.Hge(), played_);
        next_report_ += kReportSeconds;
    }
    if (played_ >= static_cast<float>(stage_.GetOptions().self_play_minutes) * 60) PostQuitMessage(0);
}

}  // namespace training
