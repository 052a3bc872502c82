#include "Engine/graphics/Texture.h"

#include <gtest/gtest.h>

#include "Engine/core/FileManager.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/graphics/Graphics.h"
#include "Tests/Support/RecordingDevice.h"
#include "Tests/Support/TempDirectory.h"
#include "Tests/Support/TestImages.h"

namespace Engine {
namespace {

struct Texture : testing::Test {
    Texture() {
        data.write("sys/constants.xml", "<main><game app_directory=\"test\"/></main>");
        const TestImages::BYTES png = encodePng(TestImages::makeGradient(20, 10), "");
        data.write("ui/a.png", {png.begin(), png.end()});
        data.write("cut.png", {png.begin(), png.begin() + 40});
        files = std::make_unique<cFileManager>(data.getPath(), "pack", home.getPath());
        window = platform.createWindow({});
        graphics = std::make_unique<cGraphics>(platform, *window);
        textures = platform.device->getTextureCount();
    }

    cTempDirectory data;
    cTempDirectory home;
    cRecordingPlatform platform;
    std::unique_ptr<cFileManager> files;
    cResourceManager resources;
    std::unique_ptr<Platform::iWindow> window;
    std::unique_ptr<cGraphics> graphics;
    UInt textures = 0;  ///< the renderer's own
};

TEST_F(Texture, knowsItsPictureAndItsSurface) {
    const cTexture texture("ui/a.png");
    EXPECT_EQ(texture.getWidth(), 20u);
    EXPECT_EQ(texture.getSurfaceHeight(), 10u);
    EXPECT_FLOAT_EQ(texture.getUScale(), 1.0f);
    EXPECT_FLOAT_EQ(texture.getHalfTexelU(), 0.025f);
    EXPECT_FLOAT_EQ(texture.getHalfTexelV(), 0.05f);
}

TEST_F(Texture, readsItsFileAgain) {
    cTexture texture("ui/a.png");
    const TestImages::BYTES png = encodePng(TestImages::makeGradient(6, 4), "");
    data.write("ui/a.png", {png.begin(), png.end()});
    texture.preUpdate();
    EXPECT_EQ(texture.getHandle(), 0u);
    texture.update();
    EXPECT_EQ(texture.getWidth(), 6u);
    EXPECT_EQ(platform.device->getTextureCount(), textures + 1);
}

TEST_F(Texture, leavesNothingBehindWhenItsFileIsBroken) {
    EXPECT_THROW(cTexture("no.png"), String);
    EXPECT_NO_THROW(cTexture("cut.png"));  // only counted here: the size alone is read
    { const cTexture texture("ui/a.png"); }
    EXPECT_EQ(platform.device->getTextureCount(), textures);
}

TEST_F(Texture, mayOutliveTheRenderer) {
    const cTexture texture("ui/a.png");
    graphics.reset();
}

TEST_F(Texture, isTakenByNameAndGivenBack) {
    graphics->beginRender();
    iGraphics::sSprite sprite;
    sprite.corners[1].x = 1.0f;
    graphics->render(sprite, "UI/a.png", true);
    graphics->render(sprite, "", false);
    graphics->endRender();
    ASSERT_EQ(platform.device->draws.size(), 2u);
    EXPECT_NE(platform.device->draws[0].run.texture, 0u);
    EXPECT_EQ(platform.device->draws[0].state.blend, Platform::eBlend::multiply);
    EXPECT_EQ(platform.device->draws[1].run.texture, 0u);
    EXPECT_TRUE(resources.getTexture("ui/a.png")->release()) << "render() kept a reference";
}

TEST_F(Texture, hasAMaskWhereItCanBeSeen) {
    sImage image{2, 3, std::vector<std::uint8_t>(2 * 3 * 4, 0)};
    image.pixels[(1 * 2 + 0) * 4 + 3] = 1;
    image.pixels[(2 * 2 + 1) * 4 + 3] = 255;
    const TestImages::BYTES png = encodePng(image, "");
    data.write("ui/a.png", {png.begin(), png.end()});
    VECTOR_VECTOR_BOOL mask;
    graphics->getMask("ui/a.png", mask);
    EXPECT_EQ(mask, (VECTOR_VECTOR_BOOL{{false, true, false}, {false, false, true}}));
    EXPECT_THROW(graphics->getMask("cut.png", mask), String);
}

}  // namespace
}  // namespace Engine
