#include <gtest/gtest.h>

#include <algorithm>

#include "Engine/graphics/image/Image.h"
#include "Tests/Support/TestImages.h"

namespace Engine {
namespace {

using TestImages::BYTES;

sImage decode(const BYTES& file) {
    return decodeImage(file.data(), file.size(), "a.dds");
}

BYTES pixel(const sImage& image, UInt x, UInt y) {
    const auto at = image.pixels.begin() + static_cast<std::ptrdiff_t>((y * image.width + x) * 4);
    return BYTES(at, at + 4);
}

constexpr std::uint8_t red565[2] = {0x00, 0xF8};
constexpr std::uint8_t blue565[2] = {0x1F, 0x00};

/// Red and blue ends; the first row of pixels takes the four colours in order, the others the first.
BYTES makeColors(const std::uint8_t (&end0)[2], const std::uint8_t (&end1)[2]) {
    return {end0[0], end0[1], end1[0], end1[1], 0b11100100, 0, 0, 0};
}

/// The two halves of a block.
BYTES join(const BYTES& head, const BYTES& tail) {
    BYTES all(head.size() + tail.size());
    std::copy(tail.begin(), tail.end(), std::copy(head.begin(), head.end(), all.begin()));
    return all;
}

TEST(Dds, mixesTwoColoursBetweenTheEnds) {
    const sImage image = decode(TestImages::writeDds(4, 4, {4, "DXT1"}, makeColors(red565, blue565)));
    EXPECT_EQ(pixel(image, 0, 0), (BYTES{255, 0, 0, 255}));
    EXPECT_EQ(pixel(image, 1, 0), (BYTES{0, 0, 255, 255}));
    EXPECT_EQ(pixel(image, 2, 0), (BYTES{170, 0, 85, 255}));
    EXPECT_EQ(pixel(image, 3, 0), (BYTES{85, 0, 170, 255}));
    EXPECT_EQ(pixel(image, 3, 3), (BYTES{255, 0, 0, 255}));
}

TEST(Dds, hasAHoleWhenTheEndsAreSwapped) {
    const BYTES colors = makeColors(blue565, red565);
    const sImage image = decode(TestImages::writeDds(4, 4, {4, "DXT1"}, colors));
    EXPECT_EQ(pixel(image, 2, 0), (BYTES{127, 0, 127, 255}));
    EXPECT_EQ(pixel(image, 3, 0), (BYTES{0, 0, 0, 0}));

    const BYTES block = join(BYTES(8, 0xFF), colors);  // the kinds with an alpha of their own have no hole
    EXPECT_EQ(pixel(decode(TestImages::writeDds(4, 4, {4, "DXT3"}, block)), 3, 0), (BYTES{170, 0, 85, 255}));
}

TEST(Dds, readsBothKindsOfAlpha) {
    const BYTES colors = makeColors(red565, blue565);
    const BYTES plain = join({0x10, 0xF2, 0, 0, 0, 0, 0, 0}, colors);
    const sImage dxt3 = decode(TestImages::writeDds(4, 4, {4, "DXT3"}, plain));
    EXPECT_EQ(pixel(dxt3, 0, 0)[3], 0);
    EXPECT_EQ(pixel(dxt3, 1, 0)[3], 17);
    EXPECT_EQ(pixel(dxt3, 2, 0)[3], 34);
    EXPECT_EQ(pixel(dxt3, 3, 0)[3], 255);

    // places 0, 1, 2 and 7 of eight steps from 210 down to 0; then the same ends swapped: six steps, 0 and 255
    BYTES mixed = join({210, 0, 0b10001000, 0b00001110, 0, 0, 0, 0}, colors);
    const sImage eight = decode(TestImages::writeDds(4, 4, {4, "DXT5"}, mixed));
    EXPECT_EQ(pixel(eight, 0, 0)[3], 210);
    EXPECT_EQ(pixel(eight, 1, 0)[3], 0);
    EXPECT_EQ(pixel(eight, 2, 0)[3], 180);
    EXPECT_EQ(pixel(eight, 3, 0)[3], 30);
    std::swap(mixed[0], mixed[1]);
    const sImage six = decode(TestImages::writeDds(4, 4, {4, "DXT5"}, mixed));
    EXPECT_EQ(pixel(six, 2, 0)[3], 42);
    EXPECT_EQ(pixel(six, 3, 0)[3], 255);
}

TEST(Dds, cutsTheLastBlocksToThePicture) {
    BYTES blocks;
    for (int i = 0; i < 4; ++i) {
        const BYTES colors = i == 3 ? makeColors(blue565, blue565) : makeColors(red565, red565);
        blocks.insert(blocks.end(), colors.begin(), colors.end());
    }
    const sImage image = decode(TestImages::writeDds(5, 6, {4, "DXT1"}, blocks));
    EXPECT_EQ(pixel(image, 4, 3), (BYTES{255, 0, 0, 255}));
    EXPECT_EQ(pixel(image, 4, 5), (BYTES{0, 0, 255, 255}));
}

TEST(Dds, bringsEveryMaskTo8Bits) {
    const sImage short_pixel = decode(
        TestImages::writeDds(1, 1, {.flags = 0x41, .bits = 16, .masks = {0xF00, 0xF0, 0xF, 0xF000}}, {0x5A, 0x8F}));
    EXPECT_EQ(short_pixel.pixels, (BYTES{255, 85, 170, 136}));
    const sImage no_alpha = decode(
        TestImages::writeDds(1, 1, {.flags = 0x40, .bits = 24, .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF}}, {1, 2, 3}));
    EXPECT_EQ(no_alpha.pixels, (BYTES{3, 2, 1, 255}));
}

TEST(Dds, refusesWhatItCannotRead) {
    EXPECT_THROW(decode(TestImages::writeDds(4, 4, {4, "DX10"}, BYTES(64))), String);
    EXPECT_THROW(decode(TestImages::writeDds(4, 4, {.flags = 0x40, .bits = 8}, BYTES(64))), String);
    BYTES cube = TestImages::writeDds(4, 4, {4, "DXT1"}, BYTES(64));
    cube[113] = 0xFE;
    EXPECT_THROW(decode(cube), String);
    EXPECT_THROW(decode(TestImages::writeDds(8, 8, {4, "DXT5"}, BYTES(63))), String);
}

}  // namespace
}  // namespace Engine
