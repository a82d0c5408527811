#include "graphics/texture_records.h"

#include <algorithm>

namespace hge {

namespace {

// As many as fit beside what else a frame touches.
constexpr size_t kMostToFetch = 4096;
constexpr size_t kPerCacheLine = 64 / sizeof(TextureRecord);

}  // namespace

void TextureRecords::Reserve(size_t slots) {
    size_t size = records_.size();
    while (size < slots)
        size *= 2;
    records_.resize(size);
    mask_ = static_cast<uint32_t>(size - 1);
}

TextureRecord& TextureRecords::Start(uint32_t id) {
    TextureRecord& record = At(id);
    record = {};
    record.id = id;
    return record;
}

void TextureRecords::Clear() {
    records_.assign(1, {});
    mask_ = 0;
}

// By writing, as quads do, too: a line that was read may still be another core's.
void TextureRecords::Fetch() {
    for (size_t i = 0; i < std::min(records_.size(), kMostToFetch); i += kPerCacheLine)
        records_[i].batch = 0;
}

}  // namespace hge
