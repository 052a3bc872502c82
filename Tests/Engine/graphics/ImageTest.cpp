#include "Engine/graphics/image/Image.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdlib>

#include "Tests/Support/TestImages.h"

namespace Engine {
namespace {

using TestImages::BYTES;
using TestImages::eJngAlpha;

sImage decode(const BYTES& file, const String& name) {
    return decodeImage(file.data(), file.size(), name);
}

/// The text of the failure; empty if the file is decoded.
String getFailure(const BYTES& file, const String& name) {
    try {
        decode(file, name);
        return {};
    } catch (const String& text) {
        return text;
    }
}

int getGreatestDifference(const sImage& a, const sImage& b) {
    int res = a.pixels.size() == b.pixels.size() ? 0 : 256;
    for (std::size_t i = 0; res < 256 && i < a.pixels.size(); ++i)
        res = std::max(res, std::abs(a.pixels[i] - b.pixels[i]));
    return res;
}

sImage makeOpaque(sImage image) {
    for (std::size_t i = 3; i < image.pixels.size(); i += 4)
        image.pixels[i] = 255;
    return image;
}

struct sSample {
    String name;
    BYTES file;
    sImage expected;
    int tolerance = 0;  ///< greatest difference of a component
};

/// One file of each format and kind that stores the same picture, of sides that are no multiple of 4.
std::vector<sSample> makeSamples() {
    const sImage image = TestImages::makeGradient(13, 7);
    const sImage opaque = makeOpaque(image);
    return {
        {"a.png", encodePng(image, "a.png"), image},
        {"a.jpg", TestImages::writeJpeg(image), opaque, 12},
        {"progressive.jpg", TestImages::writeJpeg(image, false, true), opaque, 12},
        {"plain.jng", TestImages::writeJng(image, eJngAlpha::none), opaque, 12},
        {"alpha_png.jng", TestImages::writeJng(image, eJngAlpha::png), image, 12},
        {"alpha_jpeg.jng", TestImages::writeJng(image, eJngAlpha::jpeg), image, 12},
        {"a.tga", TestImages::writeTga(image), image},
        {"packed.tga", TestImages::writeTga(image, true), image},
        {"a.bmp", TestImages::writeBmp(image), opaque},
        {"a.dds",
         TestImages::writeDds(13, 7, {.flags = 0x41, .bits = 32, .masks = {0xFF, 0xFF00, 0xFF0000, 0xFF000000}},
                              image.pixels),
         image},
    };
}

TEST(Image, readsThePictureFromEveryFormat) {
    for (const sSample& sample : makeSamples()) {
        SCOPED_TRACE(sample.name);
        const sImage image = decode(sample.file, sample.name);
        EXPECT_EQ(image.width, 13u);
        EXPECT_EQ(image.height, 7u);
        EXPECT_LE(getGreatestDifference(image, sample.expected), sample.tolerance);
        const sImageInfo info = readImageInfo(sample.file.data(), sample.file.size(), sample.name);
        EXPECT_EQ(info.width, 13u);
        EXPECT_EQ(info.height, 7u);
    }
}

TEST(Image, trustsTheContentMoreThanTheName) {
    const sImage image = TestImages::makeGradient(3, 3);
    EXPECT_EQ(decode(encodePng(image, ""), "picture.tga").pixels, image.pixels);
}

// What a loader of textures may meet: fewer bits, a palette with alphas of its own, 16 bits, rows out of order.
TEST(Image, readsEveryKindOfPng) {
    const sImage palette = decode(TestImages::writePng(4, 1, {2, PNG_COLOR_TYPE_PALETTE}, {{0b00011011}}), "");
    EXPECT_EQ(palette.pixels, (BYTES{255, 0, 0, 255, 0, 255, 0, 128, 0, 0, 255, 0, 9, 8, 7, 255}));

    const sImage bits = decode(TestImages::writePng(2, 2, {1, PNG_COLOR_TYPE_GRAY}, {{0x40}, {0x80}}), "");
    EXPECT_EQ(bits.pixels, (BYTES{0, 0, 0, 255, 255, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0, 255}));

    const sImage wide =
        decode(TestImages::writePng(1, 1, {16, PNG_COLOR_TYPE_GRAY_ALPHA, true}, {{0x80, 0x80, 0x40, 0x40}}), "");
    EXPECT_EQ(wide.pixels, (BYTES{0x80, 0x80, 0x80, 0x40}));
}

TEST(Image, namesTheFileOfEveryCutPicture) {
    for (const sSample& sample : makeSamples()) {
        for (std::size_t size = 0; size < sample.file.size(); ++size) {
            // a JPEG is whole without its end marker
            if (size + 2 >= sample.file.size() && sample.name.ends_with(".jpg"))
                continue;
            const BYTES cut(sample.file.begin(), sample.file.begin() + static_cast<std::ptrdiff_t>(size));
            const String failure = getFailure(cut, sample.name);
            ASSERT_TRUE(failure.starts_with("Image \"" + sample.name + "\": ")) << size << ": " << failure;
        }
    }
}

TEST(Image, neverCrashesOverAChangedByte) {
    for (const sSample& sample : makeSamples()) {
        for (std::size_t i = 0; i < sample.file.size(); ++i) {
            BYTES file = sample.file;
            file[i] ^= 0xFF;
            getFailure(file, sample.name);  // what it says depends on the byte
        }
    }
}

TEST(Image, refusesASizeBeforeItAllocates) {
    BYTES png = encodePng(TestImages::makeGradient(2, 2), "");
    TestImages::setPngSize(png, 0x7FFFFFFF, 2);
    EXPECT_NE(getFailure(png, "big.png"), "");
    EXPECT_THROW(readImageInfo(png.data(), png.size(), "big.png"), String);
    EXPECT_EQ(getFailure(TestImages::writeDds(8193, 1, {}, {}), "big.dds"),
              "Image \"big.dds\": a size of 8193 x 1 is not supported.");
    EXPECT_EQ(getFailure(TestImages::writeDds(0, 4, {}, {}), "none.dds"),
              "Image \"none.dds\": a size of 0 x 4 is not supported.");
    EXPECT_NE(getFailure(TestImages::writeTga({8193, 1, BYTES(8193 * 4)}), "big.tga"), "");
    EXPECT_NE(getFailure(TestImages::writeBmp({8193, 1, BYTES(8193 * 4)}), "big.bmp"), "");
}

TEST(Image, refusesAPngThatClaimsMoreThanItHolds) {
    // 8192 x 8192 in a hundred bytes: no stream of that size can unpack to it
    BYTES file = encodePng(TestImages::makeGradient(2, 2), "");
    TestImages::setPngSize(file, 8192, 8192);
    EXPECT_EQ(getFailure(file, "bomb.png"), "Image \"bomb.png\": the file is cut.");
}

TEST(Image, refusesWhatIsNoPicture) {
    EXPECT_EQ(getFailure({}, "empty.png"), "Image \"empty.png\": not a picture of a known format.");
    EXPECT_EQ(getFailure({'<', 'x', 'm', 'l', '>'}, "a.png"), "Image \"a.png\": not a picture of a known format.");
}

TEST(Image, noticesADamagedChunkOfAJng) {
    BYTES file = TestImages::writeJng(TestImages::makeGradient(8, 8), eJngAlpha::png);
    file[file.size() - 40] ^= 1;
    EXPECT_EQ(getFailure(file, "a.jng"), "Image \"a.jng\": a chunk is damaged.");
}

TEST(Image, refusesAJngWhoseStreamsDifferInSize) {
    BYTES color = TestImages::writeJng(TestImages::makeGradient(8, 8), eJngAlpha::none);
    const BYTES other = TestImages::writeJng(TestImages::makeGradient(16, 8), eJngAlpha::none);
    constexpr std::size_t head_end = 8 + 12 + 16;
    std::copy_n(other.begin(), head_end, color.begin());
    EXPECT_EQ(getFailure(color, "a.jng"), "Image \"a.jng\": its streams differ in size.");
}

}  // namespace
}  // namespace Engine
