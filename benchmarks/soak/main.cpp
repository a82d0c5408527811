// Uses everything at once, at random, for as long as it is told, and judges whether anything grows or stalls.
// soak [--minutes N | --frames N] [--seed S]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "record.h"
#include "toys.h"
#include "watch.h"

namespace soak {

namespace {

struct Options {
    double minutes = 30;
    uint32_t frames = 0;  // 0: minutes count
    uint32_t seed = static_cast<uint32_t>(std::time(nullptr));
};

constexpr int kActionsInAStep = 2;
// The last steps before everything is given back again bring nothing new: what is under way ends.
constexpr uint32_t kRestSteps = 5;
constexpr int kInactiveFrames = 30;

class Game : public I2DGameEngineSink {
 public:
    explicit Game(const Options& options)
        : options_(options), round_(options.frames ? std::max(options.frames / 8, 20u) : 600) {}

    void OnInit() override {
        // The system's own objects, made at their first use.
        for (int color = 0; color <= COLOR_MENUBAR; ++color)
            GetSysColorBrush(color);
        for (auto make : {MakeScreens, MakePictures, MakeTexts, MakeControls, MakeSounds, MakeMovies})
            toys_.push_back(make());
        for (const auto& toys : toys_)
            for (const Action& action : toys->actions) {
                weights_ += action.weight;
                actions_.push_back(&action);
            }
    }
    void OnFrame(float, int) override {
        NoteStep(++step_);
        inactive_ = 0;
        if (step_ % round_ < kRestSteps)
            Rest();
        else
            Act();
        for (const auto& toys : toys_)
            toys->Step();
        bool over = options_.frames ? step_ > options_.frames : minutes_ >= options_.minutes;
        if (over && step_ % round_ == kRestSteps) PostQuitMessage(0);
    }
    void OnRender() override {
        Measure();
        if (!engine_->IsEnableFx()) Draw();
        if (++inactive_ == kInactiveFrames) ComeBack();
    }
    void OnRenderTarget() override { Draw(); }
    void OnRenderTarget1() override { toys_.front()->Draw(); }
    void OnLButtonDown(float, float) override {}
    void OnLButtonUp(float, float) override {}
    void OnRButtonDown(float, float) override {}
    void OnRButtonUp(float, float) override {}
    void OnMouseMove(float, float) override {}

    // Before the engine goes.
    void Close() { toys_.clear(); }
    bool Verdict() {
        std::printf("%u steps, order of actions %08x\n", step_, order_);
        return record_.Verdict("game.log", !options_.frames);
    }

 private:
    void Rest() {
        uint32_t since = step_ % round_;
        // Packs go before what is loaded for good.
        if (since == 0) std::for_each(toys_.rbegin(), toys_.rend(), [](const auto& toys) { toys->Rest(); });
        if (since == kRestSteps - 1 && step_ > round_) record_.AddRest(ReadGauges());
        load_frames_ = 2;
    }
    void Act() {
        Dice dice(options_.seed, step_);
        for (int i = 0; i < kActionsInAStep; ++i)
            Run(Choose(dice), dice);
    }
    const Action& Choose(Dice& dice) {
        int weight = dice.Below(weights_);
        size_t at = 0;
        while ((weight -= actions_[at]->weight) >= 0)
            ++at;
        order_ = (order_ ^ static_cast<uint32_t>(at)) * 16777619u;
        return *actions_[at];
    }
    void Run(const Action& action, Dice& dice) {
        NoteAction(action.name);
        // What it loads is first drawn in the next frame.
        if (action.load) load_frames_ = 2;
        action.run(dice);
    }
    void Draw() {
        for (const auto& toys : toys_)
            toys->Draw();
    }
    static double Seconds() {
        LARGE_INTEGER now, second;
        QueryPerformanceCounter(&now);
        QueryPerformanceFrequency(&second);
        return static_cast<double>(now.QuadPart) / static_cast<double>(second.QuadPart);
    }
    void Measure() {
        double seconds = last_ ? Seconds() - last_ : 0;
        minutes_ += seconds / 60;
        record_.AddFrame(1000 * seconds, load_frames_ > 0);
        if (load_frames_ > 0) --load_frames_;
        record_.PrintLineWhenDue();
        // Without what the line took.
        last_ = Seconds();
    }
    // Without the focus no step comes.
    void ComeBack() {
        HWND window = engine_->GetHge()->System_GetState(HGE_HWND);
        ShowWindow(window, SW_RESTORE);
        SetForegroundWindow(window);
        load_frames_ = 2;
        inactive_ = 0;
    }

    Options options_;
    uint32_t round_;
    I2DGameEngine* engine_ = C2DGameEngine::Get2DGameEngineInstance();
    std::vector<std::unique_ptr<Toys>> toys_;
    std::vector<const Action*> actions_;
    int weights_ = 0;
    uint32_t step_ = 0, order_ = 2166136261u;
    int inactive_ = 0, load_frames_ = 2;
    double last_ = 0, minutes_ = 0;
    Record record_;
};

bool Parse(int argc, char** argv, Options* options) {
    for (int i = 1; i + 1 < argc; i += 2) {
        if (!std::strcmp(argv[i], "--minutes"))
            options->minutes = std::atof(argv[i + 1]);
        else if (!std::strcmp(argv[i], "--frames"))
            options->frames = static_cast<uint32_t>(std::atol(argv[i + 1]));
        else if (!std::strcmp(argv[i], "--seed"))
            options->seed = static_cast<uint32_t>(std::strtoul(argv[i + 1], nullptr, 10));
        else
            return false;
    }
    return argc % 2 == 1 && options->minutes > 0;
}

int Main(const Options& options) {
    std::printf("soak: seed %u\n", options.seed);
    std::fflush(stdout);
    StartWatch();
    Game game(options);
    I2DGameEngine* engine = C2DGameEngine::Get2DGameEngineInstance();
    engine->SetEngineSink(static_cast<I2DGameEngineSink*>(&game));
    bool ran = engine->InitHge(800, 600, "soak", false);
    game.Close();
    if (ran) delete engine;
    return ran && game.Verdict() ? 0 : 1;
}

}  // namespace

}  // namespace soak

int main(int argc, char** argv) {
    soak::Options options;
    if (soak::Parse(argc, argv, &options)) return soak::Main(options);
    std::printf("usage: soak [--minutes N | --frames N] [--seed S]\n");
    return 2;
}
