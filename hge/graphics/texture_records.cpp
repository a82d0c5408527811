#include "graphics/texture_records.h"

namespace hge {

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

}  // namespace hge
