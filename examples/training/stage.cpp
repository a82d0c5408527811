#include "stage.h"

#include <algorithm>
#include <cwchar>

#include "logic/memory_grid.h"
#include "logic/reaction_drill.h"

namespace training {

namespace {

constexpr const char* kPacks[] = {"training_ui.zip", "training_play.zip"};
constexpr const char* kExerciseNames[] = {"reaction", "memory"};
constexpr const char* kSection = "training";

}  // namespace

bool Stage::Open() {
    CGameResourceManager* resources = Resources();
    resources->AttachHge(&Hge());
    for (const char* pack : kPacks) {
        resources->AttachPacket(pack);
        if (!resources->IsExistsPacket(pack)) return false;
    }
    // Images are looked up in all packs; the current one remembers them.
    resources->SetCurPacket(kPacks[0]);
    Hge().System_SetState(HGE_INIFILE, options_.ini_file.c_str());
    fonts_ = std::make_unique<Fonts>();
    ReadSettings();
    return true;
}

void Stage::ReadSettings() {
    HGE& hge = Hge();
    settings_.sound = hge.Ini_GetInt(kSection, "sound", 1) != 0;
    settings_.music = hge.Ini_GetInt(kSection, "music", 1) != 0;
    settings_.limit = hge.Ini_GetInt(kSection, "limit", 0) != 0;
    settings_.minutes = std::clamp(hge.Ini_GetInt(kSection, "minutes", 10), 1, 60);
    std::string language = options_.language;
    if (language.empty()) language = hge.Ini_GetString(kSection, "language", "en");
    if (language == "zh" && CodePageHas(L"中文")) settings_.language = Language::kChinese;
    for (size_t i = 0; i < scores_.size(); ++i)
        scores_[i] = BestScores::FromText(hge.Ini_GetString("best", kExerciseNames[i], ""));
}

void Stage::SaveSettings() {
    HGE& hge = Hge();
    hge.Ini_SetInt(kSection, "sound", settings_.sound);
    hge.Ini_SetInt(kSection, "music", settings_.music);
    hge.Ini_SetInt(kSection, "limit", settings_.limit);
    hge.Ini_SetInt(kSection, "minutes", settings_.minutes);
    hge.Ini_SetString(kSection, "language", settings_.language == Language::kChinese ? "zh" : "en");
}

std::wstring Stage::Say(Text text, int number) const {
    wchar_t buffer[128];
    std::swprintf(buffer, std::size(buffer), Say(text), number);
    return buffer;
}

// Chinese is on offer only where the code page has it, so the fallback is never seen.
std::string Stage::Caption(Text text) const {
    return ToAnsi(Say(text), "?");
}

void Stage::Change(const Settings& settings) {
    bool music_was_on = settings_.music;
    bool other_limit = settings.limit != settings_.limit || settings.minutes != settings_.minutes;
    settings_ = settings;
    SaveSettings();
    ApplyMusic(music_was_on);
    if (other_limit) ApplyLimit();
}

void Stage::Begin() {
    ApplyMusic(false);
    ApplyLimit();
}

void Stage::ApplyMusic(bool was_on) {
    if (options_.quiet || settings_.music == was_on) return;
    if (settings_.music)
        engine_->PlayMusic("music.ogg", true);
    else
        engine_->StopMusic();
}

// The engine shows its notice and quits when the time is over. A new limit starts a new training.
void Stage::ApplyLimit() {
    limit_seconds_ = options_.limit_seconds ? options_.limit_seconds
                     : settings_.limit      ? settings_.minutes * 60
                                            : 0;
    engine_->initPlayTime();
    engine_->setGameTimeTotal(static_cast<unsigned long>(limit_seconds_) * 1000);
}

int Stage::SecondsLeft() {
    return limit_seconds_ ? std::max(0, limit_seconds_ - engine_->getPlayTimed() / 1000) : -1;
}

void Stage::PlaySound(const char* file) {
    if (settings_.sound && !options_.quiet) engine_->Play2DSound(file);
}

std::unique_ptr<Exercise> Stage::MakeExercise() {
    uint32_t seed = (options_.seed ? options_.seed : GetTickCount()) + 7919 * rounds_++;
    if (kind_ == ExerciseKind::kReaction) return std::make_unique<ReactionDrill>(seed);
    return std::make_unique<MemoryGrid>(seed);
}

void Stage::Finish(const Summary& result) {
    result_ = result;
    size_t index = static_cast<size_t>(kind_);
    place_ = scores_[index].Add(result.score);
    Hge().Ini_SetString("best", kExerciseNames[index], scores_[index].ToText().c_str());
}

}  // namespace training
