#include "drill2d/font.h"
#include "gui/gui_test.h"
#include "text/code_page.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kFace[] = "WenQuanYi Zen Hei";

std::string Ansi(const wchar_t* text) {
    return code_page::FromWide(CP_ACP, text);
}

// Shows what lies behind the protected part.
class OpenLabel : public CGameLable {
 public:
    std::wstring Shown() { return AnsiToUnicode(m_showText); }
    ~OpenLabel() override { std::default_delete<GfxFont>()(m_pFont); }
};

class LabelTest : public GuiTest {
 protected:
    OpenLabel* AddLabel(float width, int size) {
        OpenLabel* label = Add(new OpenLabel);
        label->MoveWindow(0, 0, width, 20, true);
        if (size) label->SetFont(kFace, size, false, false, true);
        return label;
    }
    // Left edge of the first glyph, less the glyph's own offset.
    static std::vector<float> TextAt(const hgeQuad& first, const wchar_t* glyph, int size) {
        GfxFont font(kFace, size, 0, 0, 1);
        Recording().ClearCalls();
        font.Render(0, 0, glyph);
        const hgeQuad& origin = Recording().quads.at(0);
        return {first.v[0].x - origin.v[0].x, first.v[0].y - origin.v[0].y};
    }
};

TEST_F(LabelTest, StandsInMemoryAsHostsExpect) {
    CGameLable label;
    auto address = [](void* part) { return reinterpret_cast<char*>(part); };
    EXPECT_EQ(address(static_cast<IControlOpera*>(&label)), address(&label) + sizeof(hgeGUIObject));
    EXPECT_EQ(address(static_cast<IControlMyselOperator*>(&label)),
              address(&label) + sizeof(hgeGUIObject) + 4);
    EXPECT_EQ(label.GetControlType(), 3u);
    IControlMyselOperator* own = &label;
    EXPECT_EQ(own->QueryInterface(IID_IControlOpera, CONTROL_INTERFACE_VERSION),
              static_cast<IControlOpera*>(&label));
    EXPECT_TRUE(own->IsValid());
}

TEST_F(LabelTest, RefusesNullTextAndTakesColoursWithoutAFont) {
    CGameLable label;
    label.SetText("kept");
    EXPECT_FALSE(label.SetText(nullptr));
    EXPECT_STREQ(label.getText(), "kept");
    label.SetText(label.getText() + 2);
    EXPECT_STREQ(label.getText(), "pt") << "a text may come from the label itself";
    label.SetColor(0xFF102030);
    EXPECT_EQ(label.color, 0xFF102030);
    label.setbackgroundColor(0xFF000000);
    EXPECT_TRUE(label.LoadImageInfo(nullptr, "a.png")) << "the label is there, empty";
    label.SetText(std::string(3000, 'x').c_str());
    EXPECT_EQ(std::string(label.getText()).size(), 1023u);
    label.Render();
    EXPECT_THAT(Recording().quads, IsEmpty());
}

TEST_F(LabelTest, PlacesItsTextByFormat) {
    struct {
        unsigned short format;
        float x, y;
    } const kCases[] = {{FORMAT_LEFTTOP, 10, 20},
                        {FORMAT_LEFTTOP | FORMAT_ELLIPSIS, 10, 20},
                        {FORMAT_CENTER, 10 + (200 - 16) * 0.5f, 20 + (60 - 16) * 0.5f},
                        {FORMAT_CENTER | FORMAT_ELLIPSIS, 10 + (200 - 16) * 0.5f, 20 + (60 - 16) * 0.5f},
                        {FORMAT_ELLIPSIS, 10, 20}};
    OpenLabel* label = AddLabel(200, 16);
    label->MoveWindow(10, 20, 200, 60, true);
    for (const auto& c : kCases) {
        label->setformat(c.format);
        label->SetText("HI");
        std::vector<hgeQuad> quads = Draw();
        ASSERT_EQ(quads.size(), 2u);
        EXPECT_THAT(TextAt(quads[0], L"H", 16), ElementsAre(c.x, c.y)) << c.format;
    }
    label->setformat(0);
    EXPECT_THAT(Draw(), IsEmpty());
}

TEST_F(LabelTest, CutsWhatDoesNotFitAndSaysSoWithDots) {
    struct {
        int size;
        float width;
        std::wstring text, shown;
    } const kCases[] = {
        // 25 x 6 pixels; nine characters from the end leave 96.
        {12, 100, std::wstring(25, L'a'), std::wstring(16, L'a') + L".."},
        {12, 150, std::wstring(25, L'a'), std::wstring(25, L'a')},
        {12, 149, std::wstring(25, L'a'), std::wstring(24, L'a') + L".."},
        // Full-width forms leave one dot.
        {12, 100, std::wstring(10, L'\uff01'), std::wstring(8, L'\uff01') + L"."},
        // An ideograph is drawn 12 wide but counts 6.
        {12, 100, std::wstring(10, L'\u4e2d'), std::wstring(6, L'\u4e2d') + L".."},
        {12, 24, std::wstring(25, L'a'), std::wstring(25, L'a')},
        {12, 25, std::wstring(4, L'\u4e2d') + L"a", L".."},
    };
    for (const auto& c : kCases) {
        // Only what this system's code page has.
        if (code_page::ToWide(CP_ACP, Ansi(c.text.c_str()).c_str()) != c.text) continue;
        OpenLabel* label = AddLabel(c.width, c.size);
        label->setformat(FORMAT_ELLIPSIS);
        label->SetText(Ansi(c.text.c_str()).c_str());
        EXPECT_EQ(label->Shown(), c.shown) << c.width;
        EXPECT_EQ(label->getText(), Ansi(c.text.c_str())) << "the full text is kept";
    }
}

TEST_F(LabelTest, EveryMoveCutsAgain) {
    OpenLabel* label = AddLabel(100, 12);
    label->SetText(std::string(25, 'a').c_str());
    label->setformat(FORMAT_ELLIPSIS);
    EXPECT_EQ(label->Shown(), std::wstring(25, L'a')) << "not before the next text or move";
    label->MoveWindow(5, 5, 0, 0, false);
    EXPECT_EQ(label->Shown(), std::wstring(16, L'a') + L"..");
    label->MoveWindow(6, 5, 100, 20, true);
    EXPECT_EQ(label->Shown(), std::wstring(9, L'a') + L"..");
    CGameWindow owner;
    CLayout layout(&owner);
    label->MoveWindow(0, 0, 100, 20, &layout, true);
    EXPECT_EQ(label->Shown(), L"aa..");
    label->MoveWindow(0, 0, 100, 20, &layout, true);
    EXPECT_EQ(label->Shown(), L"aa..") << "too short to cut";
}

TEST_F(LabelTest, TheImageIsDrawnAtItsSizeOrStretched) {
    Recording().image_width = 30;
    Recording().image_height = 10;
    CGameLable* label = Add(new CGameLable);
    CGameLableEx* wide = Add(new CGameLableEx);
    for (CGameLable* each : {label, static_cast<CGameLable*>(wide)}) {
        EXPECT_TRUE(each->LoadImageInfo("back.png"));
        EXPECT_THAT(Edges(each->GetRect()), ElementsAre(0, 0, 30, 10));
        each->MoveWindow(5, 6, 200, 100, true);
        each->setbackgroundColor(0x96000000);
    }
    std::vector<hgeQuad> quads = Draw();
    ASSERT_EQ(quads.size(), 2u);
    EXPECT_EQ(quads[0].v[2].x, 35);
    EXPECT_EQ(quads[1].v[2].x, 205);
    EXPECT_EQ(quads[1].v[2].y, 106);
    EXPECT_EQ(quads[1].v[3].col, 0x96000000);
    label->MoveWindow(5, 6, 0, 0, true);
    EXPECT_EQ(Draw().size(), 1u) << "a label without size draws nothing";
}

TEST_F(LabelTest, MovingOnTheScreenShiftsOnlyTheClientCorner) {
    OpenLabel* label = AddLabel(0, 0);
    label->MoveWindow(10, 20, 100, 30, true);
    EXPECT_THAT(Edges(label->GetClientRect()), ElementsAre(0, 0, 100, 30));
    label->MoveWindow(15, 27, 0, 0, false);
    EXPECT_THAT(Edges(label->GetRect()), ElementsAre(15, 27, 115, 57));
    EXPECT_THAT(Edges(label->GetClientRect()), ElementsAre(5, 7, 100, 30));
}

TEST_F(LabelTest, HidingForAWhileKeepsWhatShowWindowWanted) {
    OpenLabel* label = AddLabel(10, 0);
    label->ShowWindow(true);
    label->SetWindowStoreVisable(false);
    EXPECT_FALSE(label->IsWindowVisible() || label->bEnabled);
    EXPECT_TRUE(label->GetWindowStoreVisable());
    label->EnableWindow(false);
    label->SetWindowStoreVisable(true);
    EXPECT_TRUE(label->IsWindowVisible());
    EXPECT_FALSE(label->bEnabled) << "still disabled";
    label->ShowWindow(false);
    EXPECT_FALSE(label->GetWindowStoreVisable());
}

TEST_F(LabelTest, TakesNoMouseAndTellsNobody) {
    AddLabel(100, 12);
    MoveMouse(5, 5);
    Press();
    Lift();
    EXPECT_THAT(log_.Take(), IsEmpty());
}

}  // namespace
