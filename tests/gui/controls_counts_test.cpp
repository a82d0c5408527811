#include "gui/screen_fixture.h"

#include <cstdio>

#include "text/gdi_seams.h"

namespace {

// Address space in use, the framework's included.
size_t CommittedBytes() {
    size_t bytes = 0;
    MEMORY_BASIC_INFORMATION block = {};
    for (char* at = nullptr; VirtualQuery(at, &block, sizeof block); at += block.RegionSize)
        if (block.State == MEM_COMMIT) bytes += block.RegionSize;
    return bytes;
}

// Rows of distinct ideographs from U+4E00 + first, a screen of 18 px characters a line.
std::wstring Ideographs(int first, int count) {
    std::wstring text;
    for (int i = 0; i < count; ++i) {
        text += static_cast<wchar_t>(0x4E00 + first + i);
        if (i % 44 == 43) text += L'\n';
    }
    return text;
}

// The label's own font lives for ever; this one's goes with it.
class OwningLabel : public CGameLable {
 public:
    ~OwningLabel() override { std::default_delete<GfxFont>()(m_pFont); }
};

TEST_F(ScreenTest, AScreenFullOfTextIsTwoDrawCallsAtMost) {
    auto font = std::make_unique<GfxFont>(kFace, 18, 0, 0, 1);
    std::wstring text = Ideographs(0, 1000);
    auto draw = [&] {
        font->Render(0, 0, text.c_str());
        font->SetColor(0xFFFF8000, -1);
        font->Render(0, 5, text.c_str());
    };
    Scene(draw);
    hgeCounters before = Counters();
    EXPECT_LE(Draws(draw), 2u);
    hgeCounters after = Counters();
    EXPECT_EQ(after.quads - before.quads, 2000u);
    EXPECT_EQ(after.uploads, before.uploads) << "text that was seen before is in the device";
}

TEST_F(ScreenTest, TextThatWasSeenBeforeAllocatesNothing) {
    auto font = std::make_unique<GfxFont>(kFace, 18, 0, 0, 1);
    OwningLabel label;
    label.SetFont(kFace, 18, false, false, true);
    label.MoveWindow(0, 0, 300, 40, true);
    label.SetText("label");
    CGameButton button;
    button.LoadImageInfo("screen_button.png");
    button.SetFont(font.get());
    button.SetCaption("caption");
    long first = 0, again = 0;
    for (long* allocations : {&first, &again}) {
        Scene([&] {
            long start = Allocations();
            font->Render(0, 0, L"text");
            font->Print(0, 20, "%s %d", "print", 42);
            font->GetTextSize(L"text");
            font->GetCharacterFromPos(L"text", 5, 5);
            label.Render();
            button.Update(0.1f);
            button.Render();
            *allocations = Allocations() - start;
        });
    }
    EXPECT_GT(first, 0) << "the count sees the first drawing";
    EXPECT_EQ(again, 0);
}

TEST_F(ScreenTest, FiveThousandChineseCharactersInOneRun) {
    hgeCounters before = Counters();
    size_t memory_before = CommittedBytes();
    auto font = std::make_unique<GfxFont>(kFace, 18, 0, 0, 1);
    for (int first = 0; first < 5000; first += 1000)
        Scene([&] { font->Render(0, 0, Ideographs(first, 1000).c_str()); });
    EXPECT_EQ(Counters().textures - before.textures, 5000u);
    std::printf("5,000 glyphs of 18 px: %lu textures, %.1f MB\n", Counters().textures - before.textures,
                static_cast<double>(CommittedBytes() - memory_before) / 1048576);
    DWORD draws = Draws([&] {
        for (int first = 0; first < 5000; first += 1000)
            font->Render(0, 0, Ideographs(first, 1000).c_str());
    });
    EXPECT_LE(draws, 2u);
    font.reset();
    EXPECT_EQ(Counters().textures, before.textures);
    EXPECT_EQ(Counters().references, before.references);
}

TEST_F(ScreenTest, DestroyedInAnyOrderNothingStays) {
    hgeCounters before = Counters();
    int gdi_before = gdi_seams::LiveObjects();
    const std::vector<int> kOrders[] = {{0, 1, 2, 3, 4}, {4, 3, 2, 1, 0}, {1, 4, 2, 0, 3},
                                        {2, 0, 3, 4, 1}, {3, 1, 0, 2, 4}, {4, 2, 0, 3, 1}};
    for (const std::vector<int>& order : kOrders) {
        auto font = std::make_unique<GfxFont>(kFace, 18, 0, 0, 1);
        auto window = std::make_unique<CGameWindow>();
        auto button = std::make_unique<CGameButton>();
        auto label = std::make_unique<OwningLabel>();
        window->InitWindow("screen_panel.png", {260, 180});
        button->LoadImageInfo("screen_button.png");
        button->SetFont(font.get());
        button->SetCaption("OK");
        label->SetFont(kFace, 18, false, false, true);
        label->SetText("label");
        auto layout = std::make_unique<CLayout>(window.get());
        layout->AddControl(button.get());
        layout->AddControl(label.get());
        window->SetLayOut(layout.get());
        window->MoveWindow(10, 10, 0, 0, false);
        Scene([&] {
            window->Render();
            button->Render();
            label->Render();
        });
        layout->RemoveAll();
        for (int which : order) {
            if (which == 0) font.reset();
            if (which == 1) window.reset();
            if (which == 2) button.reset();
            if (which == 3) label.reset();
            if (which == 4) layout.reset();
        }
    }
    EXPECT_EQ(Counters().textures, before.textures);
    EXPECT_EQ(Counters().references, before.references);
    EXPECT_EQ(gdi_seams::LiveObjects(), gdi_before);
}

}  // namespace
