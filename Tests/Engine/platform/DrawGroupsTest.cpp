#include "Engine/platform/sdl/DrawGroups.h"

#include <gtest/gtest.h>

namespace Engine::Platform {
namespace {

/// A run of one quad, the n-th of the batch.
sDrawRun makeRun(UInt n, UInt texture) {
    return {.texture = texture, .first_index = n * 6, .triangles = 2, .first_vertex = n * 4, .vertices = 4};
}

TEST(DrawGroups, putNeighboursOfOneStateTogether) {
    cDrawGroups draws;
    const sDrawState masked{.stencil = eStencil::test};
    draws.add({}, makeRun(0, 5));
    draws.add({}, makeRun(1, 6));
    draws.add({}, makeRun(2, 5));
    draws.add(masked, makeRun(3, 5));
    ASSERT_EQ(draws.getGroups().size(), 2u);
    EXPECT_EQ(draws.getGroups()[0].texture_count, 2u);
    EXPECT_EQ(draws.getRuns(draws.getGroups()[0]).size(), 3u);

    std::vector<UInt> slots(16, 9);
    EXPECT_TRUE(draws.fillSlots(slots));
    EXPECT_EQ(slots, (std::vector<UInt>{0, 0, 0, 0, 1, 1, 1, 1, 0, 0, 0, 0, 9, 9, 9, 9}));
}

TEST(DrawGroups, holdNoMoreTexturesThanAreBound) {
    cDrawGroups draws;
    for (UInt i = 0; i < sDrawGroup::max_textures + 1; ++i)
        draws.add({}, makeRun(i, i + 1));
    ASSERT_EQ(draws.getGroups().size(), 2u);
    EXPECT_EQ(draws.getGroups()[1].textures[0], sDrawGroup::max_textures + 1);
}

// The vertices of a mask are drawn twice, so only the second group may give them a slot.
TEST(DrawGroups, giveMasksGroupsOfTheirOwn) {
    cDrawGroups draws;
    const sDrawState mask{.blend = eBlend::keep, .stencil = eStencil::write};
    draws.add(mask, makeRun(0, 5));
    draws.add(mask, makeRun(1, 6));
    EXPECT_EQ(draws.getGroups().size(), 2u);
    std::vector<UInt> slots(8);
    EXPECT_FALSE(draws.fillSlots(slots));
}

}  // namespace
}  // namespace Engine::Platform
