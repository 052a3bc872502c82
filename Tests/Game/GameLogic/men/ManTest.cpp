#include "Game/GameLogic/men/Man.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Tests/Support/WalkingLevel.h"

namespace {

Bool contains(const std::vector<cFriendMan*>& men, const cFriendMan& man) {
    return std::find(men.begin(), men.end(), &man) != men.end();
}

}  // namespace

TEST(Man, hisGoalDecidesWhetherHeIsFreeOrBusy) {
    cWalkingLevel level;
    level.start();
    const cTacticMap& map = level.getMap();
    cFriendMan& man = level.addMan(1);
    EXPECT_TRUE(contains(map.getFreeMenList(), man));
    const auto goal = level.send(man, 2);
    goal->setCargoType(resourceMoney);
    man.setCapacity(30);
    EXPECT_TRUE(contains(map.getBusyMen(), man));
    EXPECT_FALSE(contains(map.getFreeMenList(), man));
    man.waitTask(false);
    EXPECT_TRUE(contains(map.getFreeMenList(), man));
    EXPECT_FALSE(contains(map.getBusyMen(), man));
    EXPECT_EQ(man.getCapacity(), 1);
    EXPECT_EQ(goal->getMan(), nullptr);
}

TEST(Man, whoLosesItsPlaceIsForgottenByEveryRing) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    level.addMan(1);
    level.frames(100);
    const auto& ring = level.getMap().getPoint(1).way_point->getRing();
    ASSERT_EQ(ring.size(), 2u);
    // A building comes over the point on which they stand.
    level.getMap().setBuilding(1, level.getBuilding(0));
    man.destroyMe();
    EXPECT_EQ(ring.size(), 1u);
    EXPECT_NE(ring.front(), &man);
    EXPECT_FALSE(contains(level.getMap().getMen(), man));
    EXPECT_FALSE(contains(level.getMap().getFreeMenList(), man));
    level.getMap().setBuilding(1, nullptr);
}

TEST(Man, isHitWhereHeStandsHoweverHeIsTurned) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);  // 40 by 30 units
    const Vector2 feet = man.getMovablePosition();
    for (const Float yaw : {0.0f, 1.5f, 4.0f}) {
        man.setMovableYaw(yaw);
        EXPECT_TRUE(man.pointInRect(feet));
        EXPECT_TRUE(man.pointInRect(feet - Vector2(18.0f, 26.0f)));
        EXPECT_FALSE(man.pointInRect(feet + Vector2(0.0f, 4.0f)));
        EXPECT_FALSE(man.pointInRect(feet - Vector2(0.0f, 28.0f)));
    }
}

TEST(Man, saysWhetherHeCanDeliver) {
    cWalkingLevel level;
    level.start();
    const cFriendMan& man = level.addMan(1);
    EXPECT_TRUE(man.canDelivery(1));
    EXPECT_TRUE(man.canDelivery(3));
    level.getMap().setArcType(2, 3, ARC_ENEMY_FENCE);
    EXPECT_FALSE(man.canDelivery(3));
}

TEST(Man, takesADeliveryOverInPlaceOfWhatHeDid) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(1);
    const auto before = level.send(man, 0);
    const auto delivery = std::make_shared<cWalkGoal>(2);
    man.deliveryTo(2, delivery.get());
    EXPECT_EQ(man.getGlobalGoal(), delivery.get());
    EXPECT_EQ(delivery->getMan(), &man);
    EXPECT_EQ(man.getPointAimedFor(), 2);
    level.frames(200);
    EXPECT_EQ(delivery->done, 1);
    EXPECT_EQ(before->done, 0);
}

TEST(Man, fetchesPromisedGoodsAndLeavesNoneBehind) {
    cWalkingLevel level;
    level.start();
    cFriendMan& man = level.addMan(0);
    cBuilding& store = *level.getBuilding(0);  // 20 coins
    store.removeResourceItems(resourceMoney, 12);
    store.lockResourceItems(resourceMoney, 12);
    man.setCapacity(12);
    EXPECT_EQ(man.getLockedResourcesFrom(resourceMoney, &store), 12);
    EXPECT_STREQ(man.getCargoId(), "money");
    EXPECT_EQ(store.getLocked()[resourceMoney], 0);
    man.unloadResourcesTo(resourceMoney, &store);
    EXPECT_STREQ(man.getCargoId(), "no_cargo");
    EXPECT_EQ(store.cCargoStorage::getCargo()[resourceMoney], 20);
}
