#pragma once

#include <cstdio>
#include <string>

#include "hge.h"

// How the recording writes arguments: strings quoted, floats short, pointers as <ptr> or null.
namespace recording_text {

struct Colour {
    DWORD value;
};
// A file name, or a memory block when size is not 0.
struct Source {
    const char* name;
    DWORD size;
};

inline std::string Printed(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}
inline std::string Text(bool value) {
    return value ? "true" : "false";
}
inline std::string Text(int value) {
    return std::to_string(value);
}
inline std::string Text(DWORD value) {
    return std::to_string(value);
}
inline std::string Text(float value) {
    return Printed("%g", static_cast<double>(value));
}
inline std::string Text(const char* value) {
    return value ? "\"" + std::string(value) + "\"" : "null";
}
inline std::string Text(const void* value) {
    return value ? "<ptr>" : "null";
}
inline std::string Text(HWND value) {
    return value ? "<hwnd>" : "null";
}
inline std::string Text(hgeCallback value) {
    return value ? "<func>" : "null";
}
inline std::string Text(Colour colour) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", colour.value);
    return text;
}
inline std::string Text(Source source) {
    return source.size && source.name ? "<ptr>" : Text(source.name);
}

// The texture and the quad's first and third corner.
inline std::string Text(const hgeQuad& quad) {
    return "tex " + Text(quad.tex) + ", " + Text(quad.v[0].x) + "," + Text(quad.v[0].y) + " " +
           Text(quad.v[2].x) + "," + Text(quad.v[2].y);
}

inline std::string StateName(int state) {
    static const char* const kNames[] = {"",
                                         "WINDOWED",
                                         "ZBUFFER",
                                         "TEXTUREFILTER",
                                         "USESOUND",
                                         "DONTSUSPEND",
                                         "HIDEMOUSE",
                                         "SHOWSPLASH",
                                         "FRAMEFUNC",
                                         "RENDERFUNC",
                                         "FOCUSLOSTFUNC",
                                         "FOCUSGAINFUNC",
                                         "GFXRESTOREFUNC",
                                         "EXITFUNC",
                                         "",
                                         "HWND",
                                         "HWNDPARENT",
                                         "SCREENWIDTH",
                                         "SCREENHEIGHT",
                                         "SCREENBPP",
                                         "SAMPLERATE",
                                         "FXVOLUME",
                                         "MUSVOLUME",
                                         "STREAMVOLUME",
                                         "FPS",
                                         "POWERSTATUS",
                                         "ICON",
                                         "TITLE",
                                         "INIFILE",
                                         "LOGFILE"};
    if (state < 0 || state >= static_cast<int>(sizeof kNames / sizeof *kNames)) return Text(state);
    return std::string("HGE_") + kNames[state];
}
inline std::string Text(hgeBoolState state) {
    return StateName(state);
}
inline std::string Text(hgeFuncState state) {
    return StateName(state);
}
inline std::string Text(hgeHwndState state) {
    return StateName(state);
}
inline std::string Text(hgeIntState state) {
    return StateName(state);
}
inline std::string Text(hgeStringState state) {
    return StateName(state);
}

inline std::string Joined() {
    return "";
}
template <class First, class... Rest>
std::string Joined(const First& first, const Rest&... rest) {
    std::string text = Text(first);
    ((text += ", " + Text(rest)), ...);
    return text;
}

}  // namespace recording_text
