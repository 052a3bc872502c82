#include <gtest/gtest.h>

#include "Tests/Support/WalkingLevel.h"

namespace {

/// A job of bringing goods to a store, in the state that he has them.
class cCarryGoal : public cGoal {
public:
    cCarryGoal() : cGoal(goalLoad) {}
};

// Besides the start point with 20 money and 3 wood a warehouse at 2, and one at 3, which no road leads to.
class TacticMapGoods : public testing::Test {
protected:
    void SetUp() override {
        m_level.start(
            "<B Type=\"9\" Position=\"300,300\" Money=\"4\" Wood=\"5\"><Points><P index=\"2\"/></Points></B>"
            "<B Type=\"9\" Position=\"400,300\" Money=\"500\"><Points><P index=\"3\"/></Points></B>");
    }
    const sResourceCargo& getCargo(Int point) { return m_level.getBuilding(point)->cCargoStorage::getCargo(); }
    cTacticMap& map() { return m_level.getMap(); }

    cWalkingLevel m_level;
};

}  // namespace

TEST_F(TacticMapGoods, paysOutOfTheStoresOnTheNetNearestFirst) {
    EXPECT_EQ(map().getGlobalCargo(true), (sResourceCargo{{24, 0, 8, 0, 0}}));
    EXPECT_EQ(map().getGlobalCapacity(), 50);
    EXPECT_TRUE(map().consumeGlobalResources({{5, 0, 6, 0, 0}}, 2));
    EXPECT_EQ(getCargo(2), (sResourceCargo{}));
    EXPECT_EQ(getCargo(0), (sResourceCargo{{19, 0, 2, 0, 0}}));
    EXPECT_EQ(map().getGlobalCargo(false), (sResourceCargo{{19, 0, 2, 0, 0}}));  // brought up to it
    EXPECT_THROW(map().consumeGlobalResources({{0, 0, 3, 0, 0}}, 2), const char*);
    EXPECT_EQ(getCargo(3), (sResourceCargo{{500, 0, 0, 0, 0}}));
}

TEST_F(TacticMapGoods, thenOutOfTheHandsOfMenOnTheirWayToAStore) {
    cFriendMan& carrier = m_level.addMan(1);
    cFriendMan& other = m_level.addMan(1);
    const auto goal = std::make_shared<cCarryGoal>();
    goal->setMan(&carrier);
    carrier.setGlobalGoal(goal.get());
    carrier.setCargo({{0, 0, 2, 0, 0}});
    other.setCargo({{0, 0, 7, 0, 0}});  // whose load is for nothing that is counted
    EXPECT_EQ(map().getGlobalCargo(true)[resourceWood], 10);

    EXPECT_TRUE(map().consumeGlobalResources({{0, 0, 9, 0, 0}}, 0));
    EXPECT_EQ(carrier.getCargo()[resourceWood], 1);
    EXPECT_EQ(carrier.getGlobalGoal(), goal.get());
    EXPECT_TRUE(map().consumeGlobalResources({{0, 0, 1, 0, 0}}, 0));
    EXPECT_EQ(carrier.getGlobalGoal(), nullptr);  // his hands are empty: he waits
    EXPECT_EQ(map().getBusyMen().size(), 0u);
    EXPECT_EQ(map().getGlobalCargo(false)[resourceWood], 0);
}
