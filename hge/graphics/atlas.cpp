#include "graphics/atlas.h"

#include <algorithm>

namespace hge {

namespace {

// Shelves come in few heights, so that what is freed fits what comes next.
int ShelfHeight(int height) {
    int grain = height <= 32 ? 4 : height <= 128 ? 16 : 32;
    return (height + grain - 1) / grain * grain;
}

template <class Shelf>
auto FindSpan(Shelf& shelf, int width) {
    return std::find_if(shelf.free.begin(), shelf.free.end(),
                        [width](const auto& span) { return span.width >= width; });
}

}  // namespace

std::optional<AtlasSlot> Atlas::Allocate(int width, int height) {
    if (width <= 0 || height <= 0 || width > page_size_ || height > page_size_) return {};
    for (int page = 0; page < pages(); ++page)
        if (auto slot = AllocateOn(page, width, height)) return slot;
    if (pages() == max_pages_) return {};
    pages_.push_back({Shelf{0, page_size_, {{0, page_size_}}}});
    return AllocateOn(pages() - 1, width, height);
}

std::optional<AtlasSlot> Atlas::AllocateOn(int page, int width, int height) {
    Shelf* shelf = BestShelf(pages_[page], width, height);
    if (!shelf) shelf = OpenShelf(pages_[page], height);
    if (!shelf) return {};
    auto span = FindSpan(*shelf, width);
    AtlasSlot slot{page, span->x, shelf->y, width, height};
    span->x += width;
    span->width -= width;
    if (span->width == 0) shelf->free.erase(span);
    ++shelf->entries;
    return slot;
}

// The lowest used shelf with room; one over half as high again would waste more than a new shelf.
Atlas::Shelf* Atlas::BestShelf(Page& page, int width, int height) {
    Shelf* best = nullptr;
    for (Shelf& shelf : page) {
        if (shelf.entries == 0 || shelf.height < height || shelf.height > ShelfHeight(height) * 3 / 2)
            continue;
        if (best && shelf.height >= best->height) continue;
        if (FindSpan(shelf, width) != shelf.free.end()) best = &shelf;
    }
    return best;
}

Atlas::Shelf* Atlas::OpenShelf(Page& page, int height) {
    auto empty = std::find_if(page.begin(), page.end(),
                              [&](const Shelf& s) { return s.entries == 0 && s.height >= height; });
    if (empty == page.end()) return nullptr;
    int taken = std::min(ShelfHeight(height), empty->height);
    if (taken < empty->height) {
        Shelf rest{empty->y + taken, empty->height - taken, {{0, page_size_}}};
        empty = page.insert(empty + 1, std::move(rest)) - 1;
        empty->height = taken;
    }
    return &*empty;
}

void Atlas::Free(const AtlasSlot& slot) {
    Page& page = pages_[slot.page];
    auto shelf = std::find_if(page.begin(), page.end(), [&](const Shelf& s) { return s.y == slot.y; });
    auto next = std::find_if(shelf->free.begin(), shelf->free.end(),
                             [&](const Span& span) { return span.x > slot.x; });
    next = shelf->free.insert(next, {slot.x, slot.width});
    if (auto after = next + 1; after != shelf->free.end() && next->x + next->width == after->x) {
        next->width += after->width;
        shelf->free.erase(after);
    }
    if (next != shelf->free.begin() && (next - 1)->x + (next - 1)->width == next->x) {
        (next - 1)->width += next->width;
        shelf->free.erase(next);
    }
    if (--shelf->entries == 0) MergeEmpty(page);
}

void Atlas::MergeEmpty(Page& page) {
    for (size_t i = 0; i + 1 < page.size();) {
        if (page[i].entries == 0 && page[i + 1].entries == 0) {
            page[i].height += page[i + 1].height;
            page.erase(page.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        } else {
            ++i;
        }
    }
}

}  // namespace hge
