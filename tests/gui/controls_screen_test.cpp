#include <gtest/gtest.h>

#include <functional>

#include "drill2d/controls.h"
#include "drill2d/font.h"
#include "drill2d/resources.h"
#include "support/framework_fixture.h"
#include "text/code_page.h"

namespace {

constexpr char kFace[] = "WenQuanYi Zen Hei";
constexpr DWORD kGround = 0xFF202830;

// Strips of framed frames are painted for the controls.
class ScreenTest : public FrameworkTest {
 protected:
    static void SetUpTestSuite() {
        FrameworkTest::SetUpTestSuite();
        // The glyphs of fonts that labels made, and an image that no packet owns.
        may_leave_ = "\\d+ textures, 1 resource block";
        WriteStrip("screen_button.png", 120, 40, {0x6080A0, 0x304050, 0x90B0D0, 0xFF00FF, 0x808080});
        WriteStrip("screen_box.png", 20, 20, {0x404040, 0x707070, 0x20A020, 0x60E060});
        WriteStrip("screen_label.png", 200, 40, {0x504030});
        WriteStrip("screen_panel.png", 260, 180, {0x305030});
        WriteStrip("screen_spark.png", 16, 16, {0xFFE040, 0xFF8000});
    }
    static void WriteStrip(const char* name, int width, int height, const std::vector<uint32_t>& fills) {
        auto pixel = [&](int x, int y) {
            uint32_t fill = fills[static_cast<size_t>(x / width)];
            bool border = x % width < 2 || x % width >= width - 2 || y < 2 || y >= height - 2;
            return 0xFF000000 | (border ? (fill & 0xFEFEFE) / 2 : fill);
        };
        std::string reason;
        hge::Image strip = test::MakePicture(width * static_cast<int>(fills.size()), height, pixel);
        ASSERT_TRUE(hge::WriteImage(hge_->Resource_MakePath(name), strip, &reason)) << reason;
    }
};

// Every control in every state, text in every manner.
class ControlsScreen {
 public:
    ControlsScreen() {
        AddButton(20, 20, L"Normal", 0);
        AddButton(160, 20, L"\u60ac\u505c", STATE_HOVER);
        AddButton(300, 20, L"\u6309\u4e0b", STATE_PRESSED | STATE_HOVER);
        AddButton(440, 20, L"Disabled", STATE_DISABLED);
        CGameResourceManager::getInstance()->AttachHge(hgeCreate(HGE_VERSION));
        AddButton(580, 20, L"", STATE_HOVER)->loadMouseAni("screen_spark.png", 2, 10, 0, 0);
        CGameButton* placed = AddButton(20, 70, L"", 0);
        placed->SetTextAlign(ALIGN_LEFT | ALIGN_TOP);
        placed->SetCaption("Left top");
        CGameButton* narrow = AddButton(160, 70, L"", 0);
        narrow->MoveWindow(160, 70, 60, 24, true);
        narrow->SetCaption("60");
        const int kBoxes[] = {0, STATE_HOVER, STATE_CHECKED, STATE_CHECKED | STATE_HOVER,
                              STATE_CHECKED | STATE_DISABLED};
        for (float x = 300; int state : kBoxes)
            AddBox(std::exchange(x, x + 40), 80)->SetState(state);
        AddLabel(new CGameLable, 20, 130, 200, 40, FORMAT_LEFTTOP, L"Left top \u5de6\u4e0a", 0xFFFFFFFF);
        AddLabel(new CGameLable, 240, 130, 200, 40, FORMAT_CENTER, L"Centre \u5c45\u4e2d", 0xFFFFE080);
        AddLabel(new CGameLable, 460, 130, 200, 40, FORMAT_ELLIPSIS, L"This text is too long for the label",
                 0xFF80FFFF);
        AddLabel(new CGameLableEx, 20, 185, 640, 30, FORMAT_CENTER,
                 L"\u4e00\u5f20\u62c9\u4f38\u7684\u80cc\u666f\u56fe", 0x96FFFFFF);
        AddWindow();
        spaced_.SetKerningWidth(6);
        spaced_.SetKerningHeight(4);
        const DWORD kCorners[] = {0xFFFF4040, 0xFF40FF40, 0xFF4040FF, 0xFFFFFF40};
        for (int corner = 0; corner < 4; ++corner)
            spaced_.SetColor(kCorners[corner], corner);
    }
    ~ControlsScreen() { layout_->RemoveAll(); }

    void Draw() {
        gui_.Render();
        smooth_.Render(20, 230, L"Smooth text AaGgQq 0123 \u5149\u6ed1\u6587\u5b57\uff0c\u6c49\u5b57");
        sharp_.Render(20, 265, L"Sharp text AaGgQq 0123 \u70b9\u9635\u6587\u5b57\uff0c\u6c49\u5b57");
        bold_.Render(20, 300, L"Bold \u7c97\u4f53");
        italic_.Render(220, 300, L"Italic \u659c\u4f53");
        spaced_.Render(20, 340, L"Kerning \u95f4\u8ddd\nsecond line\r\ntwo lines down");
        small_.Render(20, 460, L"12 px: the quick brown fox \u5c0f\u5b57\u53f7\u7684\u4e2d\u6587");
        large_.Render(20, 490, L"\u5927\u5b57 48");
    }

 private:
    static std::string Ansi(const wchar_t* text) { return code_page::FromWide(CP_ACP, text); }
    CGameButton* AddButton(float x, float y, const wchar_t* caption, int state) {
        CGameButton* button = new CGameButton;
        gui_.AddCtrl(button);
        button->LoadImageInfo("screen_button.png");
        button->MoveWindow(x, y, 120, 40, true);
        button->SetFont(&caption_font_);
        button->SetTextAlign(ALIGN_CENTER);
        button->SetCaption(Ansi(caption).c_str());
        button->SetState(state);
        button->Update(0);
        return button;
    }
    CGameCheckBox* AddBox(float x, float y) {
        CGameCheckBox* box = new CGameCheckBox;
        gui_.AddCtrl(box);
        box->LoadImageInfo("screen_box.png");
        box->MoveWindow(x, y, 20, 20, true);
        return box;
    }
    CGameLable* AddLabel(CGameLable* label, float x, float y, float w, float h, unsigned short format,
                         const wchar_t* text, DWORD colour) {
        gui_.AddCtrl(label);
        label->LoadImageInfo("screen_label.png");
        label->MoveWindow(x, y, w, h, true);
        label->SetFont(kFace, 18, false, false, true);
        label->SetColor(colour);
        label->setformat(format);
        label->SetText(Ansi(text).c_str());
        return label;
    }
    void AddWindow() {
        CGameWindow* window = new CGameWindow;
        gui_.AddCtrl(window);
        window->InitWindow("screen_panel.png", {260, 180});
        layout_ = std::make_unique<CLayout>(window);
        window->SetLayOut(layout_.get());
        CGameButton* button = AddButton(0, 0, L"", 0);
        CGameCheckBox* box = AddBox(0, 0);
        CGameLable* label =
            AddLabel(new CGameLable, 0, 0, 200, 40, FORMAT_CENTER, L"\u7a97\u53e3 window", ~0u);
        button->MoveWindow(20, 120, 120, 40, layout_.get(), true);
        box->MoveWindow(20, 60, 20, 20, layout_.get(), true);
        label->MoveWindow(30, 10, 200, 40, layout_.get(), true);
        for (hgeGUIObject* child : std::initializer_list<hgeGUIObject*>{button, box, label})
            layout_->AddControl(child);
        window->MoveWindow(520, 380, 0, 0, false);
        button->SetCaption("Child");
    }

    hgeGUI gui_;
    std::unique_ptr<CLayout> layout_;
    GfxFont caption_font_{kFace, 18, 0, 0, 1}, smooth_{kFace, 24, 0, 0, 1}, sharp_{kFace, 24, 0, 0, 0};
    GfxFont bold_{kFace, 24, 1, 0, 1}, italic_{kFace, 24, 0, 1, 1}, spaced_{kFace, 24, 0, 0, 1};
    GfxFont small_{kFace, 12, 0, 0, 1}, large_{kFace, 48, 0, 0, 1};
};

int CALLBACK StopAtFirst(const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM) {
    return 0;
}

bool HasFace() {
    HDC dc = CreateCompatibleDC(nullptr);
    bool has_face = EnumFontFamiliesA(dc, kFace, StopAtFirst, 0) == 0;
    DeleteDC(dc);
    return has_face;
}

TEST_F(ScreenTest, EveryControlInEveryState) {
    if (!HasFace() || GetACP() != 936) GTEST_SKIP() << "needs " << kFace << " and code page 936";
    // Fonts are large: not on the stack.
    auto screen = std::make_unique<ControlsScreen>();
    hge::Image actual = Picture([&] { screen->Draw(); }, kGround);
    EXPECT_TRUE(test::SamePicture("controls", actual, test::ReadPicture(GOLDEN_FOLDER "/controls.png"),
                                  {2, "blended colours round by one on some devices, twice at most"}));
    hgeCounters before = Counters();
    Scene([&] { screen->Draw(); }, kGround);
    EXPECT_LE(Counters().draws - before.draws, 17u) << "only images of more than 256 pixels stand alone";
    EXPECT_EQ(Counters().uploads, before.uploads) << "what was seen before is in the device";
}

}  // namespace
