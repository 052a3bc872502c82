#include "Game/GameLogic/ArrangementUnit.h"

#include <gtest/gtest.h>

#include <numbers>

#include "Game/GameLogic/Angles.h"
#include "Game/GameLogic/WayPoint.h"
#include "Tests/Support/WalkingLevel.h"

TEST(ArrangementUnit, eachManStandsOneStepFurtherRoundAndLooksToTheMiddle) {
    cWalkingLevel level;
    level.start();
    const cFriendMan& first = level.addMan(1);
    EXPECT_TRUE(first.isIdle());  // alone he stands where he is
    const cFriendMan& second = level.addMan(1);
    const cFriendMan& third = level.addMan(1);
    ASSERT_TRUE(second.getTask());
    level.frames(100);

    const cWayPoint& point = *level.getMap().getPoint(1).way_point;
    EXPECT_EQ(point.getRing().size(), 3u);
    const Float base = point.getDirection(first.getMovablePosition());
    Float step = point.getDelta();
    for (const cFriendMan* man : {&second, &third}) {
        EXPECT_TRUE(man->isIdle());
        const Float direction = point.getDirection(man->getMovablePosition());
        EXPECT_NEAR(angleDifference(base, direction), step, 0.1f);  // a frame is 0.1 at this ring
        EXPECT_NEAR(angleDifference(man->getMovableYaw() - std::numbers::pi_v<Float>, direction), 0.0f, 0.1f);
        step += point.getDelta();
    }
    EXPECT_EQ(point.getDirection(level.getMap().toScreen(level.getMap().getPoint(1).pos)), 0.0f);
}

TEST(ArrangementUnit, whoIsThereAlreadyGoesOnWithHisWork) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    const auto goal = std::make_shared<cWalkGoal>(1);
    goal->setMan(&man);
    man.setGlobalGoal(goal.get());
    man.arrange();
    EXPECT_EQ(goal->done, 1);
    EXPECT_FALSE(man.getTask());
    EXPECT_EQ(level.getMap().getPoint(1).way_point->getRing().size(), 1u);
}
