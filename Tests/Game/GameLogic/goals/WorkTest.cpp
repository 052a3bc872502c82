#include <gtest/gtest.h>

#include <functional>
#include <iterator>

#include "Engine/core/Random.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/roads/RoadPlan.h"
#include "Tests/Support/LevelAudit.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

/// A start point with 300 money and 30 wood at 0, a road to 1, from there bare tracks to a sawmill at 2, a warehouse at
/// 3 and a bare point at 4. Five men.
class Work : public testing::Test {
protected:
    void SetUp() override {
        const std::string rows =
            "<Upgrades><U UpgradeTime=\"1\" MenAmount=\"2\" Capacity=\"0\" Money=\"5\" Wood=\"2\"/>"
            "<U UpgradeTime=\"1\" MenAmount=\"2\" Capacity=\"3\" MiningTime=\"2\" Money=\"4\"/>"
            "<U UpgradeTime=\"1\" MenAmount=\"0\" Capacity=\"5\" MiningTime=\"2\"/></Upgrades></Object>";
        const std::string head =
            "<Object size=\"40,30\" Enable=\"1\" ellipse_a=\"20\" ellipse_b=\"12\" arrangement_delta=\"0.6\">";
        m_level.getProgram().write("GameLogic/WoodMill.xml", head + rows);
        m_level.getProgram().write("GameLogic/Warehouse.xml", head + rows);
        m_level.start(
            "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/><P Pos=\"300,300\"/><P "
            "Pos=\"200,380\"/><P Pos=\"300,400\"/></Points><Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" "
            "p2=\"2\" Type=\"0\"/><A p1=\"1\" p2=\"3\" Type=\"0\"/><A p1=\"3\" p2=\"4\" Type=\"0\"/><A p1=\"2\" "
            "p2=\"4\" Type=\"0\"/></Arcs><Buildings><B Type=\"8\" Position=\"100,300\" Capacity=\"50\" "
            "PrevLevel=\"-1\" MenAmount=\"5\" MaxAmount=\"7\" Money=\"300\" Wood=\"30\"><Points><P "
            "index=\"0\"/></Points><ManCost Money=\"6\"/></B><B Type=\"12\" Position=\"300,300\"><Points><P "
            "index=\"2\"/></Points></B><B Type=\"9\" Position=\"200,380\" Level=\"1\"><Points><P "
            "index=\"3\"/></Points></B></Buildings></L>");
        for (const char* plan : {"Product11", "Product12", "Product21", "Product22"})
            cProfile::getInts()[plan] = 1;
        m_level.frames(150);  // the caravan comes
        ASSERT_EQ(map().getMen().size(), 5u);
    }
    cTacticMap& map() { return m_level.getMap(); }
    cMill& mill() { return static_cast<cMill&>(*m_level.getBuilding(2)); }
    cUpgradableBuilding& warehouse() { return static_cast<cUpgradableBuilding&>(*m_level.getBuilding(3)); }
    void orderRoad(Int point) {
        const std::unique_ptr<cRoadPlan> plan(map().getRoadPlan(point, -1));
        if (plan && plan->canBeBuilt())
            plan->createBuildGoals();
    }
    void order(cUpgradableBuilding& building) {
        if (building.getUpgradeState() == cUpgradableUnit::idle && building.isUpgradeAllowed())
            building.createUpgradeGoals();
    }
    void connectAll() {
        for (const Int point : {2, 3}) {
            orderRoad(point);
            m_level.frames(1500);
        }
    }

    cSmallLevel m_level;
};

TEST_F(Work, buildsARoadThenAMillWhichWorksAndIsUnloaded) {
    connectAll();
    EXPECT_EQ(map().getPoint(1).getArcType(2), ARC_PLAYER_ROAD);
    EXPECT_EQ(map().getPoint(1).getArcType(3), ARC_PLAYER_ROAD);
    ASSERT_TRUE(mill().isPlayerConnected());

    const Int money = map().getGlobalCargo(true)[resourceMoney];
    mill().mineClicked();
    EXPECT_EQ(mill().getUpgradeState(), cUpgradableUnit::waitingForResources);
    EXPECT_EQ(map().getGlobalCargo(true)[resourceMoney], money - 5);  // promised goods are spent
    m_level.frames(2000);
    EXPECT_EQ(mill().getLevel(), 1);
    EXPECT_EQ(mill().getUpgradeState(), cUpgradableUnit::idle);

    mill().mineClicked();
    EXPECT_EQ(mill().getMillState(), cMill::workersHired);
    mill().mineClicked();  // hires nobody else
    EXPECT_EQ(map().getGoals()->getGoals().size(), 1u);
    m_level.frames(1000);
    EXPECT_EQ(mill().getMillState(), cMill::millIdle);
    EXPECT_EQ(mill().getProductAmount(), 1);

    const Int wood = warehouse().cCargoStorage::getCargo()[resourceWood];
    mill().unload();
    EXPECT_EQ(mill().getLoads(), 1);
    m_level.frames(1500);
    EXPECT_EQ(mill().getProductAmount(), 0);
    EXPECT_EQ(mill().getLoads(), 0);
    EXPECT_EQ(warehouse().cCargoStorage::getCargo()[resourceWood], wood + 1);
    EXPECT_EQ(map().getFreeMenList().size(), 5u);
}

TEST_F(Work, aManTakesNoMoreThanHisGoalSays) {
    connectAll();
    for (cFriendMan* man : map().getMen())
        man->setCapacity(5);
    order(mill());  // two goals fetch one wood each
    m_level.frames(2000);
    EXPECT_EQ(mill().getLevel(), 1);
}

TEST_F(Work, givesEverythingBackWhenItIsCalledOffBeforeItHasBegun) {
    connectAll();
    for (const cFriendMan* man : map().getMen())
        ASSERT_TRUE(man->isFree());
    const sLedger before = sLedger::read(map());
    order(mill());
    EXPECT_EQ(map().getGoals()->getGoals().size(), 5u);  // one load of money, two of wood, two builders
    map().clearTasks();
    EXPECT_TRUE(map().getGoals()->isEmpty());
    EXPECT_EQ(mill().getUpgradeState(), cUpgradableUnit::idle);
    EXPECT_EQ(sLedger::read(map()).total, before.total);
    EXPECT_EQ(map().getStartPoint()->getLocked(), sResourceCargo{});

    mill().mineClicked();  // and can be ordered again
    m_level.frames(2000);
    EXPECT_EQ(mill().getLevel(), 1);
}

TEST_F(Work, goesOnWithoutTheStretchThatWasCalledOff) {
    orderRoad(4);  // two stretches: 1 - 3 (or 2), and on to 4
    m_level.frames(5);
    map().clearTasks();  // the first has its men, the second not
    m_level.frames(3000);
    EXPECT_TRUE(map().getGoals()->isEmpty());
    for (const sPointInfo& point : map().getPoints()) {
        for (const auto& [neighbour, arc] : point.arcs)
            EXPECT_NE(arc.type, ARC_ROAD_IN_PROGRESS) << point.index << " - " << neighbour;
    }
    orderRoad(4);
    m_level.frames(4000);
    EXPECT_TRUE(map().getPoint(4).player_connected);
}

TEST_F(Work, keepsCountOfEverythingWhateverIsClicked) {
    Engine::random().setSeed(7);
    UInt state = 12345;
    const auto draw = [&state](UInt below) {
        state = state * 1664525u + 1013904223u;
        return (state >> 16) % below;
    };
    const std::function<void()> actions[] = {[&] { mill().mineClicked(); },
                                             [&] { mill().unload(); },
                                             [&] { order(mill()); },
                                             [&] { order(warehouse()); },
                                             [&] { map().buyMan(); },
                                             [&] { map().clearTasks(); },
                                             [&] { mill().degrade(1); },  // the enemy's doing
                                             [&] { orderRoad(static_cast<Int>(draw(5))); },
                                             [&] { orderRoad(static_cast<Int>(draw(5))); }};
    cLevelAudit audit;
    audit.start();
    for (Int frame = 0; frame < 40000; ++frame) {
        if (draw(40) == 0)
            actions[draw(std::size(actions))]();
        m_level.frames(1);
        ASSERT_EQ(audit.findFault(0.02f), "") << "at frame " << frame;
    }
    EXPECT_GT(mill().getLevel() + warehouse().getLevel(), 1);  // something was achieved meanwhile

    m_level.frames(6000);
    map().clearTasks();
    m_level.frames(1500);
    EXPECT_TRUE(map().getGoals()->isEmpty());
    EXPECT_TRUE(map().getBusyMen().empty());
    for (const cBuilding* building : cBuilding::getStorage())
        EXPECT_EQ(building->getLocked(), sResourceCargo{});
    EXPECT_EQ(sLedger::read(map()).on_units, sResourceCargo{});
}
