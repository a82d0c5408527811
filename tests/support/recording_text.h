#pragma once

#include <iomanip>
#include <sstream>
#include <string>
#include <type_traits>

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

inline std::string StateName(int state) {
    std::istringstream names(
        "? WINDOWED ZBUFFER TEXTUREFILTER USESOUND DONTSUSPEND HIDEMOUSE SHOWSPLASH FRAMEFUNC RENDERFUNC "
        "FOCUSLOSTFUNC FOCUSGAINFUNC GFXRESTOREFUNC EXITFUNC ? HWND HWNDPARENT SCREENWIDTH SCREENHEIGHT "
        "SCREENBPP SAMPLERATE FXVOLUME MUSVOLUME STREAMVOLUME FPS POWERSTATUS ICON TITLE INIFILE LOGFILE");
    std::string name = "?";
    for (int i = 0; i <= state; ++i)
        names >> name;
    return "HGE_" + name;
}

template <class T>
std::string Text(const T& value) {
    if constexpr (std::is_enum_v<T>) {
        return StateName(value);
    } else {
        std::ostringstream text;
        text << std::boolalpha << value;
        return text.str();
    }
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
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << std::setfill('0') << std::setw(8) << colour.value;
    return text.str();
}
inline std::string Text(Source source) {
    return source.size && source.name ? "<ptr>" : Text(source.name);
}
// The texture and the quad's first and third corner.
inline std::string Text(const hgeQuad& quad) {
    return "tex " + Text(quad.tex) + ", " + Text(quad.v[0].x) + "," + Text(quad.v[0].y) + " " +
           Text(quad.v[2].x) + "," + Text(quad.v[2].y);
}

template <class... Args>
std::string Joined(const Args&... args) {
    std::string text;
    ((text += (text.empty() ? "" : ", ") + Text(args)), ...);
    return text;
}

}  // namespace recording_text
