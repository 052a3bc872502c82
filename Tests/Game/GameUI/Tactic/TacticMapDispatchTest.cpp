#include <gtest/gtest.h>

#include "Game/GameUI/Tactic/TacticMap.h"
#include "Tests/Support/DispatchLevel.h"
#include "Tests/Support/WalkingLevel.h"

TEST(TacticMapDispatch, theOldestGoalGoesToTheNearestMan) {
    cWalkingLevel level;
    level.start();
    cFriendMan& far = level.addMan(0);
    cFriendMan& near = level.addMan(1);
    const auto older = level.addGoal(2, 1);
    const auto younger = level.addGoal(0, 2);
    level.frames(1);
    EXPECT_EQ(near.getGlobalGoal(), older.get());
    EXPECT_TRUE(far.isFree());  // one goal a tick
    EXPECT_EQ(level.getMap().getCurrentTransaction(), -1);
    level.frames(14);
    EXPECT_EQ(far.getGlobalGoal(), younger.get());
    EXPECT_TRUE(level.getMap().getGoals()->isEmpty());
}

TEST(TacticMapDispatch, anUpgradeHasPriorityUntilItsLastGoalIsGivenOut) {
    cWalkingLevel level;
    level.start();
    level.addMan(0);
    level.addMan(1);
    level.addGoal(2, 5);
    level.addGoal(2, 5);
    level.frames(1);
    EXPECT_EQ(level.getMap().getCurrentTransaction(), 5);
    level.frames(14);
    EXPECT_EQ(level.getMap().getCurrentTransaction(), -1);
}

TEST(TacticMapDispatch, aGoalThatNobodyCanReachIsTriedAgainAndHoldsUpTheRest) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    level.getMap().setArcType(2, 3, ARC_ENEMY_FENCE);
    const auto closed = level.addGoal(3);
    const auto open = level.addGoal(0);
    level.frames(50);
    EXPECT_EQ(closed->asked, 0);
    EXPECT_TRUE(man.isFree());
    closed->waits = true;
    level.frames(14);
    EXPECT_EQ(man.getGlobalGoal(), open.get());
}

TEST(TacticMapDispatch, aGoalThatCallsItselfOffIsOfferedToNobodyElse) {
    cWalkingLevel level;
    level.start();
    level.addMan(0);
    level.addMan(1);
    const auto goal = level.addGoal(2);
    goal->calls_off = true;
    level.frames(30);
    EXPECT_EQ(goal->asked, 1);
    EXPECT_EQ(level.getMap().getFreeMen(), 2);
}

TEST(TacticMapDispatch, whoBecomesFreeNearerTakesTheGoalOver) {
    cWalkingLevel level;
    level.start();
    cFriendMan& far = level.addMan(0);
    const auto goal = level.send(far, 3);
    level.frames(20);
    cFriendMan& near = level.addMan(2);
    near.waitTask(true);
    EXPECT_EQ(near.getGlobalGoal(), goal.get());
    EXPECT_EQ(goal->getMan(), &near);
    EXPECT_TRUE(far.isFree());
    level.frames(400);
    EXPECT_EQ(goal->done, 1);
    EXPECT_TRUE(far.isIdle());

    // Who has been at the source carries something, and keeps it.
    const auto load = level.send(far, 3);
    load->setSrc(0);
    near.waitTask(true);
    EXPECT_EQ(far.getGlobalGoal(), load.get());
}

TEST(TacticMapDispatch, theRightButtonFreesEverybodyWhoWorksAlone) {
    cWalkingLevel level;
    level.start();
    cFriendMan& alone = level.addMan(1);
    cFriendMan& together = level.addMan(1);
    const auto single = level.send(alone, 2);
    single->self_contained = true;
    single->setTransactionId(1);
    const auto shared = level.send(together, 2);
    shared->setTransactionId(2);
    const auto waiting = level.addGoal(2, 3);
    waiting->waits = true;
    level.getMap().clearTasks();
    EXPECT_EQ(single->cancelled, 1);
    EXPECT_TRUE(alone.isFree());
    EXPECT_EQ(together.getGlobalGoal(), shared.get());
    EXPECT_EQ(waiting->cancelled, 1);
    EXPECT_TRUE(level.getMap().getGoals()->isEmpty());
}

TEST(TacticMapDispatch, asksMenInTheOrderThatOneSearchForEachWouldGive) {
    cDispatchLevel level;
    level.start(300, 150);
    const auto goal = std::make_shared<cAskingGoal>(false);
    level.getMap().getGoals()->addGoal(goal);
    for (Int point = 0; point < level.getMap().getPointCount(); ++point) {
        goal->setDst(point);
        goal->asked.clear();
        level.getMap().process();
        ASSERT_EQ(goal->asked, level.sortByOneSearchAMan(point)) << "to point " << point;
    }
}
