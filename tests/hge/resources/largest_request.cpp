#include "hge/resources/largest_request.h"

#include <algorithm>
#include <cstdlib>
#include <new>

size_t largest_request = 0;

void* operator new(size_t size) {
    largest_request = std::max(largest_request, size);
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept {
    std::free(memory);
}
