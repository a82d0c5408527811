#pragma once

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "core/log.h"

namespace hge {

class ZipArchive;

// Names to bytes: attached packs, newest first, then files under the program's folder.
class ResourceStore {
 public:
    // folder: the program's, with a trailing separator.
    ResourceStore(Log& log, std::string folder);
    ~ResourceStore();

    // See HGE::Resource_*. Blocks come from malloc and are followed by one NUL.
    void* Load(const char* name, uint32_t* size);
    // Ignores a pointer that is not a live block, with a line in the log.
    void Free(void* block);
    bool AttachPack(const char* path, const char* password);
    void RemovePack(const char* path);
    void RemoveAllPacks();
    char* MakePath(const char* name);
    char* EnumFiles(const char* wildcard);
    char* EnumFolders(const char* wildcard);

    size_t live_blocks() const { return blocks_.size(); }
    size_t pack_count() const { return packs_.size(); }
    const std::string& folder() const { return folder_; }

 private:
    struct Pack;
    Log& log_;
    std::string folder_;
    std::vector<std::unique_ptr<Pack>> packs_;
    std::unordered_set<void*> blocks_;
};

}  // namespace hge
