#pragma once

#include "hgecounters.h"

namespace test {

// What the framework has done and holds now; all 0 without one.
inline hgeCounters Counters() {
    hgeCounters counters = {};
    hgeGetCounters(&counters);
    return counters;
}

}  // namespace test
