#pragma once

#include <vector>

#include "graphics/vertex.h"

namespace hge {

struct TextureSource;

// What a quad asks of its texture, and nothing else: the records of thousands of textures stay in the cache.
struct alignas(32) TextureRecord {
    Placement placement;
    uint32_t id = 0;
    const TextureSource* source = nullptr;  // null when quads cannot be drawn from it at once
    uint32_t batch = 0;                     // the batch that drew from it last
};

// The records of textures, found by their ids. Id 0, which is no texture's, has the first one.
class TextureRecords {
 public:
    TextureRecords() : records_(1) {}

    // Whose record it is says its id; of an unknown id any.
    TextureRecord& At(uint32_t id) { return records_[id & mask_]; }
    // Makes room for ids of so many slots.
    void Reserve(size_t slots);
    // The record of its slot is now that of this id.
    TextureRecord& Start(uint32_t id);
    void Clear();
    // Brings the records into the cache: far cheaper at once than one by one, as quads ask for them. Only
    // while no batch is open: some forget theirs.
    void Fetch();

 private:
    std::vector<TextureRecord> records_;  // as many as a power of two
    uint32_t mask_ = 0;
};

}  // namespace hge
