#include "core/hge_impl.h"

namespace hge {

namespace {

int PowerStatus() {
    SYSTEM_POWER_STATUS status;
    if (!GetSystemPowerStatus(&status)) return HGEPWR_UNSUPPORTED;
    if (status.ACLineStatus == 1) return HGEPWR_AC;
    return status.BatteryLifePercent <= 100 ? status.BatteryLifePercent : HGEPWR_UNSUPPORTED;
}

}  // namespace

// The screen and its window are made once.
bool HgeImpl::IsFixed(int state) const {
    if (!initiated_) return false;
    return state == HGE_ZBUFFER || state == HGE_USESOUND || state == HGE_SCREENWIDTH ||
           state == HGE_SCREENHEIGHT || state == HGE_SCREENBPP || state == HGE_SAMPLERATE ||
           state == HGE_HWNDPARENT;
}

template <class State, class Value>
bool HgeImpl::Store(State state, Value value) {
    if (IsFixed(state) && states_.Get(state) != value) {
        log_.Write("state %d stays as it is while the system runs", state);
        return false;
    }
    if (states_.Set(state, value)) return true;
    log_.Write("state %d cannot be set to that value", state);
    return false;
}

void HgeImpl::System_SetState(hgeBoolState state, bool value) {
    Guarded("System_SetState", [&] {
        if (!Store(state, value)) return;
        if (state == HGE_WINDOWED) window_.SetWindowed(value);
        if (state == HGE_HIDEMOUSE) window_.HideMouse(value);
        if (state == HGE_TEXTUREFILTER) graphics_.SetTextureFilter(value);
    });
}

void HgeImpl::System_SetState(hgeFuncState state, hgeCallback value) {
    Guarded("System_SetState", [&] { Store(state, value); });
}

void HgeImpl::System_SetState(hgeHwndState state, HWND value) {
    Guarded("System_SetState", [&] { Store(state, value); });
}

void HgeImpl::System_SetState(hgeIntState state, int value) {
    Guarded("System_SetState", [&] {
        if (Store(state, value)) Apply(state, value);
    });
}

void HgeImpl::Apply(hgeIntState state, int value) {
    if (state == HGE_FXVOLUME || state == HGE_MUSVOLUME || state == HGE_STREAMVOLUME) ApplyVolumes();
    if (!initiated_ || state != HGE_FPS) return;
    pacer_.SetFps(value);
    graphics_.SetVSync(value == HGEFPS_VSYNC);
}

void HgeImpl::System_SetState(hgeStringState state, const char* value) {
    Guarded("System_SetState", [&] {
        if (states_.Set(state, value))
            Apply(state, states_.Get(state));
        else
            log_.Write("state %d is unknown", state);
    });
}

void HgeImpl::Apply(hgeStringState state, const std::string& value) {
    if (state == HGE_INIFILE) ini_.SetPath(value.empty() ? "" : FullPath(value));
    if (state == HGE_TITLE) window_.SetTitle(value);
    if (state == HGE_ICON) window_.SetIcon(value);
}

bool HgeImpl::System_GetState(hgeBoolState state) {
    return states_.Get(state);
}

hgeCallback HgeImpl::System_GetState(hgeFuncState state) {
    return states_.Get(state);
}

HWND HgeImpl::System_GetState(hgeHwndState state) {
    return state == HGE_HWND ? window_.handle() : states_.Get(state);
}

int HgeImpl::System_GetState(hgeIntState state) {
    return state == HGE_POWERSTATUS ? PowerStatus() : states_.Get(state);
}

const char* HgeImpl::System_GetState(hgeStringState state) {
    return states_.Get(state).c_str();
}

}  // namespace hge
