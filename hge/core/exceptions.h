#pragma once

namespace hge {

// The run-time library takes memory for a thread's first exception, and ends the program when there is none.
// Called while there is some, by each thread that must outlive a lack of it.
inline void PrepareExceptions() {
    try {
        throw 0;
    } catch (int) {
    }
}

}  // namespace hge
