#include "drill2d/engine.h"
#include "engine/safely.h"
#include "engine/screenshot_name.h"

namespace {

constexpr DWORD kMillisecondsBetweenShots = 300;
constexpr unsigned long long kTicksFrom1601To1970 = 116444736000000000ull;

DWORD g_last_shot_tick = 0;

bool IsTooSoon() {
    DWORD now = GetTickCount();
    if (g_last_shot_tick != 0 && now - g_last_shot_tick < kMillisecondsBetweenShots) return true;
    g_last_shot_tick = now;
    return false;
}

// Where the last backslash of a path ends; 0 without one. Steps by character: in a double-byte code page the
// second byte of an ideograph may look like a backslash.
size_t EndOfFolder(const std::string& path) {
    size_t end = 0;
    for (const char* at = path.c_str(); *at; at = CharNextA(at))
        if (*at == '\\') end = static_cast<size_t>(at - path.c_str()) + 1;
    return end;
}

std::string ProgramFolder() {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string folder(path, strnlen(path, MAX_PATH));
    folder.resize(EndOfFolder(folder));
    return folder;
}

unsigned long long MicrosecondsSince1970() {
    FILETIME time;
    GetSystemTimeAsFileTime(&time);
    unsigned long long ticks =
        static_cast<unsigned long long>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return (ticks - kTicksFrom1601To1970) / 10;
}

void CreateFolders(std::string path) {
    for (const char* at = path.c_str(); *at; at = CharNextA(at)) {
        if (*at != '\\') continue;
        size_t length = static_cast<size_t>(at - path.c_str());
        CreateDirectoryA(path.substr(0, length).c_str(), nullptr);
    }
    CreateDirectoryA(path.c_str(), nullptr);
}

}  // namespace

void C2DGameEngine::saveImage(const char* dir) {
    if (m_pGui && !IsTooSoon()) Safely("saveImage", [&] { SaveFrame(dir); });
}

void C2DGameEngine::SaveFrame(const char* dir) {
    std::string folder = ProgramFolder();
    if (folder.empty()) return;
    __time64_t now = _time64(nullptr);
    const tm* local = _localtime64(&now);
    if (!local) {
        m_pHge->System_Log("no screenshot: the system's clock shows no date");
        return;
    }
    std::string file = ScreenshotName(dir, *local, MicrosecondsSince1970(), CP_ACP);
    folder += "pic\\";
    CreateFolders(folder);
    m_pHge->System_Snapshot((folder + file).c_str());
}
