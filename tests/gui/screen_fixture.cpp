#include "gui/screen_fixture.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <new>

#include "text/code_page.h"

namespace {

long g_allocations = 0;

void FillRect(hge::Image* image, int left, int top, int width, int height, uint32_t colour) {
    for (int y = top; y < top + height; ++y)
        for (int x = left; x < left + width; ++x)
            image->pixels[static_cast<size_t>(y * image->width + x)] = colour;
}

// Equal frames side by side, each with a border of two pixels.
void WriteStrip(HGE* hge, const char* name, int width, int height, const std::vector<uint32_t>& fills) {
    hge::Image image;
    image.width = width * static_cast<int>(fills.size());
    image.height = height;
    image.pixels.assign(static_cast<size_t>(image.width * height), 0xFFFFFFFF);
    int left = 0;
    for (uint32_t fill : fills) {
        FillRect(&image, left, 0, width, height, (fill & 0xFEFEFE) / 2 | 0xFF000000);
        FillRect(&image, left + 2, 2, width - 4, height - 4, fill);
        left += width;
    }
    std::string reason;
    ASSERT_TRUE(hge::WriteImage(hge->Resource_MakePath(name), image, &reason)) << reason;
}

int CALLBACK StopAtFirst(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM) {
    return 0;
}

std::string FileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

void* operator new(size_t size) {
    ++g_allocations;
    if (void* block = std::malloc(size ? size : 1)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, size_t /*size*/) noexcept {
    std::free(block);
}

long Allocations() {
    return g_allocations;
}

std::string Ansi(const wchar_t* text) {
    return code_page::FromWide(CP_ACP, text);
}

HGE* ScreenTest::hge_ = nullptr;

void ScreenTest::SetUpTestSuite() {
    hge_ = hgeCreate(HGE_VERSION);
    ASSERT_NE(hge_, nullptr);
    hge_->System_SetState(HGE_WINDOWED, true);
    hge_->System_SetState(HGE_USESOUND, false);
    hge_->System_SetState(HGE_LOGFILE, "controls_screen.log");
    ASSERT_TRUE(hge_->System_Initiate()) << hge_->System_GetErrorMessage();
    WriteStrip(hge_, "screen_button.png", 120, 40,
               {0xFF6080A0, 0xFF304050, 0xFF90B0D0, 0xFFFF00FF, 0xFF808080});
    WriteStrip(hge_, "screen_box.png", 20, 20, {0xFF404040, 0xFF707070, 0xFF20A020, 0xFF60E060});
    WriteStrip(hge_, "screen_label.png", 200, 40, {0xFF504030});
    WriteStrip(hge_, "screen_panel.png", 260, 180, {0xFF305030});
    WriteStrip(hge_, "screen_spark.png", 16, 16, {0xFFFFE040, 0xFFFF8000});
}

void ScreenTest::TearDownTestSuite() {
    hge_->System_Shutdown();
    hge_->Release();
}

bool ScreenTest::HasFace() {
    HDC dc = CreateCompatibleDC(nullptr);
    bool has_face = EnumFontFamiliesA(dc, kFace, StopAtFirst, 0) == 0;
    DeleteDC(dc);
    return has_face;
}

void ScreenTest::Scene(const std::function<void()>& draw) {
    ASSERT_TRUE(hge_->Gfx_BeginScene(0));
    hge_->Gfx_Clear(0xFF202830);
    draw();
    hge_->Gfx_EndScene();
}

hge::Image ScreenTest::Picture(const std::function<void()>& draw) {
    Scene(draw);
    hge_->System_Snapshot("controls_screen.png");
    std::string bytes = FileBytes(hge_->Resource_MakePath("controls_screen.png"));
    hge::Image image;
    std::string reason;
    EXPECT_TRUE(hge::DecodeImage(bytes.data(), bytes.size(), &image, &reason)) << reason;
    return image;
}

hgeCounters ScreenTest::Counters() {
    hgeCounters counters = {};
    hgeGetCounters(&counters);
    return counters;
}

DWORD ScreenTest::Draws(const std::function<void()>& draw) {
    DWORD before = Counters().draws;
    Scene(draw);
    return Counters().draws - before;
}
