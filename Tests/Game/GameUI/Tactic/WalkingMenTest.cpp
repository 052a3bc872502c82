#include "Game/GameUI/Tactic/WalkingMen.h"

#include <gtest/gtest.h>

#include <random>

#include "Game/GameLogic/men/EnemyMan.h"
#include "Game/GameUI/Tactic/PairGrid.h"
#include "Tests/Support/WalkingLevel.h"

TEST(PairGrid, findsTheVeryPairsThatComparingAllFinds) {
    cPairGrid grid;
    std::mt19937 chance(5);
    for (const Float width : {1.0f, 40.0f, 300.0f, 90000.0f}) {
        std::uniform_real_distribution<Float> place(-width, width);
        std::vector<Vector2> points;
        for (Int i = 0; i < 200; ++i) {
            points.emplace_back(place(chance), place(chance));
            points.push_back(points.back() + Vector2(i % 2 == 0 ? 8.0f : 7.9999995f, 0.0f));
            points.push_back(points.back() + Vector2(0.0f, i % 2 == 0 ? -7.9999995f : -8.0f));
        }
        points.emplace_back(NAN, 0.0f);
        points.emplace_back(1e30f, -1e30f);
        cPairGrid::PAIRS expected;
        for (UInt a = 0; a < points.size(); ++a) {
            for (UInt b = a + 1; b < points.size(); ++b) {
                const Vector2 way = points[a] - points[b];
                if (glm::dot(way, way) < 64.0f && glm::dot(way, way) > 4.0f)
                    expected.emplace_back(a, b);
            }
        }
        EXPECT_EQ(grid.findPairs(points, 64.0f, 4.0f), expected) << width;
    }
}

// 0 ---- 1 --a->  <-b-- 2
TEST(WalkingMen, friendsWhoMeetSwapTheirWorkAndGoBack) {
    cWalkingLevel level;
    level.start();
    cFriendMan& a = level.addMan(1);
    cFriendMan& b = level.addMan(2);
    const auto goal_of_a = level.send(a, 3);
    const auto goal_of_b = level.send(b, 0);
    sResourceCargo money;
    money[resourceMoney] = 12;
    a.setCargo(money);
    a.setCapacity(12);
    UInt count = 0;
    while (a.getGlobalGoal() == goal_of_a.get() && count++ < 200)
        level.frames(1);
    ASSERT_LT(count, 200u);

    EXPECT_EQ(a.getGlobalGoal(), goal_of_b.get());
    EXPECT_EQ(b.getGlobalGoal(), goal_of_a.get());
    EXPECT_EQ(goal_of_a->getMan(), &b);
    EXPECT_EQ(goal_of_b->getMan(), &a);
    EXPECT_EQ(b.getCargo()[resourceMoney], 12);
    EXPECT_EQ(a.getCargo()[resourceMoney], 0);
    EXPECT_EQ(b.getCapacity(), 12);
    EXPECT_EQ(a.getPoint(), 2);
    EXPECT_EQ(b.getPoint(), 1);
    EXPECT_EQ(a.getWalkTask()->getDst(), 1);
    EXPECT_EQ(b.getWalkTask()->getPath(), (PATH_HOLDER{1, 2, 3}));
    EXPECT_FLOAT_EQ(a.getSpeedFactor(), 2.0f);
    EXPECT_FLOAT_EQ(b.getSpeedFactor(), 2.0f);
    a.exchangeGoals(&b, false);  // not with the same man again
    EXPECT_EQ(a.getGlobalGoal(), goal_of_b.get());

    Float longest_step = 0.0f;
    level.playUntilDone(a, *goal_of_b, longest_step);
    EXPECT_LT(longest_step, 4.0f);
    level.frames(200);
    EXPECT_EQ(goal_of_a->done, 1);
}

/// Whose load has no goal to say how large it may be keeps that size with the man who gets it.
TEST(WalkingMen, aLoadOfMoneyKeepsItsSizeWhenOneWithoutWorkTakesIt) {
    cWalkingLevel level;
    level.start();
    cFriendMan& a = level.addMan(1);
    cFriendMan& b = level.addMan(2);
    const auto goal = level.send(a, 2);
    a.setCapacity(30);
    b.walkTo(1, false);
    a.exchangeGoals(&b, false);
    EXPECT_EQ(b.getGlobalGoal(), goal.get());
    EXPECT_EQ(b.getCapacity(), 30);
    EXPECT_EQ(a.getCapacity(), 1);
    EXPECT_TRUE(a.isFree());
    EXPECT_FLOAT_EQ(a.getSpeedFactor(), 1.0f);  // without work there is no hurry
}

// Both leave 1: one stands on the right and goes to 0, one below and goes to 2.
TEST(WalkingMen, friendsWhoCrossOnARingSwapWithoutChangingTheirPoint) {
    cWalkingLevel level;
    level.start();
    cFriendMan& a = level.addMan(1);
    cFriendMan& b = level.addMan(1);
    level.frames(100);
    a.setPosition({210.0f, 300.0f});
    b.setPosition({200.0f, 310.0f});
    const auto goal_of_a = level.send(a, 0);
    const auto goal_of_b = level.send(b, 2);
    ASSERT_TRUE(a.getWalkTask()->isOnEllipse());
    ASSERT_TRUE(b.getWalkTask()->isOnEllipse());
    level.frames(1);
    EXPECT_EQ(a.getGlobalGoal(), goal_of_b.get());
    EXPECT_EQ(a.getPoint(), 1);
    EXPECT_EQ(a.getWalkTask()->getDst(), 2);
    EXPECT_EQ(b.getWalkTask()->getDst(), 0);
    level.frames(200);
    EXPECT_EQ(goal_of_a->done, 1);
    EXPECT_EQ(goal_of_b->done, 1);
}

TEST(WalkingMen, enemiesWhoMeetWalkRoundTheirMiddle) {
    cWalkingLevel level;
    level.start();
    cTacticMap& map = level.getMap();
    cEnemyMan* men[2];
    for (Int i = 0; i < 2; ++i) {
        men[i] = static_cast<cEnemyMan*>(cLevelObject::create(objectEnemyMan, map));
        map.addEnemy(men[i]);
        men[i]->setPoint(i + 1);
        ASSERT_TRUE(men[i]->walkTo(2 - i, false));
        men[i]->setPosition({245.0f + 12.0f * static_cast<Float>(i), 300.0f});
        men[i]->getWalkTask()->setOnEllipse(false);
    }
    map.process();
    EXPECT_TRUE(men[0]->getWalkTask()->isPassBy());
    EXPECT_TRUE(men[1]->getWalkTask()->isPassBy());
}

TEST(WalkingMen, aFriendAndAnEnemyWhoDoesNotPushLeaveEachOtherAlone) {
    cWalkingLevel level;
    level.start();
    cTacticMap& map = level.getMap();
    cFriendMan& man = level.addMan(1);
    level.send(man, 2);
    level.frames(30);
    auto* enemy = static_cast<cEnemyMan*>(cLevelObject::create(objectEnemyMan, map));
    map.addEnemy(enemy);
    enemy->setPoint(1);
    enemy->setPosition(man.getMovablePosition());
    map.process();
    EXPECT_FALSE(man.isPushed());
    EXPECT_TRUE(man.isWalking());
}
