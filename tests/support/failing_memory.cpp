#include "support/failing_memory.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <pthread.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <mutex>
#include <new>
#include <utility>

extern "C" {
void* __real_malloc(size_t size);
void* __real_realloc(void* block, size_t size);
void* __real___cxa_allocate_exception(size_t size) noexcept;
int __real_pthread_mutex_lock(pthread_mutex_t* mutex);
int __real_pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex);
}

namespace {

constexpr uint32_t kLive = 0x4576696C, kDead = 0x64616544;
constexpr size_t kWaiting = 4096, kLargestWaiting = 1 << 20;

struct Header {
    size_t size;
    uint32_t state;
    uint32_t unused[2];  // what follows stays aligned to 16 bytes
};

DWORD g_thread = 0;  // whose allocations fail; 0 for none
int g_left = 0;
bool g_lasting = false, g_failed = false;

std::mutex& Lock() {
    static std::mutex lock;
    return lock;
}
size_t g_live = 0;
Header* g_waiting[kWaiting] = {};
size_t g_next = 0;

bool MustFail() {
    if (g_thread == 0 || g_thread != GetCurrentThreadId()) return false;
    if (g_failed) return g_lasting;
    return g_failed = --g_left <= 0;
}

// For the run-time library's locks and its reserve for what is thrown, which is behind one: they take memory
// at first use and end the program when there is none.
class Suspended {
 public:
    Suspended() : thread_(g_thread == GetCurrentThreadId() ? std::exchange(g_thread, 0) : 0) {}
    ~Suspended() {
        if (thread_) g_thread = thread_;
    }
    Suspended(const Suspended&) = delete;
    Suspended& operator=(const Suspended&) = delete;

 private:
    DWORD thread_;
};

Header* HeaderOf(void* block) {
    return static_cast<Header*>(block) - 1;
}

void* Allocate(size_t size) {
    auto* header = static_cast<Header*>(MustFail() ? nullptr : __real_malloc(sizeof(Header) + size));
    if (!header) throw std::bad_alloc();
    *header = {size, kLive, {}};
    std::lock_guard lock(Lock());
    ++g_live;
    return std::memset(header + 1, 0xCD, size);
}

void Deallocate(void* block) {
    if (!block) return;
    Header* header = HeaderOf(block);
    if (header->state != kLive) {
        std::fputs("deleted twice, or never made by new\n", stderr);
        std::abort();
    }
    header->state = kDead;
    std::memset(block, 0xDD, header->size);
    std::lock_guard lock(Lock());
    --g_live;
    if (header->size <= kLargestWaiting) {
        std::swap(header, g_waiting[g_next]);
        g_next = (g_next + 1) % kWaiting;
    }
    std::free(header);
}

}  // namespace

extern "C" {
void* __wrap_malloc(size_t size) {
    return MustFail() ? nullptr : __real_malloc(size);
}
void* __wrap___cxa_allocate_exception(size_t size) noexcept {
    Suspended suspended;
    return __real___cxa_allocate_exception(size);
}
int __wrap_pthread_mutex_lock(pthread_mutex_t* mutex) {
    Suspended suspended;
    return __real_pthread_mutex_lock(mutex);
}
int __wrap_pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex) {
    Suspended suspended;
    return __real_pthread_cond_wait(condition, mutex);
}
void* __wrap_realloc(void* block, size_t size) {
    return MustFail() ? nullptr : __real_realloc(block, size);
}
}

void* operator new(size_t size) {
    return Allocate(size);
}
void* operator new[](size_t size) {
    return Allocate(size);
}
void operator delete(void* block) noexcept {
    Deallocate(block);
}
void operator delete[](void* block) noexcept {
    Deallocate(block);
}
void operator delete(void* block, size_t) noexcept {
    Deallocate(block);
}
void operator delete[](void* block, size_t) noexcept {
    Deallocate(block);
}

namespace failing_memory {

void Fail(int nth, bool lasting) {
    g_left = nth;
    g_lasting = lasting;
    g_failed = false;
    g_thread = GetCurrentThreadId();
}

bool Stop() {
    g_thread = 0;
    return g_failed;
}

size_t LiveBlocks() {
    std::lock_guard lock(Lock());
    return g_live;
}

void Revive(void* block) {
    std::lock_guard lock(Lock());
    Header* header = HeaderOf(block);
    std::replace(std::begin(g_waiting), std::end(g_waiting), header, static_cast<Header*>(nullptr));
    header->state = kLive;
    ++g_live;
}

}  // namespace failing_memory
