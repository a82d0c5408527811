// Screenshots, the two paths of a frame and a movie in the running engine, on the real framework.
#include <gmock/gmock.h>

#include <cmath>
#include <fstream>
#include <functional>

#include "drill2d/flash.h"
#include "flash/control/movie_control.h"
#include "hgegui.h"
#include "hgesprite.h"
#include "support/counters.h"
#include "support/files.h"
#include "support/picture.h"
#include "support/silent_sink.h"
#include "support/win32_seams.h"

namespace {

using test::Counters;
using test::FilesIn;
using test::FileText;
using test::Pattern;
using test::ProgramFolder;
using test::ReadPicture;
using testing::HasSubstr;

constexpr int kWidth = 800, kHeight = 600;
constexpr uint32_t kHost = 0xFF20C060, kHost1 = 0xFFC020A0, kControl = 0xFFF0E040;

struct Area {
    int left, top, width, height;
    bool Has(int x, int y) const { return x >= left && x < left + width && y >= top && y < top + height; }
};
constexpr Area kHostArea{50, 40, 200, 100}, kHost1Area{150, 90, 300, 200}, kControlArea{500, 60, 80, 60},
    kMovieArea{300, 400, 96, 60};

void Fill(const Area& area, uint32_t color) {
    hgeSprite sprite(0, 0, 0, static_cast<float>(area.width), static_cast<float>(area.height));
    sprite.SetColor(color);
    sprite.Render(static_cast<float>(area.left), static_cast<float>(area.top));
}

struct Plate : hgeGUIObject {
    Plate() {
        bStatic = bVisible = true;
        bEnabled = false;
    }
    void Render() override { Fill(kControlArea, kControl); }
};

void RemoveFolder(const std::string& folder) {
    for (const std::string& file : FilesIn(folder, "*"))
        DeleteFileA(file.c_str());
    RemoveDirectoryA(folder.c_str());
}

// A half-transparent pixel of the movie: its colour carries its alpha already, the sprite's blending applies
// it once more. The one that is there if it is as near as two blends round.
uint32_t HalfOver(uint32_t ground, uint32_t there) {
    const double alpha = 128 / 255.0;
    uint32_t mixed = 0xFF000000;
    bool close = true;
    for (int shift : {0, 8, 16}) {
        double channel = (kHalfColor >> shift & 255) * alpha * alpha + (ground >> shift & 255) * (1 - alpha);
        mixed |= static_cast<uint32_t>(std::lround(channel)) << shift;
        close &= std::abs(channel - (there >> shift & 255)) <= 3;
    }
    return close ? there : mixed;
}

class ScreensGame : public SilentSink {
 public:
    explicit ScreensGame(MovieControl* control) : control_(control) {}

    void OnInit() override {
        win32_seams::SetActiveWindow(hge()->System_GetState(HGE_HWND));
        WriteEffect("screens_first.hlsl", "First(at.uv)");
        WriteEffect("screens_second.hlsl", "Second(at.uv)");
        WriteEffect("screens_broken.hlsl", "nowhere");
        ground_ = hge()->Texture_Create(kWidth, kHeight);
        DWORD* pixel = hge()->Texture_Lock(ground_, false);
        for (int i = 0; i < kWidth * kHeight; ++i)
            pixel[i] = Pattern(i % kWidth, i / kWidth);
        hge()->Texture_Unlock(ground_);
    }
    void OnRender() override { hgeSprite(ground_, 0, 0, kWidth, kHeight).Render(0, 0); }
    void OnRenderTarget() override {
        Fill(kHostArea, kHost);
        Fill({0, 0, 1, 1}, kHost);
        Fill({kWidth - 1, kHeight - 1, 1, 1}, kHost);
    }
    void OnRenderTarget1() override { Fill(kHost1Area, kHost1); }
    // What the frame before has drawn is on the screen.
    void OnFrame(float, int) override {
        ++frame_;
        if (frame_ == 2) Screenshots();
        if (frame_ == 3) StartEffect();
        if (frame_ == 6) FirstTarget();
        if (frame_ == 8) SecondTarget();
        if (frame_ == 10) PlainAgain();
        if (frame_ == 12) NextPicture();
        if (frame_ == 14) MovieGone();
    }

    int frame() const { return frame_; }

 private:
    static HGE* hge() { return Engine()->GetHge(); }

    void WriteEffect(const char* name, const std::string& result) {
        std::ofstream(ProgramFolder() + name)
            << "float4 Effect(Fragment at) : SV_TARGET\n{\n    return " << result << ";\n}\n";
    }
    static std::string LogText() { return FileText(ProgramFolder() + "game.log"); }
    void Save(const char* prefix) {
        win32_seams::AdvanceTick(300);
        Engine()->saveImage(prefix);
    }

    void Screenshots() {
        hge::Image frame = test::MakePicture(kWidth, kHeight, Pattern);
        win32_seams::SetTick(5000);
        RemoveFolder(pic_);
        Save("shot");
        ASSERT_EQ(FilesIn(pic_, "shot*.bmp").size(), 1u);
        EXPECT_TRUE(test::SamePicture("screenshot", ReadPicture(FilesIn(pic_, "*")[0]), frame));
        EXPECT_THAT(LogText(), HasSubstr("snapshot written: \"" + FilesIn(pic_, "*")[0]));
        Save("shot");
        EXPECT_EQ(FilesIn(pic_, "shot*.bmp").size(), 2u) << "both in the same second";
        Save("deep\\shot");
        EXPECT_THAT(LogText(), HasSubstr("no snapshot \"" + pic_ + "deep\\shot"));
        RemoveFolder(pic_);

        std::ofstream(pic_.substr(0, pic_.size() - 1)) << "a file where the folder should be";
        Save("blocked");
        EXPECT_THAT(LogText(), HasSubstr("no snapshot \"" + pic_ + "blocked"));
        EXPECT_TRUE(DeleteFileA(pic_.substr(0, pic_.size() - 1).c_str()));
    }

    void StartEffect() {
        Engine()->AddControl(new Plate);
        StartMovie();
        char first[] = "screens_first.hlsl";
        Engine()->CreateFx(first);
        EXPECT_TRUE(Engine()->IsEnableFx()) << hge()->System_GetErrorMessage();
    }

    static void StartMovie() {
        char movie[] = "C:\\m";
        EXPECT_TRUE(FlashManager::StartSingleFlash(movie, kMovieArea.left, kMovieArea.top, kMovieArea.width,
                                                   kMovieArea.height));
    }

    // movie: the colour of its opaque part; 0 when it is not there.
    void Expect(const char* name, uint32_t movie, const std::function<uint32_t(int x, int y)>& pixel) {
        hge()->System_Snapshot("screens.png");
        hge::Image screen = ReadPicture(ProgramFolder() + "screens.png");
        hge::Image expected = test::MakePicture(kWidth, kHeight, [&](int x, int y) -> uint32_t {
            if (!movie || !kMovieArea.Has(x, y)) return pixel(x, y);
            int third = (x - kMovieArea.left) * 3 / kMovieArea.width;
            if (third == 0) return 0xFF000000 | movie;
            return third == 1 ? HalfOver(pixel(x, y), test::At(screen, x, y)) : pixel(x, y);
        });
        EXPECT_TRUE(test::SamePicture(name, screen, expected));
    }

    void FirstTarget() {
        Expect("first_target", kOpaqueColor, [](int x, int y) {
            if (kHostArea.Has(x, y) || (x == 0 && y == 0) || (x == kWidth - 1 && y == kHeight - 1))
                return kHost;
            return kControlArea.Has(x, y) ? kControl : Pattern(x, y);
        });
        EXPECT_TRUE(hge()->Gfx_LoadEffect("screens_second.hlsl"));
    }
    void SecondTarget() {
        Expect("second_target", 0,
               [](int x, int y) { return kHost1Area.Has(x, y) ? kHost1 : Pattern(x, y); });
        char broken[] = "screens_broken.hlsl";
        Engine()->CreateFx(broken);
        EXPECT_FALSE(Engine()->IsEnableFx());
        EXPECT_THAT(LogText(),
                    HasSubstr("cannot load effect \"screens_broken.hlsl\": screens_broken.hlsl:3:"));
        counted_ = Counters();
        draws_ = control_->draws;
    }
    static uint32_t Plain(int x, int y) { return kControlArea.Has(x, y) ? kControl : Pattern(x, y); }
    void PlainAgain() {
        Expect("plain_path", kOpaqueColor, Plain);
        EXPECT_EQ(Counters().uploads, counted_.uploads) << "a still movie is not sent again";
        EXPECT_EQ(control_->draws, draws_);
        control_->Step();
    }
    void NextPicture() {
        Expect("next_picture", kOpaqueColorOddFrames, Plain);
        EXPECT_EQ(Counters().uploads, counted_.uploads + 1);
        EXPECT_EQ(control_->draws, draws_ + 2) << "on black and on white";
        control_->Step();
        control_->Step();
    }
    void MovieGone() {
        Expect("movie_gone", 0, Plain);
        EXPECT_EQ(control_->objects, 0);
        // Left to the manager when the engine goes.
        StartMovie();
        hge()->Texture_Free(ground_);
        // The quit message is one of the seams.
        PostMessageA(hge()->System_GetState(HGE_HWND), WM_CLOSE, 0, 0);
    }

    MovieControl* control_;
    std::string pic_ = ProgramFolder() + "pic\\";
    HTEXTURE ground_ = 0;
    int frame_ = 0;
    hgeCounters counted_ = {};
    long draws_ = 0;
};

TEST(Screens, SavedFilesAndBothPathsShowWhatWasDrawn) {
    SetDllDirectoryA((ProgramFolder() + "flash\\").c_str());
    HMODULE module = LoadLibraryA("flash.ocx");
    ASSERT_NE(module, nullptr);
    {
        ScreensGame game(ControlOf(module));
        ASSERT_TRUE(RunHost(&game, kWidth, kHeight, "screens"));
        EXPECT_GE(game.frame(), 14);
    }
    EXPECT_TRUE(ControlOf(module)->objects == 0 && ControlOf(module)->class_references == 0);
    FreeLibrary(module);
    EXPECT_EQ(GetModuleHandleA("flash.ocx"), nullptr) << "the engine still holds it";
}

}  // namespace
