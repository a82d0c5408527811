#include "core/handle_table.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using hge::HandleKind;
using Textures = hge::HandleTable<int, HandleKind::kTexture>;
using Effects = hge::HandleTable<int, HandleKind::kEffect>;

TEST(HandleTable, FindsNothingForZeroDeadAndForeignIds) {
    Textures textures;
    Effects effects;
    uint32_t texture = textures.Insert(std::make_unique<int>(1));
    uint32_t effect = effects.Insert(std::make_unique<int>(2));
    for (uint32_t id : {0u, effect, texture + 1, 0xFFFFFFFFu, 1u}) {
        EXPECT_EQ(textures.Find(id), nullptr) << id;
        EXPECT_EQ(textures.Remove(id), nullptr) << id;
    }
    uint32_t second = textures.Insert(std::make_unique<int>(3));
    ASSERT_NE(textures.Remove(texture), nullptr);
    EXPECT_EQ(textures.Find(texture), nullptr);
    textures.ForEach([&](uint32_t id, int& value) { EXPECT_TRUE(id == second && value == 3) << id; });
    EXPECT_EQ(textures.Remove(texture), nullptr);
    EXPECT_EQ(textures.size(), 1u);
}

TEST(HandleTable, ASlotIsReusedUnderAnotherId) {
    Textures textures;
    std::set<uint32_t> ids;
    for (uint32_t i = 0; i < Textures::kGenerations - 1; ++i) {
        uint32_t id = textures.Insert(std::make_unique<int>(i));
        EXPECT_TRUE(ids.insert(id).second) << i;
        EXPECT_EQ(*textures.Find(id), static_cast<int>(i));
        textures.Remove(id);
    }
    EXPECT_NE(ids.count(textures.Insert(std::make_unique<int>(0))), 0u);
}

}  // namespace
