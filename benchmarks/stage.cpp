#include "stage.h"

#include <cstring>

#include "drill2d/engine.h"

namespace bench {

namespace {

std::function<void()> g_draw;
int g_frames_left = 0;
bool g_settles = true;
std::vector<double> g_starts;

bool CountFrame() {
    g_starts.push_back(Now());
    return g_frames_left-- == 0;
}

bool CallDraw() {
    g_draw();
    return false;
}

bool DrawFrame() {
    HGE* hge = Stage::Framework();
    hge->Gfx_BeginScene(0);
    g_draw();
    hge->Gfx_EndScene();
    return false;
}

void RunLoop(int count, std::function<void()> draw, hgeCallback render) {
    g_draw = std::move(draw);
    g_frames_left = count;
    g_starts.clear();
    HGE* hge = Stage::Framework();
    hge->System_SetState(HGE_FRAMEFUNC, CountFrame);
    hge->System_SetState(HGE_RENDERFUNC, render);
    const bool started = hge->System_Start();
    // What it draws must not outlive the framework.
    g_draw = nullptr;
    Require(started, hge->System_GetErrorMessage());
    Require(g_frames_left < 0, "the window was closed");
}

// The first frames fill what is between the loop and the display.
constexpr int kFilling = 3;

double MeanFrameTime() {
    return (g_starts.back() - g_starts[kFilling]) / static_cast<double>(g_starts.size() - 1 - kFilling);
}

// Takes the place of Gfx_RenderQuad in the framework's table of operations for as long as it lives.
class QuadTap {
 public:
    explicit QuadTap(std::vector<hgeQuad>* quads) {
        quads_ = quads;
        slot_ = &(*reinterpret_cast<void***>(Stage::Framework()))[SlotOfRenderQuad()];
        std::memcpy(&real_, slot_, sizeof real_);
        Put(reinterpret_cast<void*>(Tap));
    }
    ~QuadTap() { Put(reinterpret_cast<void*>(real_)); }
    QuadTap(const QuadTap&) = delete;
    QuadTap& operator=(const QuadTap&) = delete;

 private:
    using Operation = void(CALL*)(HGE*, const hgeQuad*);

    static void CALL Tap(HGE* hge, const hgeQuad* quad) {
        quads_->push_back(*quad);
        real_(hge, quad);
    }
    // A pointer to a virtual member holds one more than its offset in the table.
    static size_t SlotOfRenderQuad() {
        auto member = &HGE::Gfx_RenderQuad;
        size_t offset;
        std::memcpy(&offset, &member, sizeof offset);
        return (offset - 1) / sizeof(void*);
    }
    void Put(void* function) {
        DWORD protection;
        VirtualProtect(slot_, sizeof *slot_, PAGE_READWRITE, &protection);
        *slot_ = function;
        VirtualProtect(slot_, sizeof *slot_, protection, &protection);
    }

    static std::vector<hgeQuad>* quads_;
    static Operation real_;
    void** slot_;
};

std::vector<hgeQuad>* QuadTap::quads_ = nullptr;
QuadTap::Operation QuadTap::real_ = nullptr;

}  // namespace

HGE* Stage::Framework() {
    return C2DGameEngine::Get2DGameEngineInstance()->GetHge();
}

void Stage::Frames(int count, std::function<void()> draw) {
    RunLoop(count, std::move(draw), DrawFrame);
}

double Stage::FrameTime(int count, const std::function<void()>& draw) {
    RunLoop(count + kFilling, draw, DrawFrame);
    return MeanFrameTime();
}

double Stage::EngineFrameTime(int count) {
    RunLoop(count + kFilling, nullptr, C2DGameEngine::Render);
    return MeanFrameTime();
}

std::vector<double> Stage::FrameTimes(int count, std::function<void()> draw) {
    const hgeCallback render = draw ? DrawFrame : nullptr;
    RunLoop(count + kFilling, std::move(draw), render);
    std::vector<double> times;
    for (size_t i = kFilling; i + 1 < g_starts.size(); ++i)
        times.push_back(g_starts[i + 1] - g_starts[i]);
    return times;
}

void Stage::NeverSettle() {
    g_settles = false;
}

// Presenting waits for the frame before when that one is older than some milliseconds.
void Stage::Settle() {
    if (!g_settles) return;
    auto nothing = [] {
        Sleep(5);
        Framework()->Gfx_Clear(0xFF000000);
    };
    Frames(2, nothing);
}

Work Stage::Submission(std::function<void()> draw) {
    return [draw](Meter& meter) {
        Settle();
        auto scene = [&] {
            HGE* hge = Framework();
            hge->Gfx_BeginScene(0);
            draw();
            hge->Gfx_EndScene();
        };
        RunLoop(
            1, [&] { meter(scene); }, CallDraw);
    };
}

std::vector<hgeQuad> Stage::Record(const std::function<void()>& draw) {
    std::vector<hgeQuad> quads;
    QuadTap tap(&quads);
    Frames(1, draw);
    return quads;
}

void Stage::Replay(const std::vector<hgeQuad>& quads) {
    HGE* hge = Framework();
    for (const hgeQuad& quad : quads)
        hge->Gfx_RenderQuad(&quad);
}

Textures::Textures(int count) {
    HGE* hge = Stage::Framework();
    for (int i = 0; i < count; ++i) {
        const int width = 8 + i % 24, height = 8 + i % 17;
        HTEXTURE texture = hge->Texture_Create(width, height);
        DWORD* pixels = hge->Texture_Lock(texture, false);
        Require(pixels, "no texture");
        for (int pixel = 0; pixel < width * height; ++pixel)
            pixels[pixel] = 0xFF000000 | static_cast<DWORD>(i) * 7919;
        hge->Texture_Unlock(texture);
        ids_.push_back(texture);
    }
}

Textures::~Textures() {
    for (HTEXTURE texture : ids_)
        Stage::Framework()->Texture_Free(texture);
}

}  // namespace bench
