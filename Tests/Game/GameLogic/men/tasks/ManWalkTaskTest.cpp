#include "Game/GameLogic/men/tasks/ManWalkTask.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

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

// Called back --------------------------------------------------------------------------------------------------------

TEST(ManWalkTask, whoIsCalledBackOnHisWayWalksBackToTheRing) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);  // alone there
    const auto goal = level.send(man, 2);
    goal->self_contained = true;
    level.frames(60);
    const Float x = man.getMovablePosition().x;
    ASSERT_GT(x, 250.0f);
    level.getMap().clearTasks();
    EXPECT_TRUE(man.isFree());
    level.frames(5);
    EXPECT_NEAR(man.getMovablePosition().x, x - 5.0f * frame_way, 0.1f);
    while (!man.isIdle())
        level.frames(1);
    EXPECT_NEAR(man.getMovablePosition().x, 210.0f, 0.5f);
    EXPECT_EQ(level.getMap().getArrangementUnit(1)->getRing().size(), 1u);
}

TEST(ManWalkTask, whoIsSentElsewhereOnHisWayGoesOnAlongTheArcEitherWay) {
    for (const auto& [point, direction] : {std::pair(3, 1.0f), std::pair(0, -1.0f), std::pair(1, -1.0f)}) {
        cWalkingLevel level;
        level.start();
        cFriendMan& man = level.addMan(1);
        level.send(man, 2);
        level.frames(40);
        const Vector2 place = man.getMovablePosition();
        ASSERT_GT(place.x, 220.0f);
        const auto goal = level.send(man, point);
        level.frames(4);
        EXPECT_NEAR(man.getMovablePosition().x, place.x + direction * 4.0f * frame_way, 0.1f) << point;
        Float longest_step = 0.0f;
        level.playUntilDone(man, *goal, longest_step);
        EXPECT_LT(longest_step, jump) << point;
    }
}

TEST(ManWalkTask, whateverMenAreCalledBackFromNoneOfThemEverJumps) {
    for (const UInt seed : {1u, 2u, 3u}) {
        cWalkingLevel level(50.0f);
        level.getProgram().write(cLevelObject::getDefinitionFile(objectFriendMan),
                                 "<Man speed_by_road=\"50\" cross_country_speed=\"0.5\" default_capacity=\"1\" "
                                 "acceleration_factor=\"1\"/>");
        level.start(warehouse);
        for (Int i = 0; i < 12; ++i)
            level.addMan(i % 5);
        std::mt19937 chance(seed);
        const auto one_of = [&chance](UInt count) { return static_cast<UInt>(chance() % count); };
        std::map<const cMan*, Vector2> places;
        for (UInt frame = 0; frame < 3000; ++frame) {
            if (one_of(60) == 0)
                level.getMap().clearTasks();
            cFriendMan& man = *level.getMap().getMen()[one_of(12)];
            const auto dst = static_cast<Int>(one_of(5));
            if (one_of(3) == 0 && (one_of(20) == 0 || man.isFree())) {
                man.waitTask(false);
                level.send(man, dst)->self_contained = true;
            }
            level.frames(1);
            for (const cFriendMan* each : level.getMap().getMen()) {
                const auto [before, is_new] = places.try_emplace(each, each->getMovablePosition());
                EXPECT_LE(glm::distance(before->second, each->getMovablePosition()), 2.1f * frame_way)
                    << "seed " << seed << ", frame " << frame;
                before->second = each->getMovablePosition();
            }
            if (::testing::Test::HasFailure())
                return;
        }
    }
}
