#pragma once

#include <drill2d/engine.h>
#include <drill2d/resources.h>

#include <array>
#include <memory>
#include <string>
#include <utility>

#include "fonts.h"
#include "logic/best_scores.h"
#include "logic/exercise.h"
#include "logic/options.h"
#include "logic/texts.h"

namespace training {

enum class ExerciseKind { kReaction, kMemory };
enum class SceneName { kNone, kStart, kPlay, kResult };

// What the player may change; kept between runs.
struct Settings {
    bool sound = true;
    bool music = true;
    bool limit = false;
    int minutes = 10;  // 1..60, for the limit
    Language language = Language::kEnglish;
};

// What all scenes share: the engine, packs, fonts, settings, best scores, and which scene comes next.
class Stage {
 public:
    // The engine is not owned and outlives the stage.
    Stage(I2DGameEngine* engine, const Options& options) : engine_(engine), options_(options) {}

    // Once the framework runs. False: a pack is missing, and the log says so.
    bool Open();

    I2DGameEngine& Engine() { return *engine_; }
    HGE& Hge() { return *engine_->GetHge(); }
    CGameResourceManager* Resources() { return CGameResourceManager::getInstance(); }
    const Options& GetOptions() const { return options_; }
    Fonts& GetFonts() { return *fonts_; }

    const wchar_t* Say(Text text) const { return training::Say(text, settings_.language); }
    // For a text that takes a number.
    std::wstring Say(Text text, int number) const;
    // For a control.
    std::string Caption(Text text) const;

    const Settings& GetSettings() const { return settings_; }
    // Saves them and makes them count.
    void Change(const Settings& settings);
    // Starts what runs with the program: music and the training time.
    void Begin();
    // Of the training time; -1 without a limit.
    int SecondsLeft();

    void PlaySound(const char* file);

    void GoTo(SceneName scene) { next_ = scene; }
    // kNone when nobody asked for one.
    SceneName TakeNext() { return std::exchange(next_, SceneName::kNone); }

    void Choose(ExerciseKind kind) { kind_ = kind; }
    ExerciseKind Chosen() const { return kind_; }
    std::unique_ptr<Exercise> MakeExercise();
    // Enters a result into the best scores of the chosen exercise.
    void Finish(const Summary& result);
    const Summary& LastResult() const { return result_; }
    // From 0; -1 when it is not among the best.
    int LastPlace() const { return place_; }
    const BestScores& Scores(ExerciseKind kind) const { return scores_[static_cast<size_t>(kind)]; }

 private:
    void ReadSettings();
    void SaveSettings();
    void ApplyMusic(bool was_on);
    void ApplyLimit();

    I2DGameEngine* engine_;
    Options options_;
    std::unique_ptr<Fonts> fonts_;
    Settings settings_;
    SceneName next_ = SceneName::kNone;
    ExerciseKind kind_ = ExerciseKind::kReaction;
    Summary result_;
    int place_ = -1;
    std::array<BestScores, 2> scores_;
    uint32_t rounds_ = 0;
    int limit_seconds_ = 0;
};

}  // namespace training
