#include "resources/resource_store.h"

#include <algorithm>

#include "resources/ansi_code_page.h"
#include "resources/zip_archive.h"

namespace hge {

struct ResourceStore::Pack {
    std::string path;  // as the host gave it
    std::string key;   // full path, folded
    std::string password;
    std::unique_ptr<ZipArchive> archive;
};

ResourceStore::ResourceStore(Log& log, std::string folder)
    : log_(log), folder_(std::move(folder)), code_page_(AnsiCodePage()) {}

ResourceStore::~ResourceStore() {
    for (const auto& [block, name] : blocks_)
        std::free(const_cast<void*>(block));
}

void* ResourceStore::Load(const char* name, uint32_t* size) {
    if (size) *size = 0;
    if (!name || !*name) {
        log_.Fail("cannot load a file: no name is given");
        return nullptr;
    }
    std::string reason;
    Block block = Read(name, &reason);
    if (!block.bytes) {
        log_.Fail("cannot load \"%s\": %s", name, reason.c_str());
        return nullptr;
    }
    blocks_.emplace(block.bytes.get(), name);
    if (size) *size = block.size;
    return block.bytes.release();
}

void ResourceStore::Free(void* block) {
    if (!block) return;
    if (blocks_.erase(block))
        std::free(block);
    else
        log_.Write("Resource_Free: %p is no loaded resource, or was freed before", block);
}

const char* ResourceStore::NameOf(const void* block) const {
    auto found = blocks_.find(block);
    return found == blocks_.end() ? nullptr : found->second.c_str();
}

bool ResourceStore::AttachPack(const char* path, const char* password) {
    if (!path || !*path) {
        log_.Fail("cannot attach a pack: no name is given");
        return false;
    }
    std::string full_path = FullPath(path);
    std::string key = FoldName(full_path, code_page_);
    if (Pack* attached = FindPack(key)) {
        if (password && *password) attached->password = password;
        return true;
    }
    std::string reason;
    std::unique_ptr<ZipArchive> archive;
    if (auto file = FileSource::Open(full_path, &reason))
        archive = ZipArchive::Open(std::move(file), code_page_, &reason);
    if (!archive) {
        log_.Fail("cannot attach pack \"%s\": %s", path, reason.c_str());
        return false;
    }
    log_.Write("pack \"%s\" attached: %u files", path, static_cast<unsigned>(archive->entry_count()));
    packs_.insert(packs_.begin(), std::make_unique<Pack>(Pack{path, std::move(key), password ? password : "",
                                                              std::move(archive)}));
    return true;
}

void ResourceStore::RemovePack(const char* path) {
    if (!path) return;
    std::string key = FoldName(FullPath(path), code_page_);
    std::erase_if(packs_, [&](const auto& pack) { return pack->key == key; });
}

void ResourceStore::RemoveAllPacks() {
    packs_.clear();
}

char* ResourceStore::MakePath(const char* name) {
    path_ = FullPath(name);
    return path_.data();
}

char* ResourceStore::EnumFiles(const char* wildcard) {
    return Enumerate(files_, wildcard);
}

char* ResourceStore::EnumFolders(const char* wildcard) {
    return Enumerate(folders_, wildcard);
}

std::string ResourceStore::FullPath(const char* name) const {
    std::string path = name ? name : "";
    // "/" is never the second byte of a character, so bytes will do.
    std::replace(path.begin(), path.end(), '/', '\\');
    return IsAbsolute(path) ? path : folder_ + path;
}

ResourceStore::Pack* ResourceStore::FindPack(const std::string& key) const {
    auto found =
        std::find_if(packs_.begin(), packs_.end(), [&](const auto& pack) { return pack->key == key; });
    return found == packs_.end() ? nullptr : found->get();
}

Block ResourceStore::Read(const std::string& name, std::string* reason) {
    if (IsAbsolute(name)) return ReadFile(name, reason);
    std::string key = FoldName(name, code_page_);
    for (const auto& pack : packs_) {
        const ZipEntry* entry = pack->archive->Find(key);
        if (!entry) continue;
        Block block = pack->archive->Read(*entry, pack->password, reason);
        if (!block.bytes) *reason = "pack \"" + pack->path + "\": " + *reason;
        return block;
    }
    Block block = ReadFile(name, reason);
    if (!block.bytes && !packs_.empty()) *reason = "not in the packs " + PackNames() + ", and " + *reason;
    return block;
}

Block ResourceStore::ReadFile(const std::string& name, std::string* reason) const {
    auto file = FileSource::Open(FullPath(name.c_str()), reason);
    return file ? ReadWhole(*file, reason) : Block{};
}

std::string ResourceStore::PackNames() const {
    std::string names;
    for (const auto& pack : packs_)
        names += (names.empty() ? "\"" : ", \"") + pack->path + '"';
    return names;
}

char* ResourceStore::Enumerate(FolderSearch& search, const char* wildcard) const {
    return wildcard ? search.First(FullPath(wildcard)) : search.Next();
}

}  // namespace hge
