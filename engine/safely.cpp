#include "engine/safely.h"

#include <new>

#include "hge.h"

void PrepareExceptions() {
    try {
        throw 0;
    } catch (int) {
    }
}

void ReportTrouble(const char* operation, const std::exception* problem) noexcept {
    HGE* hge = hgeCreate(HGE_VERSION);
    if (!hge) return;
    bool no_memory = !problem || dynamic_cast<const std::bad_alloc*>(problem);
    hge->System_Log("%s: %s", operation, no_memory ? "out of memory" : problem->what());
    hge->Release();
}
