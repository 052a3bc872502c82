#include <gtest/gtest.h>

#include <glm/gtc/matrix_transform.hpp>

#include "Engine/Ui/Picture.h"
#include "Engine/graphics/Animation.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/iMesh.h"
#include "Tests/Support/HeadlessProgram.h"
#include "Tests/Support/RecordingDevice.h"
#include "Tests/Support/UnitFiles.h"

namespace Engine {
namespace {

using Platform::eStencil;
using UnitFiles::no_parent;

Matrix shift(Float x) {
    return glm::translate(Matrix(1.0f), Vector3(x, 0.0f, 0.0f));
}

void expectNear(Vector3 a, Vector3 b) {
    EXPECT_NEAR(glm::distance(a, b), 0.0f, 1e-4f) << a.x << ' ' << a.y << ' ' << a.z;
}

std::unique_ptr<iMesh> makeMesh(const std::vector<Matrix>& bones) {
    const std::string bytes = UnitFiles::makeMesh({{}, {}, {}}, {0, 1, 2}, bones);
    return iMesh::create("man.mesh", reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

/// A bone that stays so far to the right.
std::unique_ptr<cAnimation> makeAnimation(Float x) {
    const std::string bytes = UnitFiles::makeAnimation(1.0f, {{no_parent, {{shift(x), 0.0f}, {shift(x), 1.0f}}}});
    return std::make_unique<cAnimation>("man.anim", reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

/// The renderer on a device that writes down what it gets.
struct Units : testing::Test {
    void draw(const std::vector<const iGraphics::sUnit*>& units, UInt render_type = 0) {
        graphics.beginRender();
        for (const iGraphics::sUnit* unit : units)
            graphics.render(*unit, render_type);
        graphics.endRender();
    }

    Float seenAt(std::size_t draw, std::size_t bone = 0) { return device.units.at(draw).world.at(bone)[3].x; }

    cRecordingPlatform platform;
    std::unique_ptr<Platform::iWindow> window = platform.createWindow({});
    cGraphics graphics{platform, *window};
    cRecordingDevice& device = *platform.device;
    std::unique_ptr<iMesh> mesh = makeMesh({Matrix(1.0f), Matrix(1.0f)});
    std::unique_ptr<cAnimation> animation = makeAnimation(10.0f);
};

TEST_F(Units, standWhereTheirBonesAre) {
    iGraphics::sUnit unit{.mesh = mesh.get(), .world = shift(100)};
    draw({&unit});
    ASSERT_EQ(device.units.size(), 1u);
    EXPECT_EQ(device.units[0].world, std::vector<Matrix>{shift(100)});

    unit.animation = animation.get();
    draw({&unit});
    ASSERT_EQ(device.units[0].world.size(), 2u);
    EXPECT_EQ(seenAt(0, 0), 110.0f);
    EXPECT_EQ(seenAt(0, 1), 100.0f);  // the animation knows one bone alone
    EXPECT_EQ(device.units[0].draw.lights, nullptr);
}

TEST_F(Units, areMixedWithTheSavedPoseButNotInTheirMask) {
    iGraphics::sUnit unit{.mesh = mesh.get(), .animation = animation.get()};
    unit.saved_matrices = {shift(50)};
    unit.blend = 0.75f;
    draw({&unit}, renderMaskWriter | renderMasked);
    ASSERT_EQ(device.units.size(), 2u);
    EXPECT_EQ(device.units[0].state.stencil, eStencil::write);
    EXPECT_EQ(seenAt(0), 10.0f);
    EXPECT_EQ(device.units[1].state.stencil, eStencil::test);
    EXPECT_EQ(seenAt(1), 40.0f);
}

TEST_F(Units, shareDepthOnlyWithWhatStandsAtTheSamePlace) {
    const iGraphics::sUnit man{.mesh = mesh.get(), .world = shift(1)};
    const iGraphics::sUnit tool{.mesh = mesh.get(), .world = shift(1)};
    const iGraphics::sUnit other{.mesh = mesh.get(), .world = shift(2)};
    draw({&man, &tool, &other});
    EXPECT_FALSE(device.units[0].draw.same_body);
    EXPECT_TRUE(device.units[1].draw.same_body);
    EXPECT_FALSE(device.units[2].draw.same_body);
    draw({&other});
    EXPECT_FALSE(device.units[0].draw.same_body);  // a new frame
}

TEST_F(Units, giveTheirBuffersBack) {
    EXPECT_EQ(device.getBufferCount(), 2u);
    mesh->update();
    EXPECT_EQ(device.getBufferCount(), 2u);
    mesh->preUpdate();
    EXPECT_EQ(device.getBufferCount(), 0u);
    EXPECT_EQ(mesh->getVertexCount(), 3u);
    mesh->update();
    mesh.reset();
    EXPECT_EQ(device.getBufferCount(), 0u);
}

/// A control in the running engine. Meshes and animations are the test's own.
struct UnitControl : testing::Test {
    UnitControl() {
        program.start();
        mesh = makeMesh({Matrix(1.0f)});
        control = std::make_unique<cPicture>(nullptr);
        control->setMesh(mesh.get());
        control->setAnimation(near.get());
        control->show();
        control->enable();
    }
    ~UnitControl() override {
        control.reset();
        mesh.reset();  // before its device
        program.stop();
    }

    Vector3 toScreen(Vector3 point) { return control->getUnit().world * glm::vec4(point, 1.0f); }

    cHeadlessProgram program;
    std::unique_ptr<iMesh> mesh;
    std::unique_ptr<cAnimation> near = makeAnimation(1.0f);
    std::unique_ptr<cAnimation> far = makeAnimation(5.0f);
    std::unique_ptr<cPicture> control;
};

TEST_F(UnitControl, standsUprightUnderThePitch) {
    control->setPosition({100.0f, 200.0f});
    control->setScale({2.0f, 2.0f, 2.0f});
    expectNear(toScreen({0, 1, 0}), {100, 202, 0});  // from above its front is below
    control->setPitch(glm::radians(90.0f));
    expectNear(toScreen({0, 0, 1}), {100, 198, 0});
    expectNear(toScreen({0, 1, 0}), {100, 200, 2});
    control->setPitch(0.0f);
    control->setAngle(glm::radians(90.0f));  // looks left: along (cos, sin) of 180 degrees
    expectNear(toScreen({0, 1, 0}), {98, 200, 0});
    control->setAngle(0.0f);
    control->setYaw(glm::radians(90.0f));
    expectNear(toScreen({0, 0, 1}), {102, 200, 0});
}

TEST_F(UnitControl, isDrawnAndFadesWithItsRoot) {
    control->setColor({1, 1, 1, 0.5f});
    program.frame();
    auto& device = static_cast<Platform::cHeadlessGraphicsDevice&>(cGraphics::getInstance()->getDevice());
    EXPECT_EQ(device.getCounters().units, 1u);
    control->hideTransparently();
    program.frame();
    EXPECT_NEAR(control->getUnit().material.diffuse.a, 0.5f * control->getTransparency(), 1e-6f);
    EXPECT_LT(control->getTransparency(), 1.0f);
}

TEST_F(UnitControl, glidesFromOnePoseIntoTheNext) {
    control->setAnimBlendTime(0.1f);
    control->setAnimation(far.get());  // not asked for: at once
    EXPECT_EQ(control->getUnit().blend, 0.0f);

    control->setIsAniblend(true);
    control->setAnimation(near.get());
    EXPECT_EQ(control->getUnit().blend, 1.0f);
    ASSERT_EQ(control->getUnit().saved_matrices.size(), 1u);
    EXPECT_EQ(control->getUnit().saved_matrices[0][3].x, 5.0f);
    program.frame();
    EXPECT_NEAR(control->getUnit().blend, 0.8f, 1e-5f);
    program.frames(5);
    EXPECT_EQ(control->getUnit().blend, 0.0f);

    control->setAnimation(far.get());
    control->setMesh(nullptr);
    EXPECT_EQ(control->getAniblendRest(), 0.0f);
    control->setMesh(mesh.get());
    control->hide();
    control->setAnimation(near.get());
    EXPECT_EQ(control->getAniblendRest(), 0.0f);
}

}  // namespace
}  // namespace Engine
