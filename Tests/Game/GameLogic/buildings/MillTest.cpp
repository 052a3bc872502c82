#include "Game/GameLogic/buildings/Mill.h"

#include <gtest/gtest.h>

#include <optional>

#include "Engine/Ui/ProgressFloat.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

/// A start point with five men at 0, a road to a sawmill at 1, and on to a warehouse at 2. At level 3 the sawmill takes
/// three men for six seconds.
class Mill : public testing::Test {
protected:
    void start(Int level, Int capacity, const std::string& goods = "") {
        const std::string rows =
            "<U Capacity=\"0\"/><U Capacity=\"1\" MiningTime=\"6\"/><U Capacity=\"2\" MiningTime=\"6\" MenAmount=\"1\" "
            "UpgradeTime=\"1\"/><U "
            "Capacity=\"" +
            std::to_string(capacity) + "\" MiningTime=\"6\"/>";
        m_level.emplace();
        for (const char* file : {"GameLogic/WoodMill.xml", "GameLogic/Warehouse.xml"})
            m_level->getProgram().write(
                file,
                "<Object size=\"40,30\" Enable=\"1\" ellipse_a=\"20\" ellipse_b=\"12\" arrangement_delta=\"0.6\">"
                "<Progress/><UnloadButton osc_scale_time=\"2\" Enable=\"1\"/><UnloadTick><TickProto/></UnloadTick>"
                "<Upgrades>" +
                    rows + "</Upgrades></Object>");
        m_level->start(
            "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/><P Pos=\"300,300\"/></Points><Arcs><A "
            "p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" p2=\"2\" Type=\"1\"/></Arcs><Buildings>" +
            startPoint("100,300", 5) + "<B Type=\"12\" Position=\"200,300\" Level=\"" + std::to_string(level) + "\" " +
            goods +
            "><Points><P index=\"1\"/></Points></B><B Type=\"9\" Position=\"300,300\" Level=\"3\"><Points><P "
            "index=\"2\"/></Points></B></Buildings></L>");
        m_level->frames(150);  // the caravan comes
    }
    void work() {
        mill().mineClicked();
        for (Int i = 0; i < 1000 && !mill().isMining(); ++i)
            m_level->frames(1);
        ASSERT_TRUE(mill().isMining());
    }
    cTacticMap& map() { return m_level->getMap(); }
    cMill& mill() { return static_cast<cMill&>(*m_level->getBuilding(1)); }

    std::optional<cSmallLevel> m_level;
};

TEST_F(Mill, makesAnItemForEachOfItsMenEvenlySpaced) {
    start(3, 9);
    work();
    for (Int made = 0; made < 3; ++made) {
        m_level->frames(98);
        EXPECT_EQ(mill().getProductAmount(), made);
        m_level->frames(2);
        EXPECT_EQ(mill().getProductAmount(), made + 1);
    }
    m_level->frames(2);
    EXPECT_EQ(mill().getMillState(), cMill::millIdle);
    EXPECT_EQ(map().getFreeMenList().size(), 5u);
}

TEST_F(Mill, thatIsFullEndsItsRoundAndShakesItsButton) {
    start(3, 2);
    work();
    m_level->frames(310);
    EXPECT_FALSE(mill().isMining());
    EXPECT_EQ(mill().getProductAmount(), 2);

    mill().mineClicked();  // nobody goes there until there is room
    m_level->frames(40);
    EXPECT_EQ(map().getGoals()->getGoals().size(), 3u);
    const auto& button = static_cast<const cMill::cShakingButton&>(mill().getUnloadButton());
    EXPECT_TRUE(button.isOscillating());
    m_level->frames(20);  // half of its two seconds
    EXPECT_FALSE(button.isOscillating());
}

TEST_F(Mill, thatIsCutOffSendsItsMenHome) {
    start(3, 9);
    work();
    m_level->frames(110);
    map().setArcType(0, 1, ARC_GROUND);
    map().updateView(false);
    m_level->frames(1);
    EXPECT_FALSE(mill().isMining());
    EXPECT_EQ(mill().getProductAmount(), 1);
    for (const cFriendMan* man : map().getMen())
        EXPECT_TRUE(man->isShow());
}

TEST_F(Mill, lendsItsBarToWhoeverBuildsOnIt) {
    start(2, 9);
    work();
    m_level->frames(10);
    mill().createUpgradeGoals();  // one man for a second
    ASSERT_TRUE(mill().getProgressBar()->isShow());
    EXPECT_FLOAT_EQ(mill().getProgressBar()->getProgressMaxValue(), 1.0f);
    EXPECT_FLOAT_EQ(mill().getProgressBar()->getProgressCurrentValue(), 0.0f);
    for (Int i = 0; i < 280 && mill().getLevel() == 2; ++i)
        m_level->frames(1);
    ASSERT_EQ(mill().getLevel(), 3);
    ASSERT_TRUE(mill().isMining());
    m_level->frames(1);
    ASSERT_TRUE(mill().getProgressBar()->isShow());
    EXPECT_FLOAT_EQ(mill().getProgressBar()->getProgressMaxValue(), 6.0f);
    EXPECT_GT(mill().getProgressBar()->getProgressCurrentValue(), 0.4f);
}

TEST_F(Mill, sendsForEachItemOnce) {
    start(3, 9);
    work();
    m_level->frames(320);
    mill().unload();
    mill().unload();
    EXPECT_EQ(mill().getLoads(), 3);
    EXPECT_EQ(map().getGoals()->getGoals().size(), 3u);
    mill().addResourceItems(resourceWood, 2);
    mill().unload();
    EXPECT_EQ(mill().getLoads(), 5);
    EXPECT_EQ(map().getGoals()->getGoals().size(), 5u);
    m_level->frames(2000);
    EXPECT_EQ(mill().getLoads(), 0);
    EXPECT_EQ(m_level->getBuilding(0)->getCargo()[resourceWood], 3 + 5);
}

TEST_F(Mill, thatFallsLosesWhatNoLongerFits) {
    start(3, 9);
    mill().addResourceItems(resourceWood, 6);
    mill().plantBomb({200.0f, 300.0f}, 0.5f);
    m_level->frames(20);
    EXPECT_EQ(mill().getLevel(), 3);
    m_level->frames(10);
    EXPECT_FALSE(mill().hasBomb());
    EXPECT_EQ(mill().getLevel(), 2);
    EXPECT_EQ(mill().getProductAmount(), 2);
    EXPECT_EQ(map().getLevelStat(statEnemySuccesses), 1);
}

TEST_F(Mill, ofALevelThatIsNoneOrWithEndlessGoodsIsRefused) {
    for (const Int level : {-1, 6, 2000000000})
        EXPECT_THROW(start(level, 9), String) << level;
    EXPECT_THROW(start(3, 9, "Wood=\"2000000000\""), String);
}

TEST_F(Mill, andAWarehouseThatFallsKeepsItsMoneyAndLosesOneOfEachKindInTurn) {
    start(1, 9);
    auto& warehouse = static_cast<cUpgradableBuilding&>(*m_level->getBuilding(2));
    for (const Int type : {resourceMoney, resourceFood, resourceFood, resourceWood, resourceIron})
        warehouse.addResourceItems(type, 1);
    EXPECT_TRUE(warehouse.hasFreeSpace());
    warehouse.degrade(1);  // from 9 items to 2
    EXPECT_EQ(warehouse.cCargoStorage::getCargo(), (sResourceCargo{{1, 1, 0, 0, 1}}));
    EXPECT_FALSE(warehouse.hasFreeSpace());
}
