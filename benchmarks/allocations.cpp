#include "allocations.h"

#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <cstring>

namespace bench {

namespace {

std::atomic<int64_t> g_allocations;

void*(__cdecl* g_malloc)(size_t);
void*(__cdecl* g_calloc)(size_t, size_t);
void*(__cdecl* g_realloc)(void*, size_t);

void* __cdecl CountedMalloc(size_t size) {
    ++g_allocations;
    return g_malloc(size);
}

void* __cdecl CountedCalloc(size_t count, size_t size) {
    ++g_allocations;
    return g_calloc(count, size);
}

void* __cdecl CountedRealloc(void* block, size_t size) {
    ++g_allocations;
    return g_realloc(block, size);
}

template <class Function>
void Find(const char* name, Function* function) {
    auto found = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("msvcrt.dll"), name));
    *function = reinterpret_cast<Function>(found);
}

void* CounterFor(const char* name) {
    if (!std::strcmp(name, "malloc")) return reinterpret_cast<void*>(CountedMalloc);
    if (!std::strcmp(name, "calloc")) return reinterpret_cast<void*>(CountedCalloc);
    if (!std::strcmp(name, "realloc")) return reinterpret_cast<void*>(CountedRealloc);
    return nullptr;
}

void Redirect(IMAGE_THUNK_DATA* slot, void* function) {
    DWORD protection;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    slot->u1.Function = reinterpret_cast<DWORD>(function);
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

void RedirectImports(HMODULE module) {
    if (!module) return;
    auto base = reinterpret_cast<BYTE*>(module);
    auto headers =
        reinterpret_cast<IMAGE_NT_HEADERS*>(base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; library->Name; ++library) {
        auto names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
        auto slots = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
        for (; names->u1.AddressOfData; ++names, ++slots) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            auto import = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (void* counter = CounterFor(reinterpret_cast<const char*>(import->Name)))
                Redirect(slots, counter);
        }
    }
}

}  // namespace

void CountAllocations() {
    Find("malloc", &g_malloc);
    Find("calloc", &g_calloc);
    Find("realloc", &g_realloc);
    for (const char* module : {static_cast<const char*>(nullptr), "drill2d.dll", "hge.dll"})
        RedirectImports(GetModuleHandleA(module));
}

int64_t Allocations() {
    return g_allocations;
}

}  // namespace bench
