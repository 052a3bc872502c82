#include <gtest/gtest.h>

#include "Engine/core/FileManager.h"
#include "Engine/core/Settings.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/Texture.h"
#include "Tests/Support/OffscreenDisplay.h"
#include "Tests/Support/TempDirectory.h"

namespace Engine {
namespace {

constexpr UInt red = 0xFFFF0000;
constexpr UInt white = 0xFFFFFFFF;

std::string toText(const std::vector<std::uint8_t>& bytes) {
    return {bytes.begin(), bytes.end()};
}

/// The renderer on a real device: a screen of 64 x 48, its background blue, and a display of 100 x 60.
struct Pixels : testing::Test {
    static void SetUpTestSuite() { gl_window = cOffscreenWindow::create(); }
    static void TearDownTestSuite() { gl_window.reset(); }

    void SetUp() override {
        if (!gl_window)
            GTEST_SKIP() << "no OpenGL here: " << SDL_GetError();
        data.write("sys/constants.xml", "<main><game app_directory=\"test\"/></main>");
        platform = std::make_unique<cOffscreenPlatform>(*gl_window, home.getPath());
        platform->setDisplaySize(100, 60);
        settings.setProperty("graphics", "width", 64);
        settings.setProperty("graphics", "height", 48);
    }

    void start(Bool full_screen = false) {
        settings.setProperty("graphics", "fullscreen", full_screen);
        files = std::make_unique<cFileManager>(data.getPath(), "pack", home.getPath());
        window = platform->createWindow({});
        graphics = std::make_unique<cGraphics>(*platform, *window);
    }

    /// Before start(): a picture in the data directory.
    void writePicture(const String& name, const sImage& image) { data.write(name, toText(encodePng(image, name))); }

    void writePicture(const String& name, UInt width, UInt height, std::initializer_list<UInt> argb) {
        sImage image{width, height, {}};
        for (const UInt color : argb)
            for (const int shift : {16, 8, 0, 24})
                image.pixels.push_back(static_cast<std::uint8_t>(color >> shift));
        writePicture(name, image);
    }

    void draw(cTexture* texture, Float left, Float top, Float right, Float bottom, UInt color = white,
              UInt render_type = 0) {
        iGraphics::sSprite sprite;
        sprite.corners[0] = {left, top, color};
        sprite.corners[1] = {right, top, color};
        sprite.corners[2] = {left, bottom, color};
        sprite.corners[3] = {right, bottom, color};
        graphics->render(sprite, texture, render_type);
    }

    /// Fills the screen.
    void drawBackground(UInt color) { draw(nullptr, 0, 0, 64, 48, color, renderOpaque); }

    void finish() {
        graphics->endRender();
        ASSERT_TRUE(graphics->getDevice().readPicture(picture));
    }

    UInt pixel(UInt x, UInt y) const {
        const std::uint8_t* at = &picture.pixels[(std::size_t{y} * picture.width + x) * 4];
        return UInt{at[3]} << 24 | UInt{at[0]} << 16 | UInt{at[1]} << 8 | at[2];
    }

    UInt countPixels(UInt color) const {
        UInt res = 0;
        for (UInt y = 0; y < picture.height; ++y)
            for (UInt x = 0; x < picture.width; ++x)
                res += pixel(x, y) == color;
        return res;
    }

    static inline std::unique_ptr<cOffscreenWindow> gl_window;
    cTempDirectory data;
    cTempDirectory home;
    std::unique_ptr<cOffscreenPlatform> platform;
    cSettings settings;
    std::unique_ptr<cFileManager> files;
    std::unique_ptr<Platform::iWindow> window;
    std::unique_ptr<cGraphics> graphics;
    sImage picture;
};

TEST_F(Pixels, coverExactlyTheirWholeCoordinates) {
    writePicture("four.png", 2, 2, {red, 0xFF00FF00, 0xFF0000FF, white});
    start();
    cTexture texture("four.png");
    graphics->beginRender();
    draw(&texture, 10, 20, 12, 22);
    finish();
    EXPECT_EQ(picture.width, 64u);
    EXPECT_EQ(pixel(10, 20), red);
    EXPECT_EQ(pixel(11, 20), 0xFF00FF00u);
    EXPECT_EQ(pixel(10, 21), 0xFF0000FFu);
    EXPECT_EQ(pixel(11, 21), white);
    EXPECT_EQ(countPixels(0xFF000000), 64u * 48 - 4);
}

TEST_F(Pixels, blendAsTheirRenderTypeSays) {
    start();
    graphics->beginRender();
    drawBackground(0xFF804020);
    draw(nullptr, 0, 0, 8, 8, 0x80FF0000);                         // half of red over half of what was there
    draw(nullptr, 8, 0, 16, 8, 0x80FF0000, renderOpaque);          // red
    draw(nullptr, 16, 0, 24, 8, 0x00808080, renderMultiply);       // half of what was there
    draw(nullptr, 24, 0, 32, 8, 0xFF000000, renderMultiplyBlend);  // the alpha keeps what was there
    draw(nullptr, 32, 0, 40, 8, 0x00FF0000);                       // nothing to see
    draw(nullptr, 40, 0, 48, 8, 0xA0FF0000, renderAlpha160);       // not above the reference
    draw(nullptr, 48, 0, 56, 8, 0xA1FF0000, renderAlpha160);
    finish();
    EXPECT_EQ(pixel(4, 4), 0xFFC02010u);
    EXPECT_EQ(pixel(12, 4), 0xFFFF0000u);
    EXPECT_EQ(pixel(20, 4), 0xFF804020u) << "a multiplying sprite without alpha passes the alpha test";
    EXPECT_EQ(pixel(28, 4), 0xFF804020u);
    EXPECT_EQ(pixel(36, 4), 0xFF804020u);
    EXPECT_EQ(pixel(44, 4), 0xFF804020u);
    EXPECT_NE(pixel(52, 4), 0xFF804020u);
}

// source x destination + destination x source alpha, where the alpha is above the reference
TEST_F(Pixels, multiply) {
    start();
    graphics->beginRender();
    drawBackground(0xFF804020);
    draw(nullptr, 0, 0, 8, 8, 0x01808080, renderMultiply);
    finish();
    EXPECT_NEAR(static_cast<int>(pixel(4, 4) >> 16 & 0xFF), 0x40, 1);
    EXPECT_NEAR(static_cast<int>(pixel(4, 4) >> 8 & 0xFF), 0x20, 1);
}

// The mask is the left half of a disc's square: its alpha is above 136 only there. What is masked shows there alone.
TEST_F(Pixels, showThroughTheMaskAlone) {
    writePicture("mask.png", 2, 1, {0x89FFFFFF, 0x88FFFFFF});
    start();
    cTexture mask("mask.png");
    graphics->beginRender();
    draw(&mask, 0, 0, 8, 8, 0xFF00FF00, renderMaskWriter);
    draw(nullptr, 0, 0, 64, 48, red, renderMasked);
    draw(nullptr, 0, 40, 8, 48, 0xFF0000FF);  // drawn freely again
    finish();
    EXPECT_EQ(pixel(3, 3), red);
    EXPECT_EQ(pixel(5, 3) >> 8 & 0xFF, 0x88u);  // the writer itself is drawn as usual, whatever its mask
    EXPECT_EQ(countPixels(red), 4u * 8);
    EXPECT_EQ(pixel(4, 44), 0xFF0000FFu);

    graphics->beginRender();  // the mask does not last
    draw(nullptr, 0, 0, 64, 48, red, renderMasked);
    finish();
    EXPECT_EQ(countPixels(red), 0u);
}

TEST_F(Pixels, drawASpriteThroughItsOwnMask) {
    writePicture("mask.png", 2, 1, {0xFFFFFFFF, 0x40FFFFFF});
    start();
    cTexture mask("mask.png");
    graphics->beginRender();
    draw(&mask, 0, 0, 8, 8, white, renderMaskWriter | renderMasked);
    finish();
    EXPECT_EQ(pixel(3, 3), white);
    EXPECT_EQ(pixel(5, 3), 0xFF000000u);
}

TEST_F(Pixels, areFilteredAsTheirRenderTypeSays) {
    writePicture("two.png", 2, 1, {0xFF000000, white});
    start();
    cTexture texture("two.png");
    graphics->beginRender();
    draw(&texture, 0, 0, 16, 8);
    draw(&texture, 0, 10, 16, 18, white, renderLinear);
    draw(&texture, 0, 20, 16, 28, white, renderAnisotropic);
    finish();
    EXPECT_EQ(pixel(7, 4), 0xFF000000u);
    EXPECT_EQ(pixel(8, 4), white);
    for (const UInt y : {14u, 24u}) {
        EXPECT_EQ(pixel(0, y), 0xFF000000u);
        EXPECT_EQ(pixel(15, y), white);
        EXPECT_NEAR(static_cast<int>(pixel(7, y) & 0xFF), 112, 4);
    }
}

TEST_F(Pixels, repeatTheEdgeBeyondTheTexture) {
    writePicture("two.png", 2, 1, {red, white});
    start();
    cTexture texture("two.png");
    graphics->beginRender();
    iGraphics::sSprite sprite;
    sprite.corners[1].x = sprite.corners[3].x = 8.0f;
    sprite.corners[2].y = sprite.corners[3].y = 8.0f;
    sprite.u0 = -1.0f;
    graphics->render(sprite, &texture, 0);
    finish();
    EXPECT_EQ(pixel(0, 4), red);
    EXPECT_EQ(pixel(5, 4), red);
    EXPECT_EQ(pixel(7, 4), white);
}

// More textures than are bound at once, and none, in changing order: each sprite shows its own.
TEST_F(Pixels, keepTheirTexturesWhenTheDrawsAreMerged) {
    constexpr UInt count = 11;
    const auto nameOf = [](UInt i) { return String(std::to_string(i)).append(".png"); };
    for (UInt i = 0; i < count; ++i)
        writePicture(nameOf(i), 1, 1, {0xFF000000 | (i + 1) * 20});
    start();
    std::vector<std::unique_ptr<cTexture>> textures;
    for (UInt i = 0; i < count; ++i)
        textures.push_back(std::make_unique<cTexture>(nameOf(i)));
    graphics->beginRender();
    for (UInt i = 0; i < 64; ++i) {
        const UInt which = i * 7 % (count + 1);
        const Float x = static_cast<Float>(i);
        draw(which < count ? textures[which].get() : nullptr, x, 0, x + 1, 48, white,
             i % 16 == 5 ? UInt{renderMaskWriter} : 0);
    }
    finish();
    for (UInt i = 0; i < 64; ++i) {
        const UInt which = i * 7 % (count + 1);
        EXPECT_EQ(pixel(i, 10), which < count ? (0xFF000000 | (which + 1) * 20) : white) << i;
    }
}

TEST_F(Pixels, appearInTheOrderInWhichTheyWereHandedIn) {
    writePicture("a.png", 1, 1, {red});
    writePicture("b.png", 1, 1, {white});
    start();
    cTexture a("a.png");
    cTexture b("b.png");
    graphics->beginRender();
    draw(&a, 0, 0, 30, 10);
    draw(&b, 10, 0, 40, 10);
    draw(&a, 20, 0, 25, 10);
    finish();
    EXPECT_EQ(pixel(5, 5), red);
    EXPECT_EQ(pixel(15, 5), white);
    EXPECT_EQ(pixel(22, 5), red);
    EXPECT_EQ(pixel(27, 5), white);
}

// 80 x 60 of 100 x 60: bands of 10 on both sides, a scale of 1.25
TEST_F(Pixels, areFittedIntoTheDisplay) {
    start(true);
    graphics->beginRender();
    draw(nullptr, -50, 0, 32, 100, red);
    finish();
    EXPECT_EQ(picture.width, 100u);
    EXPECT_EQ(picture.height, 60u);
    EXPECT_EQ(pixel(9, 30), 0xFF000000u);
    EXPECT_EQ(pixel(10, 30), red);
    EXPECT_EQ(pixel(49, 59), red);
    EXPECT_EQ(pixel(50, 30), 0xFF000000u);
    EXPECT_EQ(countPixels(red), 40u * 60);
}

TEST_F(Pixels, surviveAChangeOfTheDisplayMode) {
    writePicture("a.png", 1, 1, {red});
    start();
    cTexture texture("a.png");
    settings.setProperty("graphics", "fullscreen", true);
    graphics->setResetPending(true);
    graphics->beginRender();
    draw(&texture, 0, 0, 64, 48);
    finish();
    EXPECT_EQ(countPixels(red), 80u * 60);
}

TEST_F(Pixels, areEdgesAloneInWireframe) {
    start();
    graphics->showTriangles(true);
    graphics->beginRender();
    draw(nullptr, 4, 20, 60, 47, red);
    finish();
    EXPECT_GT(countPixels(red), 80u);
    EXPECT_LT(countPixels(red), 400u);
}

TEST_F(Pixels, gridsOfCellsLookLikeOneCell) {
    start();
    UInt sums[2] = {};
    for (const UInt cells : {1u, 16u}) {
        graphics->beginRender();
        iGraphics::sSprite sprite;
        sprite.corners[1].x = sprite.corners[3].x = 32.0f;
        sprite.corners[2].y = sprite.corners[3].y = 32.0f;
        sprite.corners[0].color = sprite.corners[2].color = 0xFF000000;
        sprite.tesselation = cells;
        graphics->render(sprite, nullptr, 0);
        finish();
        for (UInt i = 0; i < 32; ++i)
            sums[cells == 1 ? 0 : 1] += pixel(i, i) & 0xFF;
        EXPECT_NEAR(static_cast<int>(pixel(16, 5) & 0xFF), 131, 2);
    }
    EXPECT_NEAR(static_cast<int>(sums[0]), static_cast<int>(sums[1]), 32);
}

TEST_F(Pixels, areSavedByAScreenshot) {
    platform->setLocalTime({2031, 2, 3, 4, 5, 6});
    start();
    graphics->screenshot();  // nothing drawn yet
    EXPECT_FALSE(home.has("test/screenshots"));
    graphics->beginRender();
    drawBackground(0xFF123456);
    graphics->endRender();
    graphics->screenshot();
    graphics->screenshot();  // within the same second
    const String bytes = home.read("test/screenshots/2031-02-03 04-05-06.png");
    const sImage image = decodeImage(bytes.data(), bytes.size(), "shot.png");
    EXPECT_EQ(image.width, 64u);
    EXPECT_EQ(image.height, 48u);
    EXPECT_EQ(std::vector<std::uint8_t>(image.pixels.begin(), image.pixels.begin() + 4),
              (std::vector<std::uint8_t>{0x12, 0x34, 0x56, 0xFF}));
    EXPECT_TRUE(home.has("test/screenshots/2031-02-03 04-05-06 (2).png"));
}

TEST_F(Pixels, tellAnAdapterAndRefuseATextureThatIsTooLarge) {
    start();
    EXPECT_NE(graphics->getDevice().getDescription(), "");
    const UInt most = graphics->getDevice().getMaxTextureSize();
    EXPECT_GE(most, 2048u);
    EXPECT_THROW(graphics->getResource(most + 1, 1), String);
    EXPECT_THROW(graphics->getResource(0, 1), String);
}

}  // namespace
}  // namespace Engine
