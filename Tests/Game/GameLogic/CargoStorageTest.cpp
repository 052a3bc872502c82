#include "Game/GameLogic/CargoStorage.h"

#include <gtest/gtest.h>

#include <limits>

TEST(CargoStorage, moneyTakesNoRoom) {
    cCargoStorage store;
    store.setCapacity(10);
    EXPECT_EQ(store.addResourceItems(resourceWood, 7), 7);
    EXPECT_EQ(store.addResourceItems(resourceMoney, 1000), 1000);
    EXPECT_EQ(store.addResourceItems(resourceIron, 7), 3);
    EXPECT_FALSE(store.hasFreeSpace());
    EXPECT_EQ(store.addResourceItems(resourceFood, 1), 0);
    EXPECT_EQ(store.addResourceItems(resourceMoney, std::numeric_limits<Int>::max()), std::numeric_limits<Int>::max());
    EXPECT_EQ(store.getCargo()[resourceMoney], std::numeric_limits<Int>::max());
    EXPECT_EQ(store.removeResourceItems(resourceWood, 9), 7);
    EXPECT_TRUE(store.hasFreeSpace());
    store.setCapacity(2);  // less than it holds: nothing is lost, nothing comes in
    EXPECT_EQ(store.getCargo()[resourceIron], 3);
    EXPECT_LE(store.addResourceItems(resourceStone, 1), 0);
}

TEST(CargoStorage, thievesTakeMoneyFirst) {
    cCargoStorage store;
    store.setCapacity(10);
    store.addResourceItems(resourceMoney, 2);
    store.addResourceItems(resourceWood, 5);
    const sResourceCargo stolen = store.stealResourceItems(3);
    EXPECT_EQ(stolen, (sResourceCargo{{2, 0, 1, 0, 0}}));
    EXPECT_EQ(store.getCargo(), (sResourceCargo{{0, 0, 4, 0, 0}}));
    store.clearCargo();
    EXPECT_EQ(store.stealResourceItems(3), sResourceCargo{});
}

TEST(CargoStorage, noMoreIsUnlockedThanWasLocked) {
    cCargoStorage store;
    store.lockResourceItems(resourceStone, 2);
    store.lockResourceItems(resourceStone, 1);
    EXPECT_EQ(store.getCargo()[resourceStone], 0);
    EXPECT_EQ(store.unlockResourceItems(resourceStone, 2), 2);
    EXPECT_EQ(store.unlockResourceItems(resourceStone, 2), 1);
}
