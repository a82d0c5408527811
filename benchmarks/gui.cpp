#include <fstream>
#include <memory>
#include <string>

#include "drill2d/controls.h"
#include "drill2d/font.h"
#include "scenes.h"
#include "stage.h"

namespace bench {

namespace {

constexpr int kColumns = 40, kCellWidth = 20, kCellHeight = 24;
constexpr char kStrip[] = "benchmark_strip.tga";

// Five frames of a cell's size in a row, one picture for labels and buttons.
void WriteStrip() {
    const int width = 5 * kCellWidth, height = kCellHeight;
    std::string bytes(18, '\0');
    bytes[2] = 2;
    bytes[12] = static_cast<char>(width);
    bytes[14] = static_cast<char>(height);
    bytes[16] = 32;
    bytes.append(static_cast<size_t>(width * height * 4), '\x90');
    std::ofstream(Stage::Framework()->Resource_MakePath(kStrip), std::ios::binary) << bytes;
}

// Labels share a font here, as buttons can.
struct Label : CGameLable {
    void Use(GfxFont* font) { m_pFont = font; }
};

hgeGUIObject* Place(Label* label, GfxFont* font, float x, float y, const char* text) {
    label->Use(font);
    label->LoadImageInfo(kStrip);
    label->MoveWindow(x, y, kCellWidth, kCellHeight, true);
    label->SetText(text);
    return label;
}

hgeGUIObject* Place(CGameButton* button, GfxFont* font, float x, float y, const char* text) {
    button->SetFont(font);
    button->LoadImageInfo(kStrip);
    button->MoveWindow(x, y, kCellWidth, kCellHeight, true);
    button->SetCaption(text);
    return button;
}

struct Panel {
    Panel(int count, bool buttons) : font("SimSun", 12, 0, 0, 1) {
        WriteStrip();
        for (int i = 0; i < count; ++i) {
            const float x = static_cast<float>(i % kColumns * kCellWidth);
            const float y = static_cast<float>(i / kColumns % 25 * kCellHeight);
            // Two ideographs of code page 936 and a number.
            const std::string text = "\xB0\xB4\xC5\xA5" + std::to_string(i % 100);
            hgeGUIObject* control = buttons ? Place(new CGameButton, &font, x, y, text.c_str())
                                            : Place(new Label, &font, x, y, text.c_str());
            control->id = i + 1;
            gui.AddCtrl(control);
        }
    }
    void Frame() {
        gui.Update(0.016f);
        gui.Render();
    }

    GfxFont font;
    hgeGUI gui;
};

Scene Controls(int count, bool buttons, bool hovered) {
    auto panel = std::make_shared<Panel>(count, buttons);
    Stage::Frames(1, [panel] { panel->Frame(); });
    auto quads = std::make_shared<std::vector<hgeQuad>>(Stage::Record([panel] { panel->Frame(); }));
    Require(quads->size() >= static_cast<size_t>(count), "the controls draw nothing");
    auto submit = Stage::Submission([panel] { panel->Frame(); });
    auto round = std::make_shared<int>(0);
    Scene scene;
    scene.items = count;
    scene.limit = 2;
    scene.heap_free = true;
    scene.ours = [=](Meter& meter) {
        // From control to control, or past the last row.
        const int step = ++*round % 8;
        Stage::Framework()->Input_SetMousePos(hovered ? static_cast<float>(step * kCellWidth + 9) : 799.0f,
                                              hovered ? 9.0f : 599.0f);
        submit(meter);
    };
    scene.bare = Stage::Submission([quads] { Stage::Replay(*quads); });
    return scene;
}

}  // namespace

void AddGuiScenes(Suite& suite) {
    const int count = suite.Size(1000);
    for (bool buttons : {false, true})
        for (bool hovered : {false, true})
            suite.Add("gui/" + std::to_string(count) + (buttons ? " buttons" : " labels") +
                          (hovered ? "/hovered" : "/idle"),
                      [=] { return Controls(count, buttons, hovered); });
    for (int size : {300, 1000, 3000})
        suite.Add("gui/growth/" + std::to_string(suite.Size(size)), [size = suite.Size(size)] {
            Scene scene = Controls(size, true, false);
            scene.limit = 0;
            scene.family = "controls";
            scene.size = size;
            scene.growth_limit = 1.1;
            return scene;
        });
}

}  // namespace bench
