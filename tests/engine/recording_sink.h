#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "drill2d/engine.h"
#include "hgegui.h"
#include "support/recording_hge.h"

// Writes its calls among those of the recording HGE, as System_Log lines, so that their order is one list.
class RecordingSink : public I2DGameEngineSink {
 public:
    // What the host does inside a callback, by its name.
    std::map<std::string, std::function<void()>> on;

    void OnInit() override { Note("OnInit", "OnInit"); }
    void OnRender() override { Note("OnRender", "OnRender"); }
    void OnRenderTarget() override { Note("OnRenderTarget", "OnRenderTarget"); }
    void OnRenderTarget1() override { Note("OnRenderTarget1", "OnRenderTarget1"); }
    void OnFrame(float dt, int id) override { Note("OnFrame", "OnFrame(%g, %d)", dt, id); }
    void OnLButtonDown(float x, float y) override { Note("OnLButtonDown", "OnLButtonDown(%g, %g)", x, y); }
    void OnLButtonUp(float x, float y) override { Note("OnLButtonUp", "OnLButtonUp(%g, %g)", x, y); }
    void OnRButtonDown(float x, float y) override { Note("OnRButtonDown", "OnRButtonDown(%g, %g)", x, y); }
    void OnRButtonUp(float x, float y) override { Note("OnRButtonUp", "OnRButtonUp(%g, %g)", x, y); }
    void OnMouseMove(float x, float y) override { Note("OnMouseMove", "OnMouseMove(%g, %g)", x, y); }

    static void Log(const char* text) { Recording().System_Log("%s", text); }

 private:
    template <class... Args>
    void Note(const char* name, const char* format, Args... args) {
        Recording().System_Log(format, args...);
        auto action = on.find(name);
        if (action != on.end()) action->second();
    }
};

// Draws itself as a log line; reports a left press as the frame's command when told to.
class RecordingControl : public hgeGUIObject {
 public:
    explicit RecordingControl(const char* label) : name(label) {}
    ~RecordingControl() override { RecordingSink::Log((name + " deleted").c_str()); }
    void Render() override { RecordingSink::Log((name + " drawn").c_str()); }
    void Leave() override { RecordingSink::Log((name + " leaves").c_str()); }
    void Enter() override { RecordingSink::Log((name + " enters").c_str()); }
    void Update(float) override { RecordingSink::Log((name + " updated").c_str()); }
    bool MouseLButton(bool down) override { return down && commands; }

    std::string name;
    bool commands = false;
};

// The recorded calls with the sink's lines bare: `System_Log("OnFrame(0.5, 0)")` reads `OnFrame(0.5, 0)`.
inline std::vector<std::string> Story(std::vector<std::string> calls) {
    const std::string log = "System_Log(\"";
    for (std::string& call : calls)
        if (call.rfind(log, 0) == 0) call = call.substr(log.size(), call.size() - log.size() - 2);
    return calls;
}
