#pragma once

#include <cstdint>

namespace bench {

// From here on every malloc, calloc and realloc of this program, of drill2d.dll and of hge.dll is counted:
// each of them has the C++ run-time library linked in, and calls the one heap of msvcrt.dll through its
// import table.
void CountAllocations();

// So far, on all threads.
int64_t Allocations();

}  // namespace bench
