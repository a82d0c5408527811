#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/log.h"
#include "resources/byte_source.h"
#include "resources/file_names.h"
#include "resources/folder_search.h"

namespace hge {

// Names to bytes: attached packs, newest first, then files under the program's folder.
class ResourceStore {
 public:
    // folder: the program's, with a trailing separator.
    ResourceStore(Log& log, std::string folder);
    // Frees the live blocks too.
    ~ResourceStore();
    ResourceStore(const ResourceStore&) = delete;
    ResourceStore& operator=(const ResourceStore&) = delete;

    // See HGE::Resource_*. Blocks come from malloc and are followed by one NUL.
    void* Load(const char* name, uint32_t* size);
    // Ignores a pointer that is not a live block, with a line in the log.
    void Free(void* block);
    // What was loaded into a live block, null for other memory; valid until it is freed.
    const char* NameOf(const void* block) const;
    // Attached already: only takes over a password that is given.
    bool AttachPack(const char* path, const char* password);
    void RemovePack(const char* path);
    void RemoveAllPacks();
    char* MakePath(const char* name);
    // Names without their folder.
    char* EnumFiles(const char* wildcard);
    char* EnumFolders(const char* wildcard);

    size_t live_blocks() const { return blocks_.size(); }
    size_t pack_count() const { return packs_.size(); }
    const std::string& folder() const { return folder_; }

 private:
    struct Pack;

    std::string FullPath(const char* name) const;
    Pack* FindPack(const std::string& key) const;
    // Without bytes and with the reason on failure.
    Block Read(const std::string& name, std::string* reason);
    Block ReadFile(const std::string& name, std::string* reason) const;
    std::string PackNames() const;
    char* Enumerate(FolderSearch& search, const char* wildcard) const;

    Log& log_;
    std::string folder_;
    CodePage code_page_;
    std::vector<std::unique_ptr<Pack>> packs_;             // newest first
    std::unordered_map<const void*, std::string> blocks_;  // and what was loaded into them
    std::string path_;
    FolderSearch files_{FolderSearch::Kind::kFiles};
    FolderSearch folders_{FolderSearch::Kind::kFolders};
};

}  // namespace hge
