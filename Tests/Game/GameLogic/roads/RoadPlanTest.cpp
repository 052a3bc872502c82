#include "Game/GameLogic/roads/RoadPlan.h"

#include <gtest/gtest.h>

#include <memory>

#include "Engine/Ui/ProgressFloat.h"
#include "Engine/Ui/Storage.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

/// 0 (start point, three men, 3 wood) --ground-- 1 --ground-- 2 --ground-- 3, 200 units each. A stretch costs 1 wood
/// and lies in tiles of 40 units.
class RoadPlan : public testing::Test {
protected:
    void SetUp() override {
        m_level.getProgram().write(cLevelObject::getDefinitionFile(objectRoad),
                                   "<R alfa_param=\"0.5\"><TileTemplate size=\"40,20\"/></R>");
        m_level.getProgram().write(
            "GameUI/TacticMap.xml",
            "<Map global_pitch=\"50\" BirdsPossibility=\"0\" CloudsPossibility=\"0\" "
            "new_level_effect_time=\"0.1\" road_building_speed=\"40\"><RoadCost Wood=\"1\"/></Map>");
        m_level.start(
            "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"300,300\"/><P Pos=\"500,300\"/><P "
            "Pos=\"700,300\"/></Points><Arcs><A p1=\"0\" p2=\"1\"/><A p1=\"1\" p2=\"2\"/><A p1=\"2\" p2=\"3\"/></Arcs>"
            "<Buildings>" +
            startPoint("100,300", 3) + "</Buildings></L>");
        m_level.frames(200);  // the men are born
    }
    cTacticMap& map() { return m_level.getMap(); }
    Int getArc(Int a, Int b) { return map().getPoint(a).getArcType(b); }
    /// Orders the road to the last point; its stretches in the order of building.
    std::vector<cTransRoad*> order() {
        const std::unique_ptr<cRoadPlan> plan = map().getRoadPlan(3, -1);
        std::vector<cTransRoad*> res(plan->getSections().rbegin(), plan->getSections().rend());
        EXPECT_TRUE(plan->createBuildGoals());
        return res;
    }
    Bool playUntilRoad(Int a, Int b) {
        for (Int i = 0; i < 3000 && getArc(a, b) != ARC_PLAYER_ROAD; ++i)
            m_level.frames(1);
        return getArc(a, b) == ARC_PLAYER_ROAD;
    }

    cSmallLevel m_level;
};

TEST_F(RoadPlan, isBuiltOneStretchAfterTheOtherAwayFromTheNet) {
    ASSERT_EQ(map().getConstants().road_cost[resourceWood], 1);
    const auto stretches = order();
    ASSERT_EQ(stretches.size(), 3u);
    EXPECT_EQ(map().getGlobalCargo(true)[resourceWood], 0);
    EXPECT_EQ(map().getGoals()->getGoals().size(), 3u * 2u);  // a load of wood and a builder each
    for (const cTransRoad* stretch : stretches) {
        EXPECT_EQ(stretch->getStarted(), stretch == stretches.front());
        EXPECT_EQ(getArc(stretch->getP0(), stretch->getP1()), ARC_ROAD_IN_PROGRESS);
    }
    ASSERT_TRUE(playUntilRoad(0, 1));
    EXPECT_TRUE(stretches[1]->getStarted());
    EXPECT_FALSE(stretches[2]->getStarted());
    EXPECT_TRUE(playUntilRoad(2, 3));
    EXPECT_TRUE(map().getPoint(3).player_connected);
    EXPECT_TRUE(cStorage<cTransRoad>::getStorage().empty());
}

TEST_F(RoadPlan, closesUpWhereAStretchIsCalledOffBeforeItsTurn) {
    const auto stretches = order();
    stretches[1]->callOff();
    EXPECT_EQ(map().getGlobalCargo(true)[resourceWood], 1);
    EXPECT_EQ(getArc(1, 2), ARC_GROUND);
    EXPECT_FALSE(stretches[2]->getStarted());  // the first is still before it
    ASSERT_TRUE(playUntilRoad(0, 1));
    EXPECT_TRUE(stretches[2]->getStarted());
    EXPECT_TRUE(playUntilRoad(2, 3));
    EXPECT_EQ(getArc(1, 2), ARC_GROUND);

    const auto again = order();  // where there is a road by now nothing is ordered
    ASSERT_EQ(again.size(), 1u);
    EXPECT_TRUE(playUntilRoad(1, 2));
}

TEST_F(RoadPlan, twiceOverTheSameGroundOrdersNothing) {
    order();
    m_level.frames(1);
    const std::size_t goals = map().getGoals()->getGoals().size();
    const std::unique_ptr<cRoadPlan> plan = map().getRoadPlan(3, -1);
    ASSERT_NE(plan, nullptr);
    EXPECT_FALSE(plan->canBeBuilt());  // all wood is promised
    EXPECT_FALSE(plan->createBuildGoals());
    EXPECT_EQ(map().getGoals()->getGoals().size(), goals);
}

TEST_F(RoadPlan, aStretchGrowsByItsLastTileAlone) {
    auto& stretch = *order().front();
    stretch.buildProcess(0.30f);  // 60 of 200 units
    const auto first = stretch.getTiles();
    ASSERT_EQ(first.size(), 2u);
    EXPECT_FLOAT_EQ(first[1]->getProgressCurrentValue(), 20.0f);
    stretch.buildProcess(0.35f);
    EXPECT_EQ(stretch.getTiles(), first);
    EXPECT_FLOAT_EQ(first[1]->getProgressCurrentValue(), 30.0f);
    stretch.buildProcess(1.0f);
    ASSERT_EQ(stretch.getTiles().size(), 5u);
    EXPECT_EQ(stretch.getTiles()[0], first[0]);
    EXPECT_FLOAT_EQ(first[1]->getProgressCurrentValue(), 40.0f);
    EXPECT_FLOAT_EQ(first[0]->getColor().a, 0.5f);
    stretch.buildProcess(0.0f);
    EXPECT_TRUE(stretch.getTiles().empty());
}
