#include "gui/gui_test.h"
#include "gui/owning_label.h"
#include "text/code_page.h"

namespace {

constexpr char kFace[] = "WenQuanYi Zen Hei";

// Shows what lies behind the protected part.
class OpenLabel : public OwningLabel {
 public:
    std::wstring Shown() { return AnsiToUnicode(m_showText); }
};

class LabelTest : public GuiTest {
 protected:
    OpenLabel* AddLabel(float width, int size) {
        OpenLabel* label = Add(new OpenLabel);
        label->MoveWindow(0, 0, width, 20, true);
        label->SetFont(kFace, size, false, false, true);
        return label;
    }
};

TEST_F(LabelTest, RefusesNullAndWorksWithoutAFont) {
    CGameLable label;
    label.SetText("kept");
    EXPECT_FALSE(label.SetText(nullptr));
    label.SetText(label.getText() + 2);
    EXPECT_STREQ(label.getText(), "pt") << "a text may come from the label itself";
    EXPECT_TRUE(label.LoadImageInfo(nullptr, "a.png")) << "the label is there, empty";
    label.SetText(std::string(3000, 'x').c_str());
    EXPECT_EQ(std::string(label.getText()).size(), 1023u);
    label.MoveWindow(0, 0, 10, 10, true);
    label.Render();
    EXPECT_THAT(Recording().quads, IsEmpty());
}

TEST_F(LabelTest, PlacesItsTextByTheFirstFormatSet) {
    GfxFont font(kFace, 16, 0, 0, 1);
    font.Render(0, 0, L"H");
    hgeVertex origin = Recording().quads.at(0).v[0];
    struct {
        int format;
        float x, y;
    } const kCases[] = {{FORMAT_LEFTTOP | FORMAT_CENTER | FORMAT_ELLIPSIS, 10, 20},
                        {FORMAT_CENTER | FORMAT_ELLIPSIS, 10 + (200 - 16) * 0.5f, 20 + (60 - 16) * 0.5f},
                        {FORMAT_ELLIPSIS, 10, 20}};
    OpenLabel* label = AddLabel(200, 16);
    label->MoveWindow(10, 20, 200, 60, true);
    for (const auto& c : kCases) {
        label->setformat(static_cast<unsigned short>(c.format));
        label->SetText("HI");
        hgeVertex corner = Draw().at(0).v[0];
        EXPECT_EQ(corner.x - origin.x, c.x) << c.format;
        EXPECT_EQ(corner.y - origin.y, c.y) << c.format;
    }
    label->setformat(0);
    EXPECT_THAT(Draw(), IsEmpty());
}

TEST_F(LabelTest, CutsWhatDoesNotFitAndSaysSoWithDots) {
    struct {
        float width;
        std::wstring text, shown;
    } const kCases[] = {
        // 25 x 6 pixels; nine characters from the end leave 96.
        {100, std::wstring(25, L'a'), std::wstring(16, L'a') + L".."},
        {96, std::wstring(25, L'a'), std::wstring(16, L'a') + L".."},
        {150, std::wstring(25, L'a'), std::wstring(25, L'a')},
        // Full-width forms leave one dot.
        {100, std::wstring(10, L'\uff01'), std::wstring(8, L'\uff01') + L"."},
        // An ideograph is drawn 12 wide but counts 6.
        {100, std::wstring(10, L'\u4e2d'), std::wstring(6, L'\u4e2d') + L".."},
        {24, std::wstring(25, L'a'), std::wstring(25, L'a')},
    };
    for (const auto& c : kCases) {
        std::string ansi = code_page::FromWide(CP_ACP, c.text.c_str());
        // Only what this system's code page has.
        if (code_page::ToWide(CP_ACP, ansi.c_str()) != c.text) continue;
        OpenLabel* label = AddLabel(c.width, 12);
        label->setformat(FORMAT_ELLIPSIS);
        label->SetText(ansi.c_str());
        EXPECT_EQ(label->Shown(), c.shown) << c.width;
        EXPECT_EQ(label->getText(), ansi) << "the full text is kept";
    }
}

TEST_F(LabelTest, EveryMoveCutsAgain) {
    OpenLabel* label = AddLabel(100, 12);
    label->SetText(std::string(25, 'a').c_str());
    label->setformat(FORMAT_ELLIPSIS);
    EXPECT_EQ(label->Shown(), std::wstring(25, L'a')) << "not before the next text or move";
    label->MoveWindow(5, 7, 0, 0, false);
    EXPECT_EQ(label->Shown(), std::wstring(16, L'a') + L"..");
    EXPECT_THAT(Edges(label->GetClientRect()), ElementsAre(5, 7, 100, 20)) << "only the corner goes along";
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
    CGameLable* label = Add(new CGameLable);
    for (CGameLable* each : {label, static_cast<CGameLable*>(Add(new CGameLableEx))}) {
        EXPECT_TRUE(each->LoadImageInfo("back.png"));
        EXPECT_THAT(Edges(each->GetRect()), ElementsAre(0, 0, 500, 40));
        each->MoveWindow(5, 6, 200, 100, true);
        each->setbackgroundColor(0x96000000);
    }
    std::vector<hgeQuad> quads = Draw();
    ASSERT_EQ(quads.size(), 2u);
    EXPECT_EQ(quads[0].v[2].x, 505);
    EXPECT_EQ(quads[1].v[2].x, 205);
    EXPECT_EQ(quads[1].v[2].y, 106);
    EXPECT_EQ(quads[1].v[3].col, 0x96000000);
    label->MoveWindow(5, 6, 0, 0, true);
    EXPECT_EQ(Draw().size(), 1u) << "a label without size draws nothing";
}

}  // namespace
