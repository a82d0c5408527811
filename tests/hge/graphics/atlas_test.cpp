#include "graphics/atlas.h"

#include <gtest/gtest.h>

#include <random>

namespace test {

using hge::Atlas;
using hge::AtlasSlot;

bool Overlap(const AtlasSlot& a, const AtlasSlot& b) {
    return a.page == b.page && a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

bool OnPage(const AtlasSlot& slot, int size) {
    return slot.x >= 0 && slot.y >= 0 && slot.x + slot.width <= size && slot.y + slot.height <= size;
}

TEST(AtlasTest, EntriesOfAnyOrderNeverOverlap) {
    Atlas atlas(256, 8);
    std::mt19937 random(7);
    std::vector<AtlasSlot> live;
    for (int step = 0; step < 3000; ++step) {
        if (!live.empty() && random() % 5 < 2) {
            std::swap(live[random() % live.size()], live.back());
            atlas.Free(live.back());
            live.pop_back();
        } else if (auto slot = atlas.Allocate(1 + random() % 60, 1 + random() % 60)) {
            ASSERT_TRUE(OnPage(*slot, 256));
            for (const AtlasSlot& other : live)
                ASSERT_FALSE(Overlap(*slot, other)) << "step " << step;
            live.push_back(*slot);
        }
    }
    for (const AtlasSlot& slot : live)
        atlas.Free(slot);
    int pages = atlas.pages();
    for (int page = 0; page < pages; ++page)
        EXPECT_TRUE(atlas.Allocate(256, 256)) << "freed room is whole again";
    EXPECT_EQ(atlas.pages(), pages);
}

TEST(AtlasTest, LikeEntriesFillAPageDensely) {
    Atlas atlas(1024, 1);
    EXPECT_FALSE(atlas.Allocate(1025, 1) || atlas.Allocate(1, 1025) || atlas.Allocate(0, 5) ||
                 atlas.Allocate(5, -1));
    EXPECT_EQ(atlas.pages(), 0);
    int fitted = 0;
    while (atlas.Allocate(22, 22))
        ++fitted;
    EXPECT_GE(fitted, 46 * 42);
}

}  // namespace test
