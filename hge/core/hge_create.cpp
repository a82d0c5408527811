// The DLL's edge.
#include "core/hge_impl.h"

extern "C" __declspec(dllexport) HGE* CALL hgeCreate(int version) {
    return hge::HgeImpl::Acquire(version);
}

extern "C" __declspec(dllexport) bool CALL hgeGetCounters(hgeCounters* counters) {
    return hge::HgeImpl::ReadCounters(counters);
}
