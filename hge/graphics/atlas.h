#pragma once

#include <optional>
#include <vector>

namespace hge {

// Where an entry lies; its size is rounded up.
struct AtlasSlot {
    int page = 0, x = 0, y = 0, width = 0, height = 0;
};

// Finds room for small rectangles on square pages: shelves of like height, with free spans in each.
class Atlas {
 public:
    Atlas(int page_size, int max_pages) : page_size_(page_size), max_pages_(max_pages) {}

    // Nothing when the rectangle is larger than a page or every page is full.
    std::optional<AtlasSlot> Allocate(int width, int height);
    void Free(const AtlasSlot& slot);

    // Pages that were ever needed.
    int pages() const { return static_cast<int>(pages_.size()); }

 private:
    struct Span {
        int x, width;
    };
    struct Shelf {
        int y, height;
        std::vector<Span> free;  // by x, never touching one another
        int entries = 0;
    };
    using Page = std::vector<Shelf>;  // by y, covering the page

    std::optional<AtlasSlot> AllocateOn(int page, int width, int height);
    static Shelf* BestShelf(Page& page, int width, int height);
    Shelf* OpenShelf(Page& page, int height);
    static void MergeEmpty(Page& page);

    int page_size_;
    int max_pages_;
    std::vector<Page> pages_;
};

}  // namespace hge
