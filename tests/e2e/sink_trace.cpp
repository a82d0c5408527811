// Runs the engine with a control in the middle and a ball for a cursor, and writes every frame with a mouse
// event to sink_trace.txt, a frame a line, its calls in order. Ends itself on Escape.
#include <drill2d/drill2d.h>
#include <hgegui.h>

#include <cstdarg>

#include "e2e/trace.h"

namespace {

std::string g_frame;      // this frame's calls
bool g_eventful = false;  // it holds more than the calls of every frame

void Note(bool event, const char* format, ...) {
    char text[64];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    if (!g_frame.empty()) g_frame += ' ';
    g_frame += text;
    g_eventful |= event;
}

class Pad : public hgeGUIObject {
 public:
    Pad() { rect.Set(300, 250, 500, 350); }
    void Render() override { hgeSprite(0, 0, 0, 200, 100).Render(rect.x1, rect.y1); }
    bool MouseLButton(bool down) override {
        Note(true, "Pad(%d)", down);
        return false;
    }
};

class Trace : public SilentSink {
 public:
    void OnInit() override {
        Engine()->AddControl(new Pad);
        CGameResourceManager* res = CGameResourceManager::getInstance();
        res->AttachHge(Engine()->GetHge());
        res->AttachPacket("hello.zip");
        res->SetCurPacket("hello.zip");
        for (int i = 0; i < 2; ++i)
            Engine()->SetCursor("ball.png", res);
        std::fprintf(g_trace, "OnInit\n");
    }
    void OnFrame(float, int id) override {
        Note(id != 0, "OnFrame(%d)", id);
        if (Engine()->GetHge()->Input_KeyDown(HGEK_ESCAPE)) PostQuitMessage(0);
    }
    void OnLButtonDown(float x, float y) override { Note(true, "OnLButtonDown(%g,%g)", x, y); }
    void OnLButtonUp(float x, float y) override { Note(true, "OnLButtonUp(%g,%g)", x, y); }
    void OnRButtonDown(float x, float y) override { Note(true, "OnRButtonDown(%g,%g)", x, y); }
    void OnRButtonUp(float x, float y) override { Note(true, "OnRButtonUp(%g,%g)", x, y); }
    void OnMouseMove(float x, float y) override { Note(false, "OnMouseMove(%g,%g)", x, y); }
    void OnRender() override {
        Note(false, "OnRender");
        if (g_eventful) std::fprintf(g_trace, "%s\n", g_frame.c_str());
        g_frame.clear();
        g_eventful = false;
    }
};

}  // namespace

int main() {
    return TraceHost<Trace>("sink_trace");
}
