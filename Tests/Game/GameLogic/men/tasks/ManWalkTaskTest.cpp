#include "Game/GameLogic/men/tasks/ManWalkTask.h"

#include <gtest/gtest.h>

#include "Tests/Support/WalkingLevel.h"

namespace {

constexpr Float frame_way = 1.0f;  ///< on roads, units
/// One frame may also bring him from the ring to the line that begins there.
constexpr Float jump = 2.0f * frame_way;

const char warehouse[] = "<B Type=\"9\" Position=\"300,300\"><Points><P index=\"2\"/></Points></B>";

}  // namespace

TEST(ManWalkTask, goesArcByArcToTheNearSideOfEachPoint) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);  // he stands on the right, towards 2
    const auto goal = level.send(man, 3);
    ASSERT_TRUE(man.isWalking());
    EXPECT_EQ(man.getWalkTask()->getPath(), (PATH_HOLDER{1, 2, 3}));
    EXPECT_EQ(man.getPointAimedFor(), 3);

    while (man.getPoint() == 1)
        level.frames(1);
    EXPECT_NEAR(man.getMovablePosition().x, 290.0f, frame_way);
    Float longest_step = 0.0f;
    const UInt count = level.playUntilDone(man, *goal, longest_step);
    EXPECT_LT(longest_step, jump);
    EXPECT_NEAR(goal->done_at.x, 390.0f, frame_way);
    // From 290 half round the ring to 310 as fast as on roads, then 80 at half that speed.
    EXPECT_NEAR(static_cast<Float>(count), 10.0f * 3.1416f / frame_way + 80.0f / (0.5f * frame_way), 4.0f);
    EXPECT_EQ(man.getPointAimedFor(), 2);  // out there he does not stay
}

TEST(ManWalkTask, isSlowerWithALoadAndFasterAfterSwaps) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    EXPECT_FLOAT_EQ(man.getMovingSpeed(1, 2), 50.0f);
    EXPECT_FLOAT_EQ(man.getMovingSpeed(2, 1), 50.0f);
    EXPECT_FLOAT_EQ(man.getMovingSpeed(2, 3), 25.0f);
    EXPECT_FLOAT_EQ(man.getMovingSpeed(3, 3), 50.0f);
    sResourceCargo money;
    money[resourceMoney] = 3;
    man.setCargo(money);
    man.setSpeedFactor(2.0f);
    EXPECT_FLOAT_EQ(man.getMovingSpeed(2, 3), 25.0f * 0.8f * 2.0f);
}

TEST(ManWalkTask, toWhereHeStandsEndsAtOnceAndHeStaysInTheRing) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    const auto goal = level.send(man, 1);
    const Vector2 place = man.getMovablePosition();
    level.frames(1);
    EXPECT_EQ(goal->done, 1);
    EXPECT_EQ(man.getMovablePosition(), place);
    EXPECT_TRUE(man.isIdle());
}

TEST(ManWalkTask, turnsBackWhenAFenceComesUpBeforeHim) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    const auto goal = level.send(man, 3);
    level.frames(50);
    ASSERT_EQ(man.getWalkTask()->getDst(), 2);
    level.getMap().setArcType(1, 2, ARC_PLAYER_FENCE);
    level.getMap().generateConnectionMap();
    level.getMap().onFenceBuilt();
    EXPECT_EQ(man.getWalkTask()->getPath(), (PATH_HOLDER{-1, 1, 4, 2, 3}));
    EXPECT_EQ(man.getWalkTask()->getDst(), 1);
    level.frames(1);
    level.getMap().onFenceBuilt();  // another one elsewhere changes nothing
    EXPECT_EQ(man.getWalkTask()->getPath(), (PATH_HOLDER{-1, 1, 4, 2, 3}));

    Float longest_step = 0.0f;
    level.playUntilDone(man, *goal, longest_step);
    EXPECT_LT(longest_step, jump);
    EXPECT_NEAR(goal->done_at.x, 390.0f, frame_way);
}

TEST(ManWalkTask, stillOnTheRingTakesTheNewWayFromThere) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(2);  // on the right, away from 1
    const auto goal = level.send(man, 0);
    level.frames(3);
    ASSERT_TRUE(man.getWalkTask()->isOnEllipse());
    level.getMap().setArcType(1, 2, ARC_PLAYER_FENCE);
    level.getMap().onFenceBuilt();
    EXPECT_EQ(man.getWalkTask()->getPath(), (PATH_HOLDER{2, 4, 1, 0}));
    Float longest_step = 0.0f;
    level.playUntilDone(man, *goal, longest_step);
    EXPECT_LT(longest_step, jump);
    EXPECT_NEAR(goal->done_at.x, 120.0f, frame_way);
}

TEST(ManWalkTask, withoutAnyWayLeftTheWholeTransactionIsCalledOff) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    const auto goal = level.send(man, 3);
    goal->setTransactionId(7);
    const auto waiting = level.addGoal(0, 7);
    waiting->waits = true;
    level.frames(20);
    level.getMap().setArcType(2, 3, ARC_ENEMY_FENCE);
    level.getMap().onFenceBuilt();
    EXPECT_TRUE(goal->isCancelled());
    level.frames(2);
    EXPECT_EQ(goal->cancelled, 1);
    EXPECT_EQ(goal->done, 0);
    EXPECT_EQ(waiting->cancelled, 1);
    EXPECT_TRUE(man.isFree());
}

TEST(ManWalkTask, aKickDrivesHimAwayFromThePointerButNotBehindHisStart) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    level.send(man, 2);
    level.frames(30);
    cManWalkTask& task = *man.getWalkTask();
    const Vector2 place = man.getMovablePosition();
    const Float left = task.getTimeLeft();
    task.jump(place + Vector2(30.0f, 5.0f));  // ahead of him, but he has come less than a kick
    EXPECT_EQ(man.getMovablePosition(), place);
    task.jump(place - Vector2(30.0f, 5.0f));  // from behind
    EXPECT_NEAR(man.getMovablePosition().x, place.x + man.getKickDelta(), 0.01f);
    EXPECT_NEAR(task.getTimeLeft(), left - man.getKickDelta() / 50.0f, 0.001f);
    task.jump(man.getMovablePosition() + Vector2(30.0f, 5.0f));
    EXPECT_NEAR(man.getMovablePosition().x, place.x, 0.01f);
    EXPECT_NEAR(task.getTimeLeft(), left, 0.001f);
    level.frames(200);
    EXPECT_EQ(man.getPoint(), 2);
}

TEST(ManWalkTask, onePushedDownLiesAndGoesOnWhereHeWas) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    const auto goal = level.send(man, 2);
    level.frames(30);
    const Vector2 place = man.getMovablePosition();
    man.startPushOff(0.5f);
    level.frames(24);
    EXPECT_EQ(man.getMovablePosition(), place);
    level.frames(4);
    EXPECT_GT(man.getMovablePosition().x, place.x);
    level.frames(100);
    EXPECT_EQ(goal->done, 1);
}

TEST(ManWalkTask, aHalfCircleRoundAnotherLeadsToItsOtherSide) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    level.send(man, 2);
    level.frames(30);
    cManWalkTask& task = *man.getWalkTask();
    const Vector2 center = man.getMovablePosition() + Vector2(8.0f, 0.0f);
    task.startPassBy(center);
    ASSERT_TRUE(task.isPassBy());
    const Float radius = 8.0f * 1.2f;  // it was close
    Float highest = 0.0f;
    while (task.isPassBy()) {
        level.frames(1);
        EXPECT_NEAR(glm::distance(man.getMovablePosition(), center), radius, 0.01f);
        highest = std::max(highest, std::abs(man.getMovablePosition().y - center.y));
    }
    EXPECT_NEAR(highest, radius, 0.1f);
    EXPECT_NEAR(man.getMovablePosition().x, center.x + radius, 0.2f);
    level.frames(100);
    EXPECT_EQ(man.getPoint(), 2);
}

TEST(ManWalkTask, toABuildingThatIsDestroyedMeanwhileEndsAtTheBarePoint) {
    cWalkingLevel level;
    level.start(warehouse);
    cFriendMan& man = level.addMan(1);
    const auto goal = level.send(man, 2);
    level.frames(20);
    level.getBuilding(2)->destroyMe();
    Float longest_step = 0.0f;
    level.playUntilDone(man, *goal, longest_step);
    EXPECT_LT(longest_step, jump);
    EXPECT_EQ(man.getPoint(), 2);
}

TEST(ManWalkTask, awayFromABuildingThatIsDestroyedMeanwhileLeavesItsRing) {
    cWalkingLevel level;
    level.start(warehouse);
    cFriendMan& man = level.addMan(2);
    const auto goal = level.send(man, 3);
    level.frames(5);
    ASSERT_TRUE(man.getWalkTask()->isOnEllipse());
    level.getBuilding(2)->destroyMe();
    level.frames(500);
    EXPECT_EQ(goal->done, 1);
}
