#include "Game/GameLogic/bridgeroads/BridgeRoad.h"

#include <gtest/gtest.h>

#include "Engine/Ui/Storage.h"
#include "Game/GameLogic/bridgeroads/BridgesPlan.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

namespace {

const char bridge_definition[] =
    "<B size=\"44,44\" Enable=\"1\" IsDeepProcessing=\"1\" damaged_tile_length=\"20\"><TileBridge size=\"20,40\"/>"
    "<TileBridgePlace size=\"20,40\"/><LeftBridge size=\"10,40\"/><RightBridge size=\"10,40\"/>"
    "<LeftBridgeDamaged size=\"10,40\"/><RightBridgeDamaged size=\"10,40\"/>"
    "<Upgrades><U UpgradeTime=\"1\" MenAmount=\"2\"/><U/></Upgrades></B>";

/// 0 (start point, 3 wood) ==road== 1 --site-- 2 --site-- 3 --ground-- 4, and another site 4 --site-- 5
class cBridgeRoadLevel : public cSmallLevel {
public:
    cBridgeRoadLevel() {
        getProgram().write(cLevelObject::getDefinitionFile(objectPlayerBridgeRoad), bridge_definition);
        const std::string site = "Type=\"10\" Wood=\"2\"/>";
        start(
            "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/><P Pos=\"300,300\"/>"
            "<P Pos=\"400,300\"/><P Pos=\"500,300\"/><P Pos=\"600,300\"/></Points><Arcs>"
            "<A p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" p2=\"2\" " +
            site + "<A p1=\"2\" p2=\"3\" " + site + "<A p1=\"3\" p2=\"4\"/><A p1=\"4\" p2=\"5\" " + site +
            "</Arcs><Buildings>" + startPoint("100,300", 3) + "</Buildings></L>");
        frames(200);  // the men are born
    }

    cPlayerBridgeRoad& getBridge(Int a, Int b) {
        return dynamic_cast<cPlayerBridgeRoad&>(*getMap().getBridgeRoad(a, b, false));
    }
    Int getArc(Int a, Int b) { return getMap().getPoint(a).getArcType(b); }
    Int getWood() { return getMap().getGlobalCargo(true)[resourceWood]; }
    std::size_t countGoals() { return getMap().getGoals()->getGoals().size(); }
    Bool canWalk(Int from, Int to) {
        PATH_HOLDER path;
        return getMap().getBestPathByRoads(nullptr, from, to, path, true, true, false);
    }
    Bool buildRun() {
        getBridge(1, 2).clicked();
        for (Int i = 0; i < 3000 && getBridge(1, 2).getLevel() == 0; ++i)
            frames(1);
        return getBridge(1, 2).getLevel() == 1;
    }
};

}  // namespace

TEST(BridgeRoad, oneClickBuildsTheWholeRunForThePriceOfOnePieceAndOpensTheWay) {
    cBridgeRoadLevel level;
    EXPECT_FALSE(level.canWalk(0, 3));
    EXPECT_TRUE(level.getBridge(1, 2).isActive());
    EXPECT_FALSE(level.getBridge(4, 5).isActive());
    level.getBridge(4, 5).clicked();  // nobody can get there
    level.getBridge(2, 3).clicked();  // nor to this piece alone
    EXPECT_EQ(level.countGoals(), 0u);

    level.getBridge(1, 2).clicked();
    level.getBridge(1, 2).clicked();         // once is enough
    EXPECT_EQ(level.countGoals(), 2u + 2u);  // two loads of wood, two builders
    ASSERT_TRUE(level.buildRun());
    EXPECT_EQ(level.getArc(1, 2), ARC_PLAYER_BRIDGE);
    EXPECT_EQ(level.getArc(3, 2), ARC_PLAYER_BRIDGE);
    EXPECT_EQ(level.getArc(4, 5), ARC_PLAYER_BRIDGE_SITE);
    EXPECT_EQ(level.getWood(), 1);
    EXPECT_TRUE(level.getMap().getPoint(3).player_connected);
    EXPECT_TRUE(level.canWalk(0, 3));
    level.frames(500);
    EXPECT_EQ(level.getMap().getFreeMenList().size(), 3u);
}

TEST(BridgeRoad, aHitMakesThatPieceASiteAgain) {
    cBridgeRoadLevel level;
    ASSERT_TRUE(level.buildRun());
    level.getBridge(2, 3).damage();
    EXPECT_EQ(level.getArc(2, 3), ARC_PLAYER_BRIDGE_SITE);
    EXPECT_EQ(level.getArc(1, 2), ARC_PLAYER_BRIDGE);
    EXPECT_FALSE(level.getMap().getPoint(3).player_connected);
    EXPECT_EQ(cBridgesPlan(level.getBridge(2, 3)).getBridges().size(), 1u);
}

TEST(BridgeRoad, anOrderCalledOffGivesItsGoodsBack) {
    cBridgeRoadLevel level;
    level.getBridge(1, 2).clicked();
    level.getMap().clearTasks();
    EXPECT_EQ(level.getWood(), 3);
    EXPECT_EQ(level.getBridge(1, 2).getUpgradeState(), cUpgradableUnit::idle);
    EXPECT_TRUE(level.buildRun());
}
