#include "core/hge_impl.h"

#include <new>

#include "core/exceptions.h"
#include "resources/image.h"

namespace hge {

namespace {

// With a trailing separator.
std::string ProgramFolder() {
    char path[MAX_PATH] = "";
    DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string folder(path, length < MAX_PATH ? length : 0);
    // By characters: the second byte of one can be a backslash in some code pages.
    size_t end = 0;
    for (size_t i = 0; i < folder.size(); ++i) {
        if (IsDBCSLeadByte(folder[i]))
            ++i;
        else if (folder[i] == '\\')
            end = i + 1;
    }
    return folder.substr(0, end);
}

}  // namespace

HgeImpl* HgeImpl::instance_ = nullptr;

HgeImpl::HgeImpl()
    : resources_(log_, ProgramFolder()),
      ini_(log_, ""),
      window_(log_, input_),
      graphics_(log_),
      audio_(log_, resources_),
      pacer_(FrameWaiter::TicksPerSecond()) {
    PrepareExceptions();
}

HGE* HgeImpl::Acquire(int version) {
    if (version != HGE_VERSION) return nullptr;
    try {
        if (!instance_) instance_ = new HgeImpl;
    } catch (const std::exception&) {
        return nullptr;
    }
    ++instance_->references_;
    return instance_;
}

void HgeImpl::Release() {
    if (--references_ > 0) return;
    System_Shutdown();
    resources_.RemoveAllPacks();
    instance_ = nullptr;
    delete this;
}

bool HgeImpl::ReadCounters(hgeCounters* counters) {
    if (!counters) return false;
    *counters = {};
    if (!instance_) return false;
    instance_->graphics_.AddCounters(counters);
    counters->resource_blocks = static_cast<DWORD>(instance_->resources_.live_blocks());
    counters->packs = static_cast<DWORD>(instance_->resources_.pack_count());
    instance_->audio_.AddCounters(counters);
    counters->references = instance_->references_;
    return true;
}

void HgeImpl::ReportException(const char* operation, const std::exception& problem) noexcept {
    try {
        log_.Fail("%s: %s", operation,
                  dynamic_cast<const std::bad_alloc*>(&problem) ? "out of memory" : problem.what());
    } catch (const std::exception&) {
        // Not even memory for the message is left.
    }
}

std::string HgeImpl::FullPath(const std::string& name) const {
    bool absolute =
        !name.empty() && (name[0] == '\\' || name[0] == '/' || (name.size() > 1 && name[1] == ':'));
    return absolute ? name : resources_.folder() + name;
}

void* HgeImpl::Resource_Load(const char* filename, DWORD* size) {
    return Guarded("Resource_Load", [&]() -> void* {
        uint32_t bytes = 0;
        void* block = resources_.Load(filename, &bytes);
        if (size) *size = bytes;
        return block;
    });
}

void HgeImpl::Resource_Free(void* res) {
    Guarded("Resource_Free", [&] { resources_.Free(res); });
}

bool HgeImpl::Resource_AttachPack(const char* filename, const char* password) {
    return Guarded("Resource_AttachPack", [&] { return resources_.AttachPack(filename, password); });
}

void HgeImpl::Resource_RemovePack(const char* filename) {
    Guarded("Resource_RemovePack", [&] { resources_.RemovePack(filename); });
}

void HgeImpl::Resource_RemoveAllPacks() {
    resources_.RemoveAllPacks();
}

char* HgeImpl::Resource_MakePath(const char* filename) {
    return Guarded("Resource_MakePath", [&] { return resources_.MakePath(filename); });
}

char* HgeImpl::Resource_EnumFiles(const char* wildcard) {
    return Guarded("Resource_EnumFiles", [&] { return resources_.EnumFiles(wildcard); });
}

char* HgeImpl::Resource_EnumFolders(const char* wildcard) {
    return Guarded("Resource_EnumFolders", [&] { return resources_.EnumFolders(wildcard); });
}

void HgeImpl::Ini_SetInt(const char* section, const char* name, int value) {
    Guarded("Ini_SetInt", [&] { ini_.SetInt(section, name, value); });
}

int HgeImpl::Ini_GetInt(const char* section, const char* name, int def_val) {
    return Guarded("Ini_GetInt", [&] { return ini_.GetInt(section, name, def_val); });
}

void HgeImpl::Ini_SetFloat(const char* section, const char* name, float value) {
    Guarded("Ini_SetFloat", [&] { ini_.SetFloat(section, name, value); });
}

float HgeImpl::Ini_GetFloat(const char* section, const char* name, float def_val) {
    return Guarded("Ini_GetFloat", [&] { return ini_.GetFloat(section, name, def_val); });
}

void HgeImpl::Ini_SetString(const char* section, const char* name, const char* value) {
    Guarded("Ini_SetString", [&] { ini_.SetString(section, name, value); });
}

char* HgeImpl::Ini_GetString(const char* section, const char* name, const char* def_val) {
    return Guarded("Ini_GetString", [&] { return ini_.GetString(section, name, def_val); });
}

void HgeImpl::Random_Seed(int seed) {
    random_.Seed(seed);
}

int HgeImpl::Random_Int(int min, int max) {
    return random_.Int(min, max);
}

float HgeImpl::Random_Float(float min, float max) {
    return random_.Float(min, max);
}

float HgeImpl::Timer_GetTime() {
    return pacer_.time();
}

float HgeImpl::Timer_GetDelta() {
    return pacer_.delta();
}

int HgeImpl::Timer_GetFPS() {
    return pacer_.fps();
}

}  // namespace hge
