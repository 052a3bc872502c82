#include "Engine/core/Timer.h"

#include <gtest/gtest.h>

#include "Engine/platform/headless/HeadlessPlatform.h"

namespace Engine {

namespace {

class Timer : public testing::Test {
protected:
    void frame(cTimer& timer, UInt milliseconds) {
        platform.advance(milliseconds);
        timer.process();
    }

    Platform::cHeadlessPlatform platform{"", ""};
};

}  // namespace

TEST_F(Timer, handsOutTheTimeSinceTheLastFrame) {
    platform.advance(5000);
    cTimer timer(platform);
    EXPECT_FLOAT_EQ(timer.getStep(), 0.004f);  // before the first frame
    frame(timer, 20);
    EXPECT_FLOAT_EQ(timer.getStep(), 0.02f);
    timer.setScale(2.0f);
    frame(timer, 30);
    EXPECT_FLOAT_EQ(timer.getStep(), 0.06f);
    EXPECT_FLOAT_EQ(timer.getRealStep(), 0.03f);
    timer.setScale(0.0f);
    frame(timer, 10);
    EXPECT_FLOAT_EQ(timer.getStep(), 0.0f);
    EXPECT_FLOAT_EQ(timer.getRealStep(), 0.01f);
    EXPECT_FLOAT_EQ(timer.getTime(), 0.06f);
}

TEST_F(Timer, makesNoStepOfALoad) {
    cTimer timer(platform);
    frame(timer, 20);
    platform.advance(3000);
    timer.reset();
    EXPECT_EQ(timer.getStep(), 0.0f);
    frame(timer, 40);
    EXPECT_EQ(timer.getStep(), 0.0f);
    frame(timer, 16);
    EXPECT_FLOAT_EQ(timer.getStep(), 0.016f);
    EXPECT_FLOAT_EQ(timer.getTime(), 3.076f);
}

TEST_F(Timer, slowsDownRatherThanJumps) {
    cTimer timer(platform);
    timer.setScale(0.5f);
    frame(timer, 1000);
    EXPECT_FLOAT_EQ(timer.getStep(), 0.5f / 15.0f);
    EXPECT_FLOAT_EQ(timer.getTime(), 1.0f);
    timer.setMinFps(4.0f);
    timer.setMinFps(0.0f);  // is no rate
    frame(timer, 1000);
    EXPECT_FLOAT_EQ(timer.getRealStep(), 0.25f);
}

TEST_F(Timer, waitsWhereNoTimeHasPassed) {
    cTimer timer(platform);
    frame(timer, 0);
    EXPECT_FLOAT_EQ(timer.getStep(), 0.001f);  // slept
    frame(timer, 1);
    EXPECT_FLOAT_EQ(timer.getTime(), 0.002f);  // did not
}

TEST_F(Timer, goesOnOverTheClocksWrap) {
    platform.advance(0xFFFFFFF0u);
    cTimer timer(platform);
    frame(timer, 0x20);
    EXPECT_FLOAT_EQ(timer.getStep(), 0.032f);
}

TEST_F(Timer, tellsTheFrameRateAfterTenFrames) {
    cTimer timer(platform);
    for (Int i = 0; i < 9; ++i)
        frame(timer, 25);
    EXPECT_EQ(timer.getFps(), 0.0f);
    for (Int i = 0; i < 11; ++i)
        frame(timer, 25);
    EXPECT_FLOAT_EQ(timer.getFps(), 40.0f);
    EXPECT_THROW(cTimer{platform}, const char*);  // there is one
}

}  // namespace Engine
