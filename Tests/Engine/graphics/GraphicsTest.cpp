#include "Engine/graphics/Graphics.h"

#include <gtest/gtest.h>

#include "Engine/core/Constants.h"
#include "Engine/core/Settings.h"
#include "Engine/graphics/iMesh.h"
#include "Tests/Support/RecordingDevice.h"
#include "Tests/Support/UnitFiles.h"

namespace Engine {
namespace {

using Platform::eBlend;
using Platform::eDeviceState;
using Platform::eFilter;
using Platform::eStencil;
using Platform::sDrawState;

iGraphics::sSprite makeSprite(Float left, Float top, Float right, Float bottom) {
    iGraphics::sSprite sprite;
    sprite.corners[0] = {left, top};
    sprite.corners[1] = {right, top};
    sprite.corners[2] = {left, bottom};
    sprite.corners[3] = {right, bottom};
    return sprite;
}

/// The settings and constants stand in for the files "sys/settings.xml" and "sys/constants.xml".
class cTestConstants : public cConstants {
public:
    void set(const String& section, const String& name, const WString& value) { enter(section, name) = value; }
};

struct Graphics : testing::Test {
    void start() {
        window = platform.createWindow({});
        graphics = std::make_unique<cGraphics>(platform, *window);
        device = platform.device;
    }

    void startFullScreen() {
        settings.setProperty("graphics", "fullscreen", true);
        start();
    }

    void render(UInt render_type) {
        graphics->render(makeSprite(0, 0, 10, 10), static_cast<cTexture*>(nullptr), render_type);
    }

    /// One frame with one sprite of each type.
    void drawFrame(const std::vector<UInt>& render_types) {
        graphics->beginRender();
        for (const UInt type : render_types)
            render(type);
        graphics->endRender();
    }

    const sDrawState& stateOf(std::size_t draw) { return device->draws.at(draw).state; }

    cRecordingPlatform platform;
    cSettings settings;
    cTestConstants constants;
    std::unique_ptr<Platform::iWindow> window;
    std::unique_ptr<cGraphics> graphics;
    cRecordingDevice* device = nullptr;
};

TEST(ScreenFit, fitsTheScreenIntoTheDisplay) {
    const sScreenFit wide = sScreenFit::make(1920, 1080, 800, 600);
    EXPECT_EQ(wide.scale, Vector2(1.8f, 1.8f));
    EXPECT_EQ(wide.border, Vector2(240.0f, 0.0f));
    const sScreenFit same = sScreenFit::make(1024, 768, 800, 600);
    EXPECT_EQ(same.border, Vector2(0.0f, 0.0f));
    const sScreenFit high = sScreenFit::make(1280, 1024, 800, 600);
    EXPECT_EQ(high.scale, Vector2(1.6f, 1.6f));
    EXPECT_EQ(high.border, Vector2(0.0f, 32.0f));
}

TEST_F(Graphics, drawsNothingOutsideAFrame) {
    start();
    render(0);
    graphics->endRender();
    EXPECT_EQ(device->getCounters().pictures, 0u);
    drawFrame({});
    EXPECT_TRUE(device->draws.empty());
    EXPECT_EQ(device->clear_color, 0xFF000000u);
}

TEST_F(Graphics, showsAFrameWhenTheNextOneBegins) {
    start();
    drawFrame({0});
    EXPECT_EQ(device->getCounters().pictures, 0u);
    graphics->beginRender();
    EXPECT_EQ(device->getCounters().pictures, 1u);
    graphics->beginRender();
    EXPECT_EQ(device->getCounters().pictures, 1u);
}

TEST_F(Graphics, leavesTheFrameClosedWhileTheDeviceIsLost) {
    start();
    drawFrame({0});
    device->state = eDeviceState::lost;
    const UInt before = platform.getMilliseconds();
    drawFrame({0, renderOpaque});
    EXPECT_FALSE(graphics->isFrameOpen());
    EXPECT_EQ(platform.getMilliseconds() - before, 10u);
    EXPECT_EQ(device->draws.size(), 1u);

    device->state = eDeviceState::notReset;
    device->failing_resets = 3;
    const UInt resets = device->resets;
    drawFrame({0, renderOpaque});
    EXPECT_EQ(device->resets - resets, 4u);
    EXPECT_EQ(platform.getMilliseconds() - before, 10u + 3 * 100u);
    EXPECT_EQ(device->draws.size(), 2u);
}

TEST_F(Graphics, changesTheDisplayModeWhenAResetIsPending) {
    start();
    EXPECT_EQ(device->width, 800u);
    settings.setProperty("graphics", "fullscreen", true);
    graphics->setResetPending(true);
    drawFrame({0});
    EXPECT_FALSE(graphics->isResetPending());
    EXPECT_EQ(device->width, 1920u);
    EXPECT_EQ(device->height, 1080u);
    EXPECT_TRUE(graphics->isFullScreen());
}

TEST_F(Graphics, turnsRenderTypesIntoStates) {
    start();
    drawFrame({0, renderMultiply, renderMultiplyBlend, renderOpaque, renderLinear, renderAnisotropic, renderAlpha160});
    EXPECT_EQ(stateOf(0), (sDrawState{}));
    EXPECT_EQ(stateOf(1), (sDrawState{.blend = eBlend::multiply}));
    EXPECT_EQ(stateOf(2), (sDrawState{.blend = eBlend::multiply}));
    EXPECT_EQ(stateOf(3), (sDrawState{.blend = eBlend::none, .alpha_reference = sDrawState::no_alpha_test}));
    EXPECT_EQ(stateOf(4), (sDrawState{.magnify = eFilter::linear, .minify = eFilter::linear}));
    EXPECT_EQ(stateOf(5), (sDrawState{.magnify = eFilter::anisotropic, .minify = eFilter::anisotropic}));
    EXPECT_EQ(stateOf(6), (sDrawState{.alpha_reference = 160}));
}

TEST_F(Graphics, drawsAMaskBeforeWhatWritesIt) {
    start();
    drawFrame({renderMaskWriter, renderMasked, renderMaskWriter | renderMasked});
    ASSERT_EQ(device->draws.size(), 5u);
    const sDrawState mask{.blend = eBlend::keep, .stencil = eStencil::write, .alpha_reference = 136};
    EXPECT_EQ(stateOf(0), mask);
    EXPECT_EQ(stateOf(1), (sDrawState{}));
    EXPECT_EQ(stateOf(2), (sDrawState{.stencil = eStencil::test}));
    EXPECT_EQ(stateOf(3), mask);
    EXPECT_EQ(stateOf(4), (sDrawState{.stencil = eStencil::test}));
}

TEST_F(Graphics, keepsTheAlphaReferenceForWhatIsOnlyMasked) {
    start();
    drawFrame(
        {renderAlpha160, renderMasked, renderMasked | renderAlpha160, renderMaskWriter | renderAlpha160, renderMasked});
    EXPECT_EQ(stateOf(1).alpha_reference, 160);
    EXPECT_EQ(stateOf(2).alpha_reference, 160);
    EXPECT_EQ(stateOf(4).alpha_reference, 0);  // 3 is the mask
    EXPECT_EQ(stateOf(5).alpha_reference, 0);
}

TEST_F(Graphics, smoothsWhatFullScreenScalesUp) {
    startFullScreen();
    drawFrame({0, renderLinear, renderMultiply | renderLinear, renderMultiplyBlend});
    EXPECT_EQ(stateOf(0).magnify, eFilter::anisotropic);
    EXPECT_EQ(stateOf(0).minify, eFilter::point);
    EXPECT_EQ(stateOf(1).magnify, eFilter::anisotropic);
    EXPECT_EQ(stateOf(1).minify, eFilter::linear);
    EXPECT_EQ(stateOf(2).magnify, eFilter::point);
    EXPECT_EQ(stateOf(3).magnify, eFilter::anisotropic);
}

TEST_F(Graphics, leavesUnitsTheirFilterInFullScreen) {
    startFullScreen();
    const std::string bytes = UnitFiles::makeMesh({{}, {}, {}}, {0, 1, 2});
    const std::unique_ptr<iMesh> mesh =
        iMesh::create("man.mesh", reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    const iGraphics::sUnit unit{.mesh = mesh.get(), .world = Matrix(1.0f)};
    graphics->beginRender();
    render(renderLinear);
    graphics->render(unit, renderLinear);
    graphics->endRender();
    EXPECT_EQ(stateOf(0).magnify, eFilter::anisotropic);
    EXPECT_EQ(device->units.at(0).state.magnify, eFilter::linear);
}

TEST_F(Graphics, scalesSpritesAndCoversTheBorderInFullScreen) {
    startFullScreen();
    drawFrame({0});
    ASSERT_EQ(device->draws.size(), 2u);
    EXPECT_FLOAT_EQ(device->vertices[0].x, 240.0f);
    EXPECT_FLOAT_EQ(device->vertices[3].x, 258.0f);
    EXPECT_FLOAT_EQ(device->vertices[3].y, 18.0f);
    EXPECT_EQ(stateOf(1).blend, eBlend::none);
    EXPECT_EQ(device->draws[1].run.triangles, 4u);
    EXPECT_EQ(device->vertices[7].color, 0xFF000000u);
    EXPECT_FLOAT_EQ(device->vertices[7].x, 240.0f);   // the left band's last corner
    EXPECT_FLOAT_EQ(device->vertices[8].x, 1680.0f);  // the right band's first
}

TEST_F(Graphics, mapsBetweenDisplayAndLogicalScreen) {
    startFullScreen();
    Vector2 place;
    graphics->toLogical({240.0f + 180.0f, 90.0f}, place);
    EXPECT_EQ(place, Vector2(100.0f, 50.0f));
    graphics->toLogical({0.0f, 0.0f}, place);  // on the border: not clamped
    EXPECT_LT(place.x, 0.0f);
    graphics->toScreen({100.0f, 50.0f}, place);
    EXPECT_EQ(place, Vector2(420.0f, 90.0f));
    Float rect[4];
    graphics->getWindowRect(rect);
    EXPECT_FLOAT_EQ(rect[2], 1920.0f);

    graphics.reset();
    settings.setProperty("graphics", "fullscreen", false);
    start();
    graphics->toLogical({420.0f, 90.0f}, place);
    EXPECT_EQ(place, Vector2(420.0f, 90.0f));
    graphics->getWindowRect(rect);
    graphics->toScreen({5.0f, 6.0f}, place);
    EXPECT_EQ(place, Vector2(5.0f + rect[0], 6.0f + rect[1]));
}

TEST_F(Graphics, writesAndReadsItsSettings) {
    settings.setProperty("graphics", "width", 1024);
    settings.setProperty("graphics", "height", 768);
    settings.setProperty("graphics", "reserve_sprite_count", 10);
    start();
    EXPECT_EQ(graphics->getWidth(), 1024u);
    EXPECT_EQ(graphics->getHeight(), 768u);
    EXPECT_EQ(graphics->getSpriteCapacity(), 10u);

    settings.setProperty("graphics", "width", 5);
    graphics.reset();
    Int width = 0;
    settings.getProperty("graphics", "width", width);
    EXPECT_EQ(width, 1024);
}

TEST_F(Graphics, ignoresAbsurdSettings) {
    settings.setProperty("graphics", "width", -3);
    settings.setProperty("graphics", "height", 2000000000);
    settings.setProperty("graphics", "reserve_sprite_count", 4000000000u);
    start();
    EXPECT_EQ(graphics->getWidth(), 800u);
    EXPECT_EQ(graphics->getHeight(), 600u);
    EXPECT_EQ(graphics->getSpriteCapacity(), 1024u);
}

TEST_F(Graphics, readsTheLightTables) {
    constants.set("lightConfig", "count", u"2");
    constants.set("lights1", "count", u"1");
    constants.set("lights1", "light_0_type", u"3");
    constants.set("lights1", "light_0_range", u"12.5");
    constants.set("lights0", "count", u"2000000000");
    start();
    const auto& configs = graphics->getParameters().light_configs;
    ASSERT_EQ(configs.size(), 2u);
    EXPECT_TRUE(configs[0].lights.empty());
    ASSERT_EQ(configs[1].lights.size(), 1u);
    EXPECT_EQ(configs[1].lights[0].type, 3);
    EXPECT_FLOAT_EQ(configs[1].lights[0].range, 12.5f);
}

TEST_F(Graphics, countsTrianglesInWireframe) {
    constants.set("graphics", "show_triangles", u"1");
    constants.set("graphics", "back_color", u"0xFF102030");
    start();
    drawFrame({0, renderMaskWriter});
    EXPECT_EQ(device->clear_color, 0xFF000000u);
    EXPECT_TRUE(stateOf(0).wireframe);
    // a sprite, a mask, what writes it, and "Triangles: 6 " with two triangles a letter
    EXPECT_EQ(device->draws.size(), 4u);
    EXPECT_EQ(device->draws.back().run.triangles, 13u * 2);
    graphics->showTriangles(false);
    drawFrame({0});
    EXPECT_EQ(device->clear_color, 0xFF102030u);
}

TEST_F(Graphics, stacksTheLinesOfText) {
    start();
    graphics->textOut(u"lost: no frame is open");
    graphics->beginRender();
    graphics->textOut(u"ab");
    graphics->textOut(u"\u00E4");
    graphics->textOut(WString(100000, u'x'));
    graphics->endRender();
    EXPECT_FLOAT_EQ(device->vertices[4].x, 8.0f);
    EXPECT_FLOAT_EQ(device->vertices[8].y, 16.0f);
    EXPECT_LE(device->vertices.size(), 4 * (4 + cGraphics::max_text_length));
    drawFrame({});
    EXPECT_TRUE(device->draws.empty());
}

}  // namespace
}  // namespace Engine
