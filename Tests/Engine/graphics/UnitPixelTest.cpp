#include <gtest/gtest.h>

#include <glm/gtc/matrix_transform.hpp>

#include "Engine/core/Constants.h"
#include "Engine/core/Settings.h"
#include "Engine/graphics/Animation.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/iMesh.h"
#include "Tests/Support/OffscreenDisplay.h"
#include "Tests/Support/UnitFiles.h"

namespace Engine {
namespace {

constexpr UInt side = 64;  ///< of the screen

class cLightConstants : public cConstants {
public:
    void set(const String& section, const String& name, const WString& value) { enter(section, name) = value; }
};

/// A square of 20 units about the origin, its corners clockwise as seen from above.
std::string makeSquare(const std::vector<Matrix>& bones = {}, Float z = 0.0f, Vector3 normal = {0, 0, 1}) {
    return UnitFiles::makeMesh(
        {{{-10, -10, z}, normal}, {{10, -10, z}, normal}, {{10, 10, z}, normal}, {{-10, 10, z}, normal}},
        {0, 1, 2, 0, 2, 3}, bones);
}

/// Units drawn by the real device on a screen of 64 x 64, its background black.
struct UnitPixels : testing::Test {
    static void SetUpTestSuite() { gl_window = cOffscreenWindow::create(); }
    static void TearDownTestSuite() { gl_window.reset(); }

    void SetUp() override {
        if (!gl_window)
            GTEST_SKIP() << "no OpenGL here: " << SDL_GetError();
        settings.setProperty("graphics", "width", static_cast<Int>(side));
        settings.setProperty("graphics", "height", static_cast<Int>(side));
        constants.set("lightConfig", "count", u"1");
        constants.set("lights0", "count", u"1");
        platform = std::make_unique<cOffscreenPlatform>(*gl_window);
    }

    void start() {
        window = platform->createWindow({});
        graphics = std::make_unique<cGraphics>(*platform, *window);
    }

    iGraphics::sUnit makeUnit(const std::string& mesh_bytes, UInt color) {
        meshes.push_back(
            iMesh::create("unit.mesh", reinterpret_cast<const std::uint8_t*>(mesh_bytes.data()), mesh_bytes.size()));
        const auto part = [color](int shift) { return static_cast<Float>(color >> shift & 0xFF) / 255.0f; };
        iGraphics::sUnit unit{.mesh = meshes.back().get()};
        unit.material.diffuse = {part(16), part(8), part(0), part(24)};
        unit.material.emissive = {0, 0, 0, 0};
        unit.world = glm::translate(Matrix(1.0f), Vector3(32.0f, 32.0f, 0.0f));
        return unit;
    }

    void draw(const std::vector<iGraphics::sUnit>& units, const std::vector<UInt>& render_types = {}) {
        graphics->beginRender();
        for (std::size_t i = 0; i < units.size(); ++i)
            graphics->render(units[i], i < render_types.size() ? render_types[i] : 0);
        graphics->endRender();
        ASSERT_TRUE(graphics->getDevice().readPicture(picture));
    }

    UInt pixel(UInt x, UInt y) const {
        const std::uint8_t* at = &picture.pixels[(std::size_t{y} * picture.width + x) * 4];
        return UInt{at[0]} << 16 | UInt{at[1]} << 8 | at[2];
    }
    UInt middle() const { return pixel(32, 32); }

    static std::unique_ptr<cOffscreenWindow> gl_window;
    cSettings settings;
    cLightConstants constants;
    std::unique_ptr<cOffscreenPlatform> platform;
    std::unique_ptr<Platform::iWindow> window;
    std::unique_ptr<cGraphics> graphics;
    std::vector<std::unique_ptr<iMesh>> meshes;
    sImage picture;
};

std::unique_ptr<cOffscreenWindow> UnitPixels::gl_window;

TEST_F(UnitPixels, coverTheirPlaceAndAreSeenFromOneSide) {
    start();
    iGraphics::sUnit unit = makeUnit(makeSquare(), 0xFFFF0000);
    draw({unit});
    EXPECT_EQ(pixel(22, 41), 0xFF0000u);
    EXPECT_EQ(pixel(41, 22), 0xFF0000u);
    EXPECT_EQ(pixel(21, 32), 0u);
    EXPECT_EQ(pixel(32, 42), 0u);
    unit.world = glm::rotate(unit.world, glm::radians(180.0f), Vector3(1.0f, 0.0f, 0.0f));
    draw({unit});
    EXPECT_EQ(middle(), 0u);
}

// 64 x 64 fitted into 200 x 60: 1.25 times as wide, 60 pixels from the left.
TEST_F(UnitPixels, areFittedIntoAFullScreenAsSpritesAre) {
    settings.setProperty("graphics", "fullscreen", true);
    platform->setDisplaySize(200, 60);
    start();
    draw({makeUnit(makeSquare(), 0xFFFF0000)});
    EXPECT_EQ(pixel(88, 30), 0xFF0000u);
    EXPECT_EQ(pixel(86, 30), 0u);
    EXPECT_EQ(pixel(111, 30), 0xFF0000u);
    EXPECT_EQ(pixel(113, 30), 0u);
}

// Two squares in one unit: the lower one comes last and must stay below. Two units: the later covers the earlier.
TEST_F(UnitPixels, haveDepthInsideABodyAndOrderBetweenBodies) {
    start();
    const iGraphics::sUnit high = makeUnit(makeSquare({}, 5.0f), 0xFFFF0000);
    iGraphics::sUnit low = makeUnit(makeSquare({}, -5.0f), 0xFF00FF00);
    draw({high, low});
    EXPECT_EQ(middle(), 0xFF0000u);  // one body
    low.world = glm::translate(low.world, Vector3(1.0f, 0.0f, 0.0f));
    draw({high, low});
    EXPECT_EQ(middle(), 0x00FF00u);
}

TEST_F(UnitPixels, areTheSameWithBonesInTheirOwnPose) {
    start();
    const std::vector<Matrix> bones{glm::translate(Matrix(1.0f), Vector3(3.0f, 4.0f, 5.0f)), Matrix(1.0f)};
    const std::string pose =
        UnitFiles::makeAnimation(1.0f, {{UnitFiles::no_parent, {{bones[0], 0.0f}, {bones[0], 1.0f}}}});
    cAnimation animation("pose.anim", reinterpret_cast<const std::uint8_t*>(pose.data()), pose.size());
    iGraphics::sUnit still = makeUnit(makeSquare(), 0xFF4080C0);
    iGraphics::sUnit skinned = makeUnit(makeSquare(bones), 0xFF4080C0);
    skinned.animation = &animation;
    draw({still});
    const std::vector<std::uint8_t> expected = picture.pixels;
    EXPECT_EQ(middle(), 0x4080C0u);
    draw({skinned});
    EXPECT_EQ(picture.pixels, expected);
}

TEST_F(UnitPixels, drawThroughTheMaskThatTheyWrite) {
    start();
    iGraphics::sUnit writer = makeUnit(makeSquare(), 0xFF0000FF);
    iGraphics::sUnit masked = makeUnit(makeSquare(), 0xFFFF0000);
    masked.world = glm::translate(masked.world, Vector3(10.0f, 0.0f, 0.0f));
    draw({writer, masked}, {renderMaskWriter, renderMasked});
    EXPECT_EQ(pixel(25, 32), 0x0000FFu);
    EXPECT_EQ(pixel(37, 32), 0xFF0000u);
    EXPECT_EQ(pixel(47, 32), 0u);  // outside the mask
}

TEST_F(UnitPixels, areLitBySunsByTheirAngle) {
    constants.set("lights0", "ambient", u"FF202020");
    constants.set("lights0", "light_0_type", u"3");
    constants.set("lights0", "light_0_direction", u"0,0,-4");
    constants.set("lights0", "light_0_diffuse", u"FF808080");
    start();
    iGraphics::sUnit unit = makeUnit(makeSquare(), 0xFFFFFFFF);
    unit.lighting = true;
    draw({unit});
    EXPECT_EQ(middle(), 0xA0A0A0u);  // from straight above
    iGraphics::sUnit leaning = makeUnit(makeSquare({}, 0.0f, {std::sqrt(0.75f), 0.0f, 0.5f}), 0xFFFFFFFF);
    leaning.lighting = true;
    draw({leaning});
    EXPECT_EQ(middle(), 0x606060u);  // cos 60 degrees
    iGraphics::sUnit averted = makeUnit(makeSquare({}, 0.0f, {0.0f, 0.0f, -1.0f}), 0xFFFFFFFF);
    averted.lighting = true;
    averted.material.emissive = {0.0f, 1.0f, 0.0f, 0.0f};
    draw({averted});
    EXPECT_EQ(middle(), 0x20FF20u);
    unit.light_table = 1;  // there is none: its own colour
    draw({unit});
    EXPECT_EQ(middle(), 0xFFFFFFu);
}

// A lamp 10 above the middle with 1 / (0.2 d) of its light at the distance d, first all around, then in a cone of 60
// degrees (10 x tan 30 is 5.8 units), then with a range that ends before it.
TEST_F(UnitPixels, areLitByLampsByDistanceAndCone) {
    for (const auto& [name, value] : std::initializer_list<std::pair<const char*, WString>>{{"type", u"1"},
                                                                                            {"position", u"32,32,10"},
                                                                                            {"direction", u"0,0,-1"},
                                                                                            {"diffuse", u"FFFFFFFF"},
                                                                                            {"range", u"50"},
                                                                                            {"attenuation1", u"0.2"},
                                                                                            {"theta", u"1.0471976"},
                                                                                            {"phi", u"1.0471976"}})
        constants.set("lights0", String("light_0_") + name, value);
    const auto brightness = [this](Float x) {
        iGraphics::sUnit unit = makeUnit(makeSquare(), 0xFFFFFFFF);
        unit.lighting = true;
        unit.world = glm::scale(glm::translate(Matrix(1.0f), Vector3(32.0f + x, 32.0f, 0.0f)), Vector3(0.1f));
        draw({unit});
        return pixel(static_cast<UInt>(32.0f + x), 32) & 0xFF;
    };
    start();
    EXPECT_NEAR(brightness(0), 127, 4);
    EXPECT_NEAR(brightness(10), 64, 4);  // cos 45 degrees / (0.2 x 14.1)
    constants.set("lights0", "light_0_type", u"2");
    graphics->getGraphicsParameters();
    EXPECT_NEAR(brightness(0), 127, 4);
    EXPECT_EQ(brightness(10), 0u);
    constants.set("lights0", "light_0_range", u"9");
    graphics->getGraphicsParameters();
    EXPECT_EQ(brightness(0), 0u);
}

}  // namespace
}  // namespace Engine
