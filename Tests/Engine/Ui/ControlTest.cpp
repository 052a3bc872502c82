#include "Engine/Ui/Control.h"

#include <gtest/gtest.h>

#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Tests/Support/HeadlessProgram.h"

namespace Engine {

namespace {

class ControlLook : public ::testing::Test {
protected:
    void start(const std::string& xml) {
        program.write("view.xml", xml);
        program.start();
        control = new cPicture(nullptr);
        loadView(*control, "view.xml");
    }

    cHeadlessProgram program;
    cPicture* control = nullptr;
};

constexpr Float quarter_turn = 1.5707964f;

}  // namespace

TEST_F(ControlLook, readsItsKeysFromAttributesOrChildren) {
    start(
        "<v Visible=\"1\" position=\"100.5,200\" angle=\"90\" color=\"80FF0000\" RenderType=\"0x109\" "
        "anim_columns=\"4\" anim_rows=\"2\" frames_count=\"20\" InverceX=\"true\"><size>30 40</size></v>");
    EXPECT_TRUE(control->isShow());
    EXPECT_FALSE(control->isEnabled());
    EXPECT_EQ(control->getPosition(), Vector2(100.5f, 200.0f));
    EXPECT_EQ(control->getSize(), Vector2(30.0f, 40.0f));
    EXPECT_NEAR(control->getAngle(), quarter_turn, 1e-5f);
    EXPECT_EQ(control->getRenderType(), 0x109u);
    EXPECT_NEAR(control->getAlpha(), 128 / 255.0f, 1e-5f);
    EXPECT_EQ(control->getFramesCount(), 8u);  // no more than there are cells
    EXPECT_FALSE(control->isInverceX());       // only 0 and 1 are truth values
}

TEST_F(ControlLook, makesTheSpriteOfItsFrameTurnedAboutItsCentre) {
    start(
        "<v Visible=\"1\" position=\"100,50\" size=\"40,20\" anim_columns=\"2\" anim_rows=\"2\" frames_count=\"4\"/>");
    control->setAnimFrame(3);
    const auto& sprite = control->getSprite();
    EXPECT_EQ((Vector2{sprite.u0, sprite.v0}), Vector2(0.5f, 0.5f));
    EXPECT_EQ((Vector2{sprite.u1, sprite.v1}), Vector2(1.0f, 1.0f));
    EXPECT_EQ((Vector2{sprite.corners[0].x, sprite.corners[0].y}), Vector2(80.0f, 40.0f));
    EXPECT_EQ((Vector2{sprite.corners[3].x, sprite.corners[3].y}), Vector2(120.0f, 60.0f));
    EXPECT_EQ(sprite.corners[0].color, 0xFFFFFFFFu);

    control->setInverceX(true);
    control->setAngle(quarter_turn);
    const auto& turned = control->getSprite();
    EXPECT_EQ(turned.u0, 1.0f);
    EXPECT_EQ(turned.u1, 0.5f);
    EXPECT_NEAR(turned.corners[0].x, 90.0f, 1e-4f);  // the top left corner has gone to the bottom left
    EXPECT_NEAR(turned.corners[0].y, 70.0f, 1e-4f);
}

TEST_F(ControlLook, takesItsAlphaFromItsOwnColourAndTheFadeOfItsRoot) {
    start("<v Visible=\"1\" Enable=\"1\"/>");
    auto* child = new cPicture(control);
    child->show();
    child->setAlpha(0.5f);
    EXPECT_EQ(child->getSprite().corners[0].color >> 24, 128u);
    control->hideTransparently();
    program.frame();  // 0.02 s at 3.3 units a second
    EXPECT_EQ(child->getSprite().corners[0].color >> 24, static_cast<UInt>(0.934f * 0.5f * 255.0f + 0.5f));
    control->hide();
    control->setAlpha(0.5f);
    EXPECT_EQ(control->getSprite().corners[0].color >> 24, 0u);
    control->show();
    EXPECT_EQ(control->getSprite().corners[0].color >> 24, 128u);
}

TEST_F(ControlLook, countsEachFrameExactlyWhateverTheLength) {
    start("<v anim_columns=\"64\" anim_rows=\"8\" frames_count=\"512\" anim_length=\"0.7\"/>");
    for (UInt frame = 0; frame < control->getFramesCount(); ++frame) {
        control->setAnimFrame(frame);
        ASSERT_EQ(control->getAnimFrame(), frame);
    }
}

TEST_F(ControlLook, wrapsTheTimeOfALoopAndStopsOneThatDoesNotLoop) {
    start(
        "<v Visible=\"1\" Enable=\"1\" PlayAnimation=\"1\" anim_columns=\"4\" frames_count=\"4\" "
        "anim_length=\"0.1\"/>");
    program.frames(7);  // 0.14 s
    EXPECT_EQ(control->getAnimFrame(), 1u);
    control->setAnimTime(-0.03f);
    control->getSprite();
    EXPECT_EQ(control->getAnimFrame(), 2u);
}

TEST_F(ControlLook, stopsAnAnimationThatDoesNotLoopOnItsLastFrame) {
    start("<v Visible=\"1\" Enable=\"1\" PlayAnimation=\"1\" anim_loop=\"0\" anim_columns=\"4\" frames_count=\"4\"/>");
    program.frames(100);  // 2 s of 1
    EXPECT_EQ(control->getAnimFrame(), 3u);
    EXPECT_EQ(control->getAnimTime(), 1.0f);
}

TEST_F(ControlLook, survivesALengthThatNoTimeCanBeCountedIn) {
    start(
        "<v Visible=\"1\" Enable=\"1\" PlayAnimation=\"1\" anim_columns=\"4\" frames_count=\"4\" "
        "anim_length=\"1e-42\"/>");
    program.frames(3);
    EXPECT_LT(control->getAnimFrame(), 4u);
    EXPECT_TRUE(std::isfinite(control->getAnimTime()));
}

TEST_F(ControlLook, blendsTwoFramesWhereAskedTo) {
    start("<v Visible=\"1\" DoubleAnimRender=\"1\" anim_columns=\"4\" frames_count=\"4\" anim_length=\"4\"/>");
    control->setAnimTime(3.75f);
    EXPECT_EQ(control->getSprite().u0, 0.75f);
    EXPECT_EQ(control->getSprite().corners[0].color >> 24, 128u);  // min(1, 2 (1 - 0.75))
    EXPECT_EQ(control->getSecondSprite().u0, 0.0f);                // the loop goes on with its first frame
    EXPECT_EQ(control->getSecondSprite().corners[0].color >> 24, 255u);
}

TEST_F(ControlLook, hitTestTurnsWithItAndOwnsItsBorder) {
    start("<v position=\"100,100\" size=\"40,20\"/>");
    EXPECT_TRUE(control->isPointInside({120.0f, 110.0f}));
    EXPECT_FALSE(control->isPointInside({120.1f, 110.0f}));
    control->setAngle(quarter_turn);
    EXPECT_TRUE(control->isPointInside({100.0f, 119.9f}));
    EXPECT_FALSE(control->isPointInside({119.9f, 100.0f}));
}

TEST_F(ControlLook, carriesItsChildrenAlong) {
    start("<v position=\"10,10\"/>");
    auto* child = new cPicture(control);
    auto* grandchild = new cPicture(child);
    child->setPosition({15.0f, 10.0f});
    grandchild->setPosition({1.0f, 2.0f});
    control->setPosition({20.0f, 30.0f});
    EXPECT_EQ(child->getPosition(), Vector2(25.0f, 30.0f));
    EXPECT_EQ(grandchild->getPosition(), Vector2(11.0f, 22.0f));
}

TEST_F(ControlLook, runsATaskUntilItIsDone) {
    start("<v Visible=\"1\" Enable=\"1\"/>");
    static int calls;
    calls = 0;
    control->addTask([](cControl*) { return ++calls == 1; });
    control->addTask([](cControl*) { return ++calls == 4; });
    program.frames(4);
    EXPECT_EQ(calls, 4);  // once, then three times
}

}  // namespace Engine
