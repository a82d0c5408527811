#pragma once

#include "hge.h"

// What the framework has done and holds. Work is summed since System_Initiate, holdings are as of now.
struct hgeCounters {
    DWORD frames;           // frames presented
    DWORD draws;            // draw calls issued
    DWORD quads;            // primitives submitted: quads, triples and lines
    DWORD buffer_maps;      // vertex ring mappings
    DWORD uploads;          // texture boxes sent to the device
    DWORD upload_bytes;     // bytes in them
    DWORD textures;         // live textures, targets' textures included
    DWORD targets;          // live render targets
    DWORD resource_blocks;  // blocks of Resource_Load not yet freed
    DWORD packs;            // attached packs
    DWORD references;       // hgeCreate calls not yet released
    DWORD effects;          // live sound effects
    DWORD streams;          // live streams
    DWORD channels;         // sounds that play or are paused
};

// False when no HGE exists; counters are zeroed then.
extern "C" bool CALL hgeGetCounters(hgeCounters* counters);
