#pragma once

#include <ocidl.h>

// The test's side of the movie control in flash.ocx: a "movie" of a few frames, each an opaque, a
// half-transparent and an empty column.
struct MovieControl {
    // How the next movies behave; Clear sets them back.
    int frames;
    long version;
    short loop_answer;  // of get_Loop, in place of the truth when not 0
    bool refuse_play;   // answers S_FALSE
    bool no_view;       // has no IViewObject
    bool fail_second_draw;
    bool call_site_in_draw;
    bool keep_site;  // one reference survives the movie, in kept_site
    bool empty;      // the module makes no control

    long objects;
    long draws;
    long long draw_ticks;  // of the performance counter, spent drawing
    long class_references;
    IOleInPlaceSiteWindowless* kept_site;

    // Calls so far, one a line.
    const char*(__cdecl* Record)();
    void(__cdecl* Clear)();
    // Every playing movie goes on by a frame.
    void(__cdecl* Step)();
};

extern "C" MovieControl* GetMovieControl();
// That of a loaded module.
inline MovieControl* ControlOf(HMODULE module) {
    return reinterpret_cast<decltype(&GetMovieControl)>(
        reinterpret_cast<void*>(GetProcAddress(module, "GetMovieControl")))();
}

// Columns of the picture, 0xRRGGBB; the second one is half-transparent.
constexpr unsigned kOpaqueColor = 0xC83C14, kOpaqueColorOddFrames = 0x2850F0, kHalfColor = 0xF0783C;
