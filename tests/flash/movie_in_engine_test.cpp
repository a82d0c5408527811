#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "drill2d/flash.h"
#include "flash/control/movie_control.h"
#include "hgegui.h"
#include "hgesprite.h"
#include "support/counters.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/silent_sink.h"

namespace {

using test::Counters;

constexpr int kWidth = 96, kHeight = 60, kCrowd = 50;
constexpr DWORD kBackground = 0xFF2040A0;

// Within the rounding of two blends.
void ExpectColor(const hge::Image& screen, int x, int y, DWORD rgb) {
    for (int shift : {0, 8, 16})
        EXPECT_NEAR(static_cast<int>(test::At(screen, x, y) >> shift & 255),
                    static_cast<int>(rgb >> shift & 255), 3)
            << x << "," << y;
}

// A frame's colours carry their alpha already; the sprite's blending applies it once more.
DWORD HalfOverBackground() {
    const double alpha = 128 / 255.0;
    DWORD rgb = 0;
    for (int shift : {0, 8, 16}) {
        double source = (kHalfColor >> shift & 255) * alpha, ground = kBackground >> shift & 255;
        rgb |= static_cast<DWORD>(std::lround(source * alpha + ground * (1 - alpha))) << shift;
    }
    return rgb;
}

void ExpectMovie(const hge::Image& screen, int x, int y, DWORD opaque) {
    ExpectColor(screen, x + 1, y + 1, opaque);
    ExpectColor(screen, x + kWidth / 3 - 1, y + kHeight - 1, opaque);
    ExpectColor(screen, x + kWidth / 2, y + kHeight / 2, HalfOverBackground());
    ExpectColor(screen, x + kWidth - 2, y + kHeight / 2, kBackground);
    ExpectColor(screen, x - 1, y + 1, kBackground);
}

// Drawn last in every frame.
struct FrameEnd : hgeGUIObject {
    explicit FrameEnd(std::function<void()> function) : action(std::move(function)) {
        bStatic = true;
        bVisible = true;
        bEnabled = false;
    }
    void Render() override { action(); }
    std::function<void()> action;
};

class MovieGame : public SilentSink {
 public:
    explicit MovieGame(MovieControl* control) : control_(control) {}

    void OnInit() override {
        ground_ = std::make_unique<hgeSprite>(0, 0.0f, 0.0f, 800.0f, 600.0f);
        ground_->SetColor(kBackground);
        Engine()->AddControl(new FrameEnd([this] { Next(); }));
        by_hand_ = Start(false, 0, 0);
        looped_ = Start(true, 100, 100);
        EXPECT_TRUE(FlashManager::StartSingleFlash(file_, 500, 100, kWidth, kHeight));
    }
    void OnRender() override {
        ground_->Render(0, 0);
        if (by_hand_) by_hand_->Render(300, 100);
    }

    int frame() const { return frame_; }

 private:
    IFlashSprite* Start(bool auto_render, int x, int y) {
        IFlashSprite* sprite = FlashManager::CreatFlashSprite(auto_render);
        sprite->LoadFlash(file_, kWidth, kHeight);
        sprite->SetAutoRenderPos(x, y);
        sprite->Play();
        return sprite;
    }
    void Next() {
        ++frame_;
        if (frame_ == 3) ThreeMovies();
        if (frame_ == 10) StillMovies();
        if (frame_ == 12) MovingMovies();
        if (frame_ == 15) OneShotGone();
        if (frame_ == 17) Crowd();
        if (frame_ == 18) PostQuitMessage(0);
    }
    void Remember() {
        counted_ = Counters();
        draws_ = control_->draws;
    }

    void ThreeMovies() {
        for (int x : {100, 300, 500})
            ExpectMovie(Screen(), x, 100, kOpaqueColor);
        Remember();
    }
    void StillMovies() {
        EXPECT_EQ(Counters().frames - counted_.frames, 7u);
        EXPECT_EQ(Counters().uploads, counted_.uploads);
        EXPECT_EQ(control_->draws, draws_);
        control_->Step();
        Remember();
    }
    void MovingMovies() {
        EXPECT_EQ(Counters().uploads - counted_.uploads, 3u);
        EXPECT_EQ(control_->draws - draws_, 6);
        ExpectMovie(Screen(), 500, 100, kOpaqueColorOddFrames);
        control_->Step();
        control_->Step();
    }
    void OneShotGone() {
        hge::Image screen = Screen();
        ExpectMovie(screen, 100, 100, kOpaqueColor);
        ExpectMovie(screen, 300, 100, kOpaqueColor);
        ExpectColor(screen, 501, 101, kBackground);
        FlashManager::DestroyFlashSprite(looped_);
        FlashManager::DestroyFlashSprite(by_hand_);
        EXPECT_EQ(control_->objects, 0);
        for (int i = 0; i < kCrowd; ++i)
            crowd_.push_back(Start(true, 10 + i % 7 * 110, 10 + i / 7 * 70));
    }
    void Crowd() {
        EXPECT_EQ(control_->objects, kCrowd);
        hge::Image screen = Screen();
        for (int i = 0; i < kCrowd; ++i)
            ExpectMovie(screen, 10 + i % 7 * 110, 10 + i / 7 * 70, kOpaqueColor);
        for (IFlashSprite*& sprite : crowd_)
            FlashManager::DestroyFlashSprite(sprite);
        // Left to the manager when the engine goes.
        EXPECT_TRUE(FlashManager::StartSingleFlash(file_, 0, 0, kWidth, kHeight));
    }
    // What the framework has drawn.
    static hge::Image Screen() {
        HGE* framework = Engine()->GetHge();
        framework->System_Snapshot("movies.bmp");
        return test::ReadPicture(framework->Resource_MakePath("movies.bmp"));
    }

    MovieControl* control_;
    std::unique_ptr<hgeSprite> ground_;
    IFlashSprite *by_hand_ = nullptr, *looped_ = nullptr;
    std::vector<IFlashSprite*> crowd_;
    char file_[8] = "C:\\m";
    int frame_ = 0;
    hgeCounters counted_ = {};
    long draws_ = 0;
};

TEST(MovieInEngine, ShowsMovesAndVanishes) {
    SetDllDirectoryA((test::ProgramFolder() + "flash\\").c_str());
    HMODULE module = LoadLibraryA("flash.ocx");
    ASSERT_NE(module, nullptr);
    MovieControl* control = reinterpret_cast<decltype(&GetMovieControl)>(
        reinterpret_cast<void*>(GetProcAddress(module, "GetMovieControl")))();
    {
        MovieGame game(control);
        ASSERT_TRUE(RunHost(&game, 800, 600, "movies"));
        EXPECT_GE(game.frame(), 18);
    }
    EXPECT_TRUE(control->objects == 0 && control->class_references == 0);
    FreeLibrary(module);
    EXPECT_EQ(GetModuleHandleA("flash.ocx"), nullptr);
}

}  // namespace
