#pragma once

#include <cstddef>

// A test program that links failing_memory has a new and a malloc that can be told to fail. Memory of new
// comes filled with 0xCD and goes filled with 0xDD, and waits before it is used again; what is deleted twice
// ends the program.
namespace failing_memory {

// The nth allocation of this thread from now on fails, from 1; with lasting all those after it, too.
void Fail(int nth, bool lasting);
// Ends that. Whether one has failed.
bool Stop();
// Blocks of new that are not deleted.
size_t LiveBlocks();
// The memory of a deleted object is alive again, for an object at the same address.
void Revive(void* block);

}  // namespace failing_memory
