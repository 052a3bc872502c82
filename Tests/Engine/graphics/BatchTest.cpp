#include "Engine/graphics/Batch.h"

#include <gtest/gtest.h>

namespace Engine {
namespace {

/// A square of 10 units at (x, 0).
iGraphics::sSprite makeSprite(Float x = 0.0f, UInt tesselation = 1) {
    iGraphics::sSprite sprite;
    sprite.corners[0] = {x, 0.0f};
    sprite.corners[1] = {x + 10.0f, 0.0f};
    sprite.corners[2] = {x, 10.0f};
    sprite.corners[3] = {x + 10.0f, 10.0f};
    sprite.tesselation = tesselation;
    return sprite;
}

struct Batch : testing::Test {
    void add(const iGraphics::sSprite& sprite, UInt texture = 0, UInt render_type = 0) {
        batch.add(sprite, {texture, Vector2(1.0f)}, render_type, {});
    }

    cBatch batch;
};

TEST_F(Batch, putsNeighboursOfOneStateIntoOneChunk) {
    add(makeSprite(0), 7);
    add(makeSprite(20), 7);
    add(makeSprite(40), 8);
    add(makeSprite(60), 7);
    batch.close();

    const auto chunks = batch.getChunks();
    ASSERT_EQ(chunks.size(), 3u);
    EXPECT_EQ(chunks[0].triangles, 4u);
    EXPECT_EQ(chunks[0].vertices, 8u);
    EXPECT_EQ(chunks[1].texture, 8u);
    EXPECT_EQ(chunks[1].first_index, 12u);
    EXPECT_EQ(chunks[1].first_vertex, 8u);
    EXPECT_EQ(chunks[2].first_vertex, 12u);
    // indices begin anew in each chunk
    EXPECT_EQ(std::vector(batch.getIndices().begin() + 6, batch.getIndices().begin() + 12),
              (std::vector<std::uint16_t>{4, 6, 5, 5, 6, 7}));
    EXPECT_EQ(batch.getIndices()[12], 0u);
}

TEST_F(Batch, cutsWhereAnyPartOfTheStateChanges) {
    const std::vector<glm::vec4> constants;
    iGraphics::sSprite shaded = makeSprite();
    shaded.shader = reinterpret_cast<cShader*>(&batch);  // only compared
    iGraphics::sSprite tuned = shaded;
    tuned.constants = &constants;
    add(makeSprite());
    add(makeSprite(), 0, renderMultiply);
    add(shaded, 0, renderMultiply);
    add(tuned, 0, renderMultiply);
    batch.close();
    EXPECT_EQ(batch.getChunks().size(), 4u);
}

TEST_F(Batch, givesAUnitAChunkOfItsOwn) {
    const iGraphics::sUnit unit;
    add(makeSprite());
    batch.add(unit, renderLinear);
    add(makeSprite());
    batch.close();
    const auto chunks = batch.getChunks();
    ASSERT_EQ(chunks.size(), 3u);
    EXPECT_EQ(chunks[1].unit, &unit);
    EXPECT_EQ(chunks[1].render_type, UInt{renderLinear});
    EXPECT_EQ(chunks[1].vertices, 0u);
    EXPECT_EQ(chunks[2].first_vertex, 4u);
}

// Two cells a side over a quad that is no rectangle: the middle is the mean of the corners in place and colour.
TEST_F(Batch, mixesPlacesColoursAndTextureOverTheGrid) {
    iGraphics::sSprite sprite = makeSprite(0, 2);
    sprite.corners[3] = {30.0f, 30.0f};
    const UInt colors[] = {0xFF000000, 0xFF0000FF, 0xFF00FF00, 0x00FF0000};
    for (int i = 0; i < 4; ++i)
        sprite.corners[i].color = colors[i];
    sprite.u0 = 0.5f;
    batch.add(sprite, {0, {0.5f, 0.25f}}, 0, {{2.0f, 2.0f}, {100.0f, 0.0f}});
    batch.close();

    const auto vertices = batch.getVertices();
    ASSERT_EQ(vertices.size(), 9u);
    EXPECT_EQ(batch.getChunks()[0].triangles, 8u);
    const Platform::sVertex& middle = vertices[4];
    EXPECT_FLOAT_EQ(middle.x, 100.0f + 2.0f * 10.0f);
    EXPECT_FLOAT_EQ(middle.y, 2.0f * 10.0f);
    EXPECT_EQ(middle.color, 0xBF404040u);
    EXPECT_FLOAT_EQ(middle.u, 0.75f * 0.5f);
    EXPECT_FLOAT_EQ(middle.v, 0.5f * 0.25f);
    EXPECT_EQ(vertices[8].color, 0x00FF0000u);
    EXPECT_FLOAT_EQ(vertices[8].x, 160.0f);
    EXPECT_EQ(std::vector(batch.getIndices().begin() + 18, batch.getIndices().end()),
              (std::vector<std::uint16_t>{4, 7, 5, 5, 7, 8}));
}

TEST_F(Batch, growsAndLosesNothing) {
    batch.resize(2);
    for (UInt i = 0; i < 100; ++i)
        add(makeSprite(static_cast<Float>(i)));
    batch.close();
    EXPECT_GE(batch.getCapacity(), 100u);
    ASSERT_EQ(batch.getVertices().size(), 400u);
    for (UInt i = 0; i < 100; ++i)
        EXPECT_FLOAT_EQ(batch.getVertices()[i * 4].x, static_cast<Float>(i));

    batch.resize(1);  // in the frame: what is there stays
    EXPECT_EQ(batch.getCapacity(), 100u);
    batch.clear();
    batch.resize(1);
    EXPECT_EQ(batch.getCapacity(), 1u);
}

TEST_F(Batch, cutsBeforeAnIndexNeedsMoreThan16Bits) {
    for (UInt i = 0; i < 16385; ++i)
        add(makeSprite());
    add(makeSprite(0, 255));
    batch.close();
    const auto chunks = batch.getChunks();
    ASSERT_EQ(chunks.size(), 3u);
    EXPECT_EQ(chunks[0].vertices, 65536u);
    EXPECT_EQ(batch.getIndices()[16384 * 6 - 1], 65535u);
    EXPECT_EQ(chunks[1].first_vertex, 65536u);
    EXPECT_EQ(chunks[2].vertices, 65536u);
}

TEST_F(Batch, bringsAbsurdTesselationsIntoRange) {
    add(makeSprite(0, 0));
    add(makeSprite(0, 0xFFFFFFFF));
    batch.close();
    EXPECT_EQ(batch.getVertices().size(), 4u + 65536u);
}

}  // namespace
}  // namespace Engine
