#pragma once

#include <cstdio>
#include <string>

#include "support/silent_sink.h"

// Where a traced host writes its lines.
inline std::FILE* g_trace = nullptr;

// The main of a program that runs a host, which ends itself, and keeps its trace in NAME.txt.
template <class Host>
int TraceHost(const std::string& name) {
    g_trace = std::fopen((name + ".txt").c_str(), "wb");
    if (!g_trace) return 2;
    // The test reads along.
    std::setvbuf(g_trace, nullptr, _IONBF, 0);
    Host host;
    bool ran = RunHost(&host, 800, 600, name.c_str());
    std::fprintf(g_trace, "end\n");
    std::fclose(g_trace);
    return ran ? 0 : 1;
}
