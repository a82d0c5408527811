// close_window PROGRAM.exe: asks the windows of every process of that program file to close, as their user
// would.

#include <windows.h>

#include <cstdio>

namespace {

struct Search {
    const char* program;
    int closed;
};

bool BelongsTo(HWND window, const char* program) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
    if (process == nullptr) return false;
    char path[MAX_PATH * 4] = "";
    DWORD length = sizeof path;
    const bool known = QueryFullProcessImageNameA(process, 0, path, &length) != FALSE;
    CloseHandle(process);
    return known && lstrcmpiA(path, program) == 0;
}

BOOL CALLBACK CloseIfOurs(HWND window, LPARAM data) {
    Search& search = *reinterpret_cast<Search*>(data);
    if (!IsWindowVisible(window) || !BelongsTo(window, search.program)) return TRUE;
    if (PostMessageA(window, WM_CLOSE, 0, 0)) ++search.closed;
    return TRUE;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: close_window PROGRAM.exe\n");
        return 2;
    }
    Search search = {argv[1], 0};
    EnumWindows(CloseIfOurs, reinterpret_cast<LPARAM>(&search));
    return search.closed > 0 ? 0 : 1;
}
