#include "core/states.h"

namespace hge {

namespace {

bool IsWithin(int state, int first, int last) {
    return state >= first && state <= last;
}

bool IsKnown(hgeBoolState state) {
    return IsWithin(state, HGE_WINDOWED, HGE_SHOWSPLASH);
}
bool IsKnown(hgeFuncState state) {
    return IsWithin(state, HGE_FRAMEFUNC, HGE_EXITFUNC);
}
bool IsKnown(hgeHwndState state) {
    return IsWithin(state, HGE_HWND, HGE_HWNDPARENT);
}
bool IsKnown(hgeIntState state) {
    return IsWithin(state, HGE_SCREENWIDTH, HGE_POWERSTATUS);
}
bool IsKnown(hgeStringState state) {
    return IsWithin(state, HGE_ICON, HGE_LOGFILE);
}

bool IsPossible(hgeIntState state, int value) {
    switch (state) {
        case HGE_SCREENBPP:
            return value == 16 || value == 32;
        case HGE_SAMPLERATE:
            return IsWithin(value, 1000, 200000);
        case HGE_FXVOLUME:
        case HGE_MUSVOLUME:
        case HGE_STREAMVOLUME:
            return IsWithin(value, 0, 100);
        case HGE_FPS:
            return value >= HGEFPS_VSYNC;
        case HGE_POWERSTATUS:
            return false;
        default:
            // Screen sizes are judged when the system starts, which fails with the reason.
            return true;
    }
}

}  // namespace

States::States() {
    flags_[HGE_TEXTUREFILTER] = flags_[HGE_USESOUND] = flags_[HGE_HIDEMOUSE] = flags_[HGE_SHOWSPLASH] = true;
    numbers_[HGE_SCREENWIDTH] = 800;
    numbers_[HGE_SCREENHEIGHT] = 600;
    numbers_[HGE_SCREENBPP] = 32;
    numbers_[HGE_SAMPLERATE] = 44100;
    numbers_[HGE_FXVOLUME] = numbers_[HGE_MUSVOLUME] = numbers_[HGE_STREAMVOLUME] = 100;
    numbers_[HGE_FPS] = HGEFPS_UNLIMITED;
}

bool States::Get(hgeBoolState state) const {
    return IsKnown(state) && flags_[state];
}

hgeCallback States::Get(hgeFuncState state) const {
    return IsKnown(state) ? callbacks_[state] : nullptr;
}

HWND States::Get(hgeHwndState state) const {
    return IsKnown(state) ? windows_[state] : nullptr;
}

int States::Get(hgeIntState state) const {
    return IsKnown(state) ? numbers_[state] : 0;
}

const std::string& States::Get(hgeStringState state) const {
    // Text 0 belongs to no state.
    return texts_[IsKnown(state) ? state : 0];
}

bool States::Set(hgeBoolState state, bool value) {
    if (!IsKnown(state)) return false;
    flags_[state] = value;
    return true;
}

bool States::Set(hgeFuncState state, hgeCallback value) {
    if (!IsKnown(state)) return false;
    callbacks_[state] = value;
    return true;
}

bool States::Set(hgeHwndState state, HWND value) {
    if (state != HGE_HWNDPARENT) return false;
    windows_[state] = value;
    return true;
}

bool States::Set(hgeIntState state, int value) {
    if (!IsKnown(state) || !IsPossible(state, value)) return false;
    numbers_[state] = value;
    return true;
}

bool States::Set(hgeStringState state, const char* value) {
    if (!IsKnown(state)) return false;
    if (state == HGE_ICON && value && IS_INTRESOURCE(value))
        texts_[state] = "#" + std::to_string(LOWORD(value));
    else
        texts_[state] = value ? value : "";
    return true;
}

}  // namespace hge
