#include "Game/GameLogic/fences/Fence.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Engine/Ui/Storage.h"
#include "Game/GameLogic/UpgradableUnit.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/fences/FencePlan.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/roads/Road.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

namespace {

const char fence_definition[] =
    "<F size=\"44,44\" Enable=\"1\" IsDeepProcessing=\"1\" default_building_time=\"1\" gate_gap=\"20\">"
    "<TileFence size=\"20,60\"/><TileFencePlace size=\"20,20\"/><FenceTower size=\"30,90\"/>"
    "<Upgrades><U UpgradeTime=\"1\" MenAmount=\"2\"/><U/></Upgrades></F>";

// 0 (start point, 3 wood) ==road== 1 --site-- 2 --site-- 3 --site-- 4, and ground 1-5, 4-8, 7-8;
// 6 (bunker) ==enemy's road== 5 == 2 == 9; 4 --enemy's site-- 7
std::string makeLevel(const std::string& price) {
    const std::string site = "Type=\"5\" " + price + "/>";
    return "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/><P Pos=\"200,400\"/>"
           "<P Pos=\"300,400\"/><P Pos=\"400,400\"/><P Pos=\"300,300\"/><P Pos=\"400,300\"/><P Pos=\"500,400\"/>"
           "<P Pos=\"600,400\"/><P Pos=\"200,500\"/></Points><Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" "
           "p2=\"2\" " +
           site + "<A p1=\"2\" p2=\"3\" " + site + "<A p1=\"3\" p2=\"4\" " + site +
           "<A p1=\"1\" p2=\"5\"/><A p1=\"2\" p2=\"5\" Type=\"2\"/><A p1=\"5\" p2=\"6\" Type=\"2\"/>"
           "<A p1=\"2\" p2=\"9\" Type=\"2\"/>"
           "<A p1=\"4\" p2=\"7\" Type=\"6\"/><A p1=\"7\" p2=\"8\"/><A p1=\"4\" p2=\"8\"/></Arcs><Buildings>" +
           startPoint("100,300", 3) +
           "<B Type=\"15\" Position=\"400,300\"><Points><P index=\"6\"/></Points></B></Buildings></L>";
}

/// A run of three sites from the player's net, with an enemy behind it.
class cFenceLevel : public cSmallLevel {
public:
    explicit cFenceLevel(const std::string& price = "Wood=\"2\"") {
        for (const Int type : {objectPlayerFence, objectEnemyFence})
            getProgram().write(cLevelObject::getDefinitionFile(type), fence_definition);
        start(makeLevel(price));
        frames(200);  // the men are born
    }

    cPlayerFence& getFence(Int a, Int b) { return dynamic_cast<cPlayerFence&>(*getMap().getFence(a, b, false)); }
    cEnemyFence& getEnemyFence() { return dynamic_cast<cEnemyFence&>(*getMap().getFence(4, 7, true)); }
    std::vector<cPlayerFence*> getRun() { return {&getFence(1, 2), &getFence(2, 3), &getFence(3, 4)}; }
    Int getArc(Int a, Int b) { return getMap().getPoint(a).getArcType(b); }
    Int countGoals() { return static_cast<Int>(getMap().getGoals()->getGoals().size()); }
    Int getWood() { return getMap().getGlobalCargo(true)[resourceWood]; }
    Bool isStanding() {
        return std::ranges::all_of(getRun(), [](const cFence* piece) { return piece->getLevel() == 1; });
    }
    Bool isIdle() {
        return std::ranges::all_of(
            getRun(), [](const cFence* piece) { return piece->getUpgradeState() == cUpgradableUnit::idle; });
    }
    template <class F>
    Bool playUntil(F&& is_done) {
        for (Int i = 0; i < 3000 && !is_done(); ++i)
            frames(1);
        return is_done();
    }
    void buildRun() {
        getFence(3, 4).clicked();
        ASSERT_TRUE(playUntil([this] { return isStanding(); }));
    }
};

}  // namespace

TEST(Fence, oneClickOrdersTheWholeRunAndItIsBuiltForThePriceOfItsFirstPiece) {
    cFenceLevel level;
    cPlayerFence& first = level.getFence(1, 2);
    ASSERT_TRUE(level.getFence(3, 4).isActive());  // far from the net, but the run is not
    level.getFence(3, 4).clicked();

    EXPECT_EQ(first.getUpgradeState(), cUpgradableUnit::waitingForResources);
    EXPECT_EQ(level.getFence(2, 3).getUpgradeState(), cUpgradableUnit::UPGRADE_STATE);
    EXPECT_EQ(level.getFence(3, 4).getUpgradeState(), cUpgradableUnit::UPGRADE_STATE);
    EXPECT_EQ(level.countGoals(), 2 + 2);  // two loads of wood, two builders
    level.getFence(2, 3).clicked();        // once is enough
    EXPECT_EQ(level.countGoals(), 2 + 2);

    ASSERT_TRUE(level.playUntil([&] { return first.isGrowing(); }));
    EXPECT_EQ(level.getArc(1, 2), ARC_PLAYER_FENCE_SITE);
    EXPECT_LT(first.getHeight(), 10.0f);
    EXPECT_TRUE(level.getMap().getPoint(3).way_point->isFenceInWork());
    EXPECT_TRUE(level.getMap().getPoint(3).way_point->hasGates());
    ASSERT_TRUE(level.playUntil([&] { return level.isStanding(); }));
    EXPECT_TRUE(level.isIdle());
    EXPECT_EQ(level.getWood(), 1);
    for (const cPlayerFence* piece : level.getRun()) {
        EXPECT_EQ(level.getArc(piece->getP0(), piece->getP1()), ARC_PLAYER_FENCE);
        EXPECT_FLOAT_EQ(piece->getHeight(), 60.0f);
        EXPECT_FALSE(piece->isGrowing());
    }
    EXPECT_FALSE(level.getMap().getPoint(3).way_point->isFenceInWork());
    EXPECT_EQ(first.getTowerCount(), 1u);                 // where no other goes on
    EXPECT_EQ(level.getFence(2, 3).getTowerCount(), 0u);  // between two gates
    EXPECT_EQ(level.getFence(2, 3).getTileCount(), 3u);   // 100 units less two gaps of 20, in pieces of 20
    level.frames(500);
    EXPECT_EQ(level.getMap().getFreeMenList().size(), 3u);
}

TEST(Fence, standingItStopsTheEnemyAndAHitMakesItASiteAgain) {
    cFenceLevel level;
    EXPECT_TRUE(level.getMap().getPoint(9).enemy_connected);
    level.buildRun();
    EXPECT_TRUE(level.getMap().getPoint(2).enemy_connected);  // up to it, and no farther
    EXPECT_FALSE(level.getMap().getPoint(9).enemy_connected);
    PATH_HOLDER path;
    EXPECT_FALSE(level.getMap().getBestPathByRoads(nullptr, 6, 0, path, false, true, false));
    EXPECT_TRUE(level.getMap().getBestPathByRoads(nullptr, 0, 5, path, true, true, false));

    level.getFence(1, 2).damage();
    level.getFence(2, 3).damage();
    EXPECT_TRUE(level.getMap().getPoint(9).enemy_connected);
    EXPECT_EQ(level.getFence(1, 2).getLevel(), 0);
    EXPECT_EQ(level.getArc(2, 1), ARC_PLAYER_FENCE_SITE);
    EXPECT_EQ(level.getArc(3, 4), ARC_PLAYER_FENCE);
    EXPECT_FALSE(level.getFence(1, 2).inDamageArea({200.0f, 350.0f}, 50.0f));
    EXPECT_TRUE(level.getFence(3, 4).inDamageArea({350.0f, 400.0f}, 50.0f));
    EXPECT_EQ(cFencePlan(level.getFence(1, 2)).getFences().size(), 2u);  // the third stands
}

TEST(Fence, anOrderCalledOffLeavesTheRunAsItWas) {
    cFenceLevel level;
    for (const Bool is_rising : {false, true}) {
        level.getFence(2, 3).clicked();
        if (is_rising) {
            ASSERT_TRUE(level.playUntil([&] { return level.getFence(1, 2).isGrowing(); }));
            level.getMap().getBusyMen().front()->holdGlobalGoal()->cancel();
        } else {
            level.getMap().clearTasks();
            EXPECT_EQ(level.getWood(), 3);
        }
        EXPECT_TRUE(level.isIdle());
        EXPECT_EQ(level.countGoals(), 0);
        EXPECT_FALSE(level.getFence(3, 4).isGrowing());
        EXPECT_FALSE(level.getMap().getPoint(3).way_point->isFenceInWork());
    }
    EXPECT_EQ(level.getWood(), 1);  // what was brought is spent
    EXPECT_FALSE(level.getFence(2, 3).isActive());
}

TEST(Fence, withoutAPriceWorkBeginsAtOnce) {
    cFenceLevel level("");
    level.getFence(1, 2).clicked();
    EXPECT_EQ(level.getFence(1, 2).getUpgradeState(), cUpgradableUnit::UPGRADE_STATE);
    EXPECT_TRUE(level.playUntil([&] { return level.isStanding(); }));
}

TEST(Fence, whatCantBePaidIsNotOrdered) {
    cFenceLevel level("Wood=\"4\"");
    level.getFence(2, 3).clicked();
    EXPECT_TRUE(level.isIdle());
    EXPECT_EQ(level.countGoals(), 0);
}

TEST(Fence, oneOfTheEnemysTearsThePlayersRoadsDown) {
    cFenceLevel level;
    cTacticMap& map = level.getMap();
    map.setArcType(4, 8, ARC_PLAYER_ROAD);
    map.setArcType(7, 8, ARC_ROAD_IN_PROGRESS);
    auto* road = static_cast<cRoad*>(cLevelObject::create(objectRoad, map));
    road->setConnectionPoint(4, 8);
    level.getEnemyFence().upgrade();
    EXPECT_EQ(level.getArc(7, 4), ARC_ENEMY_FENCE);
    EXPECT_EQ(level.getArc(4, 8), ARC_GROUND);
    EXPECT_EQ(level.getArc(8, 7), ARC_GROUND);
    EXPECT_FALSE(map.hasRoad(4, 8, true));
    EXPECT_EQ(level.getEnemyFence().getLevel(), 1);
    level.getEnemyFence().damage();
    EXPECT_EQ(level.getArc(4, 7), ARC_ENEMY_FENCE_SITE);
}

TEST(Fence, thePointerHitsItsTilesAndNothingBeside) {
    cFenceLevel level;
    const cPlayerFence& fence = level.getFence(2, 3);
    EXPECT_TRUE(fence.pointInRect({250.0f, 400.0f}));
    EXPECT_TRUE(fence.pointInRect({290.0f, 405.0f}));
    EXPECT_FALSE(fence.pointInRect({250.0f, 380.0f}));
}

// 0 ==road== 1 --fence-- 2 and beyond it 3, with a man there; the run closes every way between the two.
TEST(Fence, finishedAcrossEveryPathItLosesNobodyAndNoGoods) {
    cFenceLevel level;
    cTacticMap& map = level.getMap();
    map.getMen().front()->walkTo(5, false);
    const Int wood = level.getWood();
    level.getFence(1, 2).clicked();
    ASSERT_TRUE(level.playUntil([&] { return level.isStanding(); }));
    level.frames(1000);
    EXPECT_EQ(map.getMen().size(), 3u);
    EXPECT_EQ(map.getFreeMenList().size(), 3u);
    EXPECT_EQ(level.getWood(), wood - 2);
    for (const cFriendMan* man : map.getMen())
        EXPECT_TRUE(map.getPoint(man->getPoint()).player_connected);
}
