#include "Game/GameLogic/buildings/Bridge.h"

#include <gtest/gtest.h>

#include "Game/GameLogic/buildings/Caravan.h"
#include "Tests/Support/SmallLevel.h"

namespace {

// 0 start point --road 100-- 1 bridge, gold for 2 s and silver for 2 s more
const char* const level =
    "<L Size=\"800,600\"><Points><P Pos=\"300,300\"/><P Pos=\"400,300\"/></Points>"
    "<Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/></Arcs><Buildings>"
    "<B Type=\"8\" Position=\"300,300\" Capacity=\"50\" PrevLevel=\"-1\" MenAmount=\"2\" Money=\"20\" Wood=\"3\">"
    "<Points><P index=\"0\"/></Points></B>"
    "<B Type=\"14\" Position=\"400,300\" NextLevel=\"-1\" GoldTime=\"2\" SilverTime=\"2\"><Points><P index=\"1\"/>"
    "</Points><Upgrades><U Wood=\"1\" MenAmount=\"1\" UpgradeTime=\"1\"/><U Wood=\"1\" MenAmount=\"1\" "
    "UpgradeTime=\"1\"/></Upgrades></B></Buildings></L>";

class Bridge : public ::testing::Test {
protected:
    Bridge() { m_level.start(level); }
    cBridge& bridge() { return dynamic_cast<cBridge&>(*m_level.getBuilding(1)); }
    void wait(Float seconds) { m_level.frames(static_cast<UInt>(seconds * 50.0f)); }

    cSmallLevel m_level;
};

}  // namespace

TEST_F(Bridge, isRepairedThenLoadedThenLeftByItsCaravan) {
    wait(2.0f);
    bridge().createUpgradeGoals();
    wait(15.0f);
    ASSERT_EQ(bridge().getLevel(), 1);
    EXPECT_TRUE(bridge().getCaravan().isShow());
    EXPECT_EQ(bridge().getMark(true), markNone);
    bridge().createUpgradeGoals();
    wait(15.0f);
    EXPECT_TRUE(bridge().isPassed());
    EXPECT_FALSE(bridge().getCaravan().isShow());
    const Float elapsed = bridge().getElapsed();
    wait(1.0f);
    EXPECT_EQ(bridge().getElapsed(), elapsed);
}

TEST_F(Bridge, losesTheGoldenFlagAndThenTheSilverOne) {
    wait(1.0f);
    EXPECT_EQ(bridge().getMark(false), markGold);
    wait(1.5f);
    EXPECT_EQ(bridge().getMark(false), markSilver);
    wait(40.0f);  // each flag takes its man a way
    EXPECT_EQ(bridge().getMark(false), markBlue);
}

TEST(BridgeClock, tellsMinutesAndSecondsUpToAnHour) {
    EXPECT_EQ(cBridge::getTime(-1), u"00:00");
    EXPECT_EQ(cBridge::getTime(245), u"04:05");
    EXPECT_EQ(cBridge::getTime(3600), u"00:00");
}
