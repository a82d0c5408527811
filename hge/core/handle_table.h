#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace hge {

// What a handle names; kept in its top bits, so that a handle of another kind is foreign.
enum class HandleKind : uint32_t { kTexture = 1, kTarget, kEffect, kMusic, kStream, kChannel };

// Owns objects behind 32-bit ids: kind (4 bits), generation (10 bits), slot (18 bits). 0 is never an id, nor
// is any of slot 0. A dead or foreign id finds nothing; a slot's id repeats only after 1023 reuses of that
// slot.
template <class T, HandleKind kKind>
class HandleTable {
 public:
    static constexpr uint32_t kSlotBits = 18;
    static constexpr uint32_t kSlots = 1u << kSlotBits;
    static constexpr uint32_t kGenerations = 1u << 10;

    // 0 when the table is full.
    uint32_t Insert(std::unique_ptr<T> object) {
        uint32_t slot = NextFree();
        if (slot == kSlots) return 0;
        entries_[slot].object = std::move(object);
        ++size_;
        return Id(slot);
    }

    T* Find(uint32_t id) const {
        uint32_t slot = id & (kSlots - 1);
        if (slot >= entries_.size() || id != Id(slot)) return nullptr;
        return entries_[slot].object.get();
    }

    // The object, no longer in the table; null for a dead or foreign id.
    std::unique_ptr<T> Remove(uint32_t id) noexcept {
        if (!Find(id)) return nullptr;
        uint32_t slot = id & (kSlots - 1);
        Entry& entry = entries_[slot];
        entry.generation = entry.generation % (kGenerations - 1) + 1;
        free_.push_back(slot);
        --size_;
        return std::move(entry.object);
    }

    // Every id dies.
    void Clear() noexcept {
        for (uint32_t slot = 0; slot < entries_.size(); ++slot)
            if (entries_[slot].object) Remove(Id(slot));
    }

    size_t size() const { return size_; }
    // Beyond every slot that an id has had.
    size_t slots() const { return entries_.size(); }

    template <class F>
    void ForEach(F&& visit) const {
        for (uint32_t slot = 0; slot < entries_.size(); ++slot)
            if (entries_[slot].object) visit(Id(slot), *entries_[slot].object);
    }

 private:
    struct Entry {
        std::unique_ptr<T> object;
        uint32_t generation = 1;
    };

    uint32_t Id(uint32_t slot) const {
        return static_cast<uint32_t>(kKind) << 28 | entries_[slot].generation << kSlotBits | slot;
    }

    uint32_t NextFree() {
        if (!free_.empty()) {
            uint32_t slot = free_.back();
            free_.pop_back();
            return slot;
        }
        if (entries_.size() == kSlots) return kSlots;
        // Room for every slot to come free: to give back must never need memory.
        if (free_.capacity() <= entries_.size()) free_.reserve(entries_.size() * 2 + 1);
        entries_.emplace_back();
        return static_cast<uint32_t>(entries_.size() - 1);
    }

    std::vector<Entry> entries_ = std::vector<Entry>(1);
    std::vector<uint32_t> free_;
    size_t size_ = 0;
};

}  // namespace hge
