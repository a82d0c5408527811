#include "watch.h"

#include <windows.h>

#include <atomic>
#include <csignal>
#include <cstdio>

namespace soak {

namespace {

constexpr unsigned kNames = 6;
constexpr DWORD kLookMilliseconds = 60000;

std::atomic<unsigned> g_step, g_next;
const char* g_names[kNames];

void Tell(const char* what) {
    std::printf("soak: %s in %s\n", what, LastActions().c_str());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 3);
}

LONG WINAPI Crashed(EXCEPTION_POINTERS* crash) {
    char what[64];
    std::snprintf(what, sizeof what, "crash %08lX at %p", crash->ExceptionRecord->ExceptionCode,
                  crash->ExceptionRecord->ExceptionAddress);
    Tell(what);
    return EXCEPTION_CONTINUE_SEARCH;
}

DWORD WINAPI LookForHang(void*) {
    for (unsigned seen = ~0u; seen != g_step; Sleep(kLookMilliseconds))
        seen = g_step;
    Tell("no step for a minute");
    return 0;
}

}  // namespace

void StartWatch() {
    SetUnhandledExceptionFilter(Crashed);
    // Of every module: they share one run-time library.
    std::signal(SIGABRT, [](int) { Tell("abort"); });
    CloseHandle(CreateThread(nullptr, 0, LookForHang, nullptr, 0, nullptr));
}

void NoteStep(unsigned step) {
    g_step = step;
}

void NoteAction(const char* name) {
    g_names[g_next++ % kNames] = name;
}

std::string LastActions() {
    std::string text = "step " + std::to_string(g_step);
    for (unsigned i = 0; i < kNames; ++i)
        if (const char* name = g_names[(g_next + i) % kNames]) text += std::string(", ") + name;
    return text;
}

}  // namespace soak
