#include <memory>
#include <string>

#include "drill2d/font.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

constexpr char kFace[] = "SimSun";
constexpr int kSize = 16, kGlyphsInLine = kScreenWidth / kSize;
constexpr wchar_t kFirstIdeograph = 0x4E00;

std::wstring Ideographs(int count) {
    std::wstring text;
    for (int i = 0; i < count; ++i) {
        if (i > 0 && i % kGlyphsInLine == 0) text += L'\n';
        text += static_cast<wchar_t>(kFirstIdeograph + i);
    }
    return text;
}

std::shared_ptr<GfxFont> MakeFont() {
    return std::make_shared<GfxFont>(kFace, kSize, 0, 0, 1);
}

Scene Seen(int count) {
    auto font = MakeFont();
    const std::wstring text = Ideographs(count);
    auto draw = [font, text] { font->Render(0, 0, text.c_str()); };
    Stage::Frames(1, draw);
    auto quads = std::make_shared<std::vector<hgeQuad>>(Stage::Record(draw));
    Require(!quads->empty(), "the font draws nothing");
    Scene scene;
    scene.items = count;
    scene.limit = 1.5;
    scene.heap_free = true;
    scene.ours = Stage::Submission(draw);
    scene.bare = Stage::Submission([quads] { Stage::Replay(*quads); });
    return scene;
}

// Quads of a text, half of them additive.
Scene MixedBlends(int count) {
    auto font = MakeFont();
    auto quads = std::make_shared<std::vector<hgeQuad>>(
        Stage::Record([&] { font->Render(0, 0, Ideographs(count).c_str()); }));
    for (size_t i = 0; i < quads->size(); i += 2)
        (*quads)[i].blend = BLEND_ALPHAADD;
    Scene scene;
    scene.items = count;
    scene.most_draws = 2;
    scene.ours = Stage::Submission([font, quads] { Stage::Replay(*quads); });
    return scene;
}

// What GDI takes to rasterise each character once.
class Rasteriser {
 public:
    Rasteriser()
        : dc_(CreateCompatibleDC(nullptr)),
          font_(CreateFontA(-kSize, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                            OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, kFace)) {
        SelectObject(dc_, font_);
    }
    ~Rasteriser() {
        DeleteDC(dc_);
        DeleteObject(font_);
    }
    Rasteriser(const Rasteriser&) = delete;
    Rasteriser& operator=(const Rasteriser&) = delete;

    void Rasterise(const std::wstring& text) {
        static const MAT2 kIdentity = {{0, 1}, {0, 0}, {0, 0}, {0, 1}};
        BYTE bitmap[4 * kSize * kSize];
        for (wchar_t c : text) {
            GLYPHMETRICS metrics;
            if (c != L'\n')
                GetGlyphOutlineW(dc_, c, GGO_GRAY8_BITMAP, &metrics, sizeof bitmap, bitmap, &kIdentity);
        }
    }

 private:
    HDC dc_;
    HFONT font_;
};

Scene Unseen(int count) {
    const std::wstring text = Ideographs(count);
    Scene scene;
    scene.items = count;
    scene.limit = 1.5;
    scene.slow = count > 5000;
    scene.ours = [text](Meter& meter) {
        auto font = MakeFont();
        Stage::Submission([&] { font->Render(0, 0, text.c_str()); })(meter);
    };
    scene.bare = [text](Meter& meter) {
        Rasteriser rasteriser;
        meter([&] { rasteriser.Rasterise(text); });
    };
    return scene;
}

}  // namespace

void AddTextScenes(Suite& suite) {
    for (int count : {suite.Size(2000), suite.Size(20000)}) {
        const std::string number = std::to_string(count);
        suite.Add("text/" + number + "/seen", [count] { return Seen(count); });
        suite.Add("text/" + number + "/unseen", [count] { return Unseen(count); });
    }
    suite.Add("text/mixed blends", [count = suite.Size(2000)] { return MixedBlends(count); });
    for (int size : {1000, 4000, 16000})
        suite.Add("text/growth/" + std::to_string(suite.Size(size)), [size = suite.Size(size)] {
            Scene scene = Seen(size);
            scene.limit = 0;
            scene.family = "glyphs";
            scene.size = size;
            scene.growth_limit = 1.1;
            return scene;
        });
}

}  // namespace bench
