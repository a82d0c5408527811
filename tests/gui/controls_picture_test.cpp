#include <fstream>
#include <iterator>

#include "drill2d/resources.h"
#include "gui/screen_fixture.h"
#include "hgegui.h"
#include "support/picture.h"

namespace {

// Every control in every state, text in every manner.
class ControlsScreen {
 public:
    ControlsScreen() : caption_font_(kFace, 18, 0, 0, 1) {
        AddButtons();
        AddCheckBoxes();
        AddLabels();
        AddWindow();
    }
    ~ControlsScreen() { layout_->RemoveAll(); }

    void Draw() {
        gui_.Render();
        DrawTexts();
    }

 private:
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
    void AddButtons() {
        AddButton(20, 20, L"Normal", 0);
        AddButton(160, 20, L"\u60ac\u505c", STATE_HOVER);
        AddButton(300, 20, L"\u6309\u4e0b", STATE_PRESSED | STATE_HOVER);
        AddButton(440, 20, L"Disabled", STATE_DISABLED);
        CGameButton* sparkling = AddButton(580, 20, L"", STATE_HOVER);
        CGameResourceManager::getInstance()->AttachHge(hgeCreate(HGE_VERSION));
        sparkling->loadMouseAni("screen_spark.png", 2, 10, 0, 0);
        CGameButton* placed = AddButton(20, 70, L"", 0);
        placed->SetTextAlign(ALIGN_LEFT | ALIGN_TOP);
        placed->SetCaption("Left top");
        CGameButton* narrow = AddButton(160, 70, L"", 0);
        narrow->MoveWindow(160, 70, 60, 24, true);
        narrow->SetCaption("60");
    }
    void AddCheckBoxes() {
        const int kStates[] = {0, STATE_HOVER, STATE_CHECKED, STATE_CHECKED | STATE_HOVER,
                               STATE_CHECKED | STATE_DISABLED};
        float x = 300;
        for (int state : kStates) {
            CGameCheckBox* box = new CGameCheckBox;
            gui_.AddCtrl(box);
            box->LoadImageInfo("screen_box.png");
            box->MoveWindow(x, 80, 0, 0, false);
            box->SetState(state);
            x += 40;
        }
    }
    void AddLabel(CGameLable* label, float x, float y, float w, float h, unsigned short format,
                  const wchar_t* text, DWORD colour) {
        gui_.AddCtrl(label);
        label->LoadImageInfo("screen_label.png");
        label->MoveWindow(x, y, w, h, true);
        label->SetFont(kFace, 18, false, false, true);
        label->SetColor(colour);
        label->setformat(format);
        label->SetText(Ansi(text).c_str());
    }
    void AddLabels() {
        AddLabel(new CGameLable, 20, 130, 200, 40, FORMAT_LEFTTOP, L"Left top \u5de6\u4e0a", 0xFFFFFFFF);
        AddLabel(new CGameLable, 240, 130, 200, 40, FORMAT_CENTER, L"Centre \u5c45\u4e2d", 0xFFFFE080);
        AddLabel(new CGameLable, 460, 130, 200, 40, FORMAT_ELLIPSIS, L"This text is too long for the label",
                 0xFF80FFFF);
        AddLabel(new CGameLableEx, 20, 185, 640, 30, FORMAT_CENTER,
                 L"\u4e00\u5f20\u62c9\u4f38\u7684\u80cc\u666f\u56fe", 0x96FFFFFF);
    }
    void AddWindow() {
        CGameWindow* window = new CGameWindow;
        gui_.AddCtrl(window);
        window->InitWindow("screen_panel.png", {260, 180});
        layout_ = std::make_unique<CLayout>(window);
        window->SetLayOut(layout_.get());
        CGameButton* button = AddButton(0, 0, L"", 0);
        button->MoveWindow(20, 120, 120, 40, layout_.get(), true);
        CGameCheckBox* box = new CGameCheckBox;
        gui_.AddCtrl(box);
        box->LoadImageInfo("screen_box.png");
        box->MoveWindow(20, 60, 20, 20, layout_.get(), true);
        CGameLable* label = new CGameLable;
        AddLabel(label, 0, 0, 200, 40, FORMAT_CENTER, L"\u7a97\u53e3 window", 0xFFFFFFFF);
        label->MoveWindow(30, 10, 200, 40, layout_.get(), true);
        layout_->AddControl(button);
        layout_->AddControl(box);
        layout_->AddControl(label);
        window->MoveWindow(520, 380, 0, 0, false);
        button->SetTextAlign(ALIGN_CENTER);
        button->SetCaption("Child");
    }
    void DrawTexts() {
        smooth_.Render(20, 230, L"Smooth text AaGgQq 0123 \u5149\u6ed1\u6587\u5b57\uff0c\u6c49\u5b57");
        sharp_.Render(20, 265, L"Sharp text AaGgQq 0123 \u70b9\u9635\u6587\u5b57\uff0c\u6c49\u5b57");
        bold_.Render(20, 300, L"Bold \u7c97\u4f53");
        italic_.Render(220, 300, L"Italic \u659c\u4f53");
        spaced_.SetKerningWidth(6);
        spaced_.SetKerningHeight(4);
        spaced_.SetColor(0xFFFF4040, 0);
        spaced_.SetColor(0xFF40FF40, 1);
        spaced_.SetColor(0xFF4040FF, 2);
        spaced_.SetColor(0xFFFFFF40, 3);
        spaced_.Render(20, 340, L"Kerning \u95f4\u8ddd\nsecond line\r\ntwo lines down");
        small_.Render(20, 460, L"12 px: the quick brown fox \u5c0f\u5b57\u53f7\u7684\u4e2d\u6587");
        large_.Render(20, 490, L"\u5927\u5b57 48");
    }

    hgeGUI gui_;
    std::unique_ptr<CLayout> layout_;
    GfxFont caption_font_;
    GfxFont smooth_{kFace, 24, 0, 0, 1}, sharp_{kFace, 24, 0, 0, 0}, bold_{kFace, 24, 1, 0, 1};
    GfxFont italic_{kFace, 24, 0, 1, 1}, spaced_{kFace, 24, 0, 0, 1}, small_{kFace, 12, 0, 0, 1};
    GfxFont large_{kFace, 48, 0, 0, 1};
};

TEST_F(ScreenTest, EveryControlInEveryState) {
    if (!HasFace() || GetACP() != 936) GTEST_SKIP() << "needs " << kFace << " and code page 936";
    // Fonts are large: not on the stack.
    auto screen = std::make_unique<ControlsScreen>();
    hge::Image actual = Picture([&] { screen->Draw(); });

    std::ifstream file(std::string(GOLDEN_FOLDER) + "/controls.png", std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    hge::Image expected;
    std::string reason;
    EXPECT_TRUE(hge::DecodeImage(bytes.data(), bytes.size(), &expected, &reason)) << reason;
    EXPECT_TRUE(test::SamePicture("controls", actual, expected,
                                  {2, "blended colours round by one on some devices, twice at most"}));
}

}  // namespace
