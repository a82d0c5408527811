#include "gauges.h"

#include <hgecounters.h>
#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <vector>

namespace soak {

namespace {

// Blocks in use, of all modules.
long HeapKilobytes() {
    HANDLE heaps[64];
    DWORD count = std::min<DWORD>(GetProcessHeaps(std::size(heaps), heaps), std::size(heaps));
    size_t bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        HeapLock(heaps[i]);
        PROCESS_HEAP_ENTRY entry = {};
        while (HeapWalk(heaps[i], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        HeapUnlock(heaps[i]);
    }
    return static_cast<long>(bytes / 1024);
}

// Wine answers 0 to the questions for GDI objects, USER objects and handles; there they are counted one by
// one.

long CountGdiObjects() {
    // The process's table of them, and Wine's entries in it.
    struct Entry {
        ULONGLONG object;
        USHORT owner[2], unique, type;
        ULONGLONG user;
    };
    constexpr int kEntries = 16384, kTableInPeb = 0x94;
    PROCESS_BASIC_INFORMATION process = {};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof process,
                              nullptr);
    const char* peb = reinterpret_cast<const char*>(process.PebBaseAddress);
    const Entry* table = *reinterpret_cast<const Entry* const*>(peb + kTableInPeb);
    long count = 0;
    for (int i = 0; table && i < kEntries; ++i)
        count += table[i].type != 0;
    return count;
}

BOOL CALLBACK CountOwn(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return TRUE;
    ++*reinterpret_cast<long*>(count);
    if (GetParent(window) == nullptr) EnumChildWindows(window, CountOwn, count);
    return TRUE;
}

long CountWindows() {
    long count = 0;
    EnumWindows(CountOwn, reinterpret_cast<LPARAM>(&count));
    for (HWND window = nullptr; (window = FindWindowExA(HWND_MESSAGE, window, nullptr, nullptr));)
        CountOwn(window, reinterpret_cast<LPARAM>(&count));
    return count;
}

long CountHandles() {
    struct Entry {
        USHORT process, trace;
        UCHAR type, attributes;
        USHORT handle;
        void* object;
        ULONG access;
    };
    constexpr auto kAllHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    std::vector<char> list(1 << 20);
    if (NtQuerySystemInformation(kAllHandles, list.data(), static_cast<ULONG>(list.size()), nullptr))
        return 0;
    long count = 0;
    const Entry* entries = reinterpret_cast<const Entry*>(list.data() + sizeof(ULONG));
    for (ULONG i = 0; i < *reinterpret_cast<const ULONG*>(list.data()); ++i)
        count += entries[i].process == static_cast<USHORT>(GetCurrentProcessId());
    return count;
}

long CountOr(DWORD counted, long (*count)()) {
    return counted ? static_cast<long>(counted) : count();
}

}  // namespace

Gauges ReadGauges() {
    HANDLE process = GetCurrentProcess();
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(process, &memory, sizeof memory);
    DWORD handles = 0;
    GetProcessHandleCount(process, &handles);
    hgeCounters of;
    hgeGetCounters(&of);
    Gauges gauges = {static_cast<long>(memory.PagefileUsage / 1024), HeapKilobytes(),
                     CountOr(GetGuiResources(process, GR_GDIOBJECTS), CountGdiObjects),
                     CountOr(GetGuiResources(process, GR_USEROBJECTS), CountWindows),
                     CountOr(handles, CountHandles)};
    const DWORD counts[] = {of.textures,   of.targets, of.resource_blocks, of.packs,
                            of.references, of.effects, of.streams,         of.channels};
    std::copy(std::begin(counts), std::end(counts), gauges.end() - std::size(counts));
    return gauges;
}

}  // namespace soak
