#include <gtest/gtest.h>

#include <algorithm>

#include "Engine/Ui/Storage.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/buildings/Catapult.h"
#include "Game/GameLogic/buildings/Idol.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

namespace {

constexpr char upgrades[] =
    "<Upgrades><U UpgradeTime=\"1\" MenAmount=\"1\" Wood=\"1\" DamageRadius=\"250\"/>"
    "<U UpgradeTime=\"1\" MenAmount=\"1\" DamageRadius=\"250\"/><U DamageRadius=\"250\"/><U "
    "DamageRadius=\"250\"/></Upgrades>";

// 0 (start point, 3 wood) == 1 == 2 (both) -- 3 (both, not connected); 4 (bunker) ==enemy's== 5; 1 --site-- 6 --site--
// 7
constexpr char points[] =
    "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\" Opt=\"3\"/><P Pos=\"300,300\" Opt=\"3\"/>"
    "<P Pos=\"400,300\" Opt=\"3\"/><P Pos=\"500,300\"/><P Pos=\"450,200\"/><P Pos=\"200,400\" Opt=\"3\"/><P "
    "Pos=\"200,500\"/>"
    "</Points><Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" p2=\"2\" Type=\"1\"/><A p1=\"2\" p2=\"3\"/>"
    "<A p1=\"3\" p2=\"4\"/><A p1=\"4\" p2=\"5\" Type=\"2\"/><A p1=\"1\" p2=\"6\" Type=\"5\" Wood=\"1\"/>"
    "<A p1=\"0\" p2=\"6\" Type=\"1\"/><A p1=\"6\" p2=\"7\" Type=\"5\"/></Arcs><Buildings>";

class cSiteLevel : public cSmallLevel {
public:
    cSiteLevel() {
        for (const Int type : {objectIdol, objectPlayerCatapult})
            write(type, "IsDeepProcessing=\"1\" size=\"40,30\"", upgrades);
        write(objectPlayerFence, "default_building_time=\"1\"",
              "<TileFence size=\"20,60\"/><TileFencePlace size=\"20,20\"/><Upgrades><U UpgradeTime=\"1\" "
              "MenAmount=\"1\"/>"
              "<U/></Upgrades>");
        getProgram().write("GameLogic/Target.xml", "<T><TargetButton size=\"20,20\"/><AttackIcon size=\"9,9\"/></T>");
        getProgram().write("GameLogic/WayPoint.xml",
                           "<W size=\"40,30\" Enable=\"1\"><Gates size=\"40,50\" anim_length=\"1\"/></W>");
        start(points + startPoint("100,300", 3) +
              "<B Type=\"15\" Position=\"500,300\"><Points><P index=\"4\"/></Points></B></Buildings></L>");
        for (const Int plan : {26, 27, 31, 32})
            getMap().setProduct(plan, 1);
        frames(200);  // the men are born
    }

    cWayPoint& getWayPoint(Int point) { return *getMap().getPoint(point).way_point; }
    Int getWood() { return getMap().getGlobalCargo(true)[resourceWood]; }
    void click(Float x, Float y) { getProgram().click(x, y); }
    template <class F>
    Bool playUntil(F&& is_done) {
        for (Int i = 0; i < 3000 && !is_done(); ++i)
            frames(1);
        return is_done();
    }
    void buildIdol() {
        getMap().showIdols(true);
        click(300.0f, 300.0f);
        ASSERT_TRUE(
            playUntil([this] { return getWayPoint(2).getIdol() && getWayPoint(2).getIdol()->getLevel() == 1; }));
    }

private:
    void write(Int type, const char* keys, const char* children) {
        getProgram().write(
            cLevelObject::getDefinitionFile(type),
            String("<O Enable=\"1\" ellipse_a=\"20\" ellipse_b=\"12\" ") + keys + ">" + children + "</O>");
    }
};

Int countBuildings(Int type) {
    return static_cast<Int>(std::ranges::count_if(
        cBuilding::getStorage(), [type](const cBuilding* building) { return building->getType() == type; }));
}

}  // namespace

TEST(WayPointSites, anIdolIsProposedOnEveryFreePlaceOfTheNetAndAPressDropsWhatWasNotPlaced) {
    cSiteLevel level;
    level.getMap().showIdols(true);
    EXPECT_FALSE(level.getWayPoint(1).getIdol());  // the end of a line of fences
    EXPECT_TRUE(level.getWayPoint(2).hasProposedIdol());
    EXPECT_FALSE(level.getWayPoint(3).getIdol());  // not on the player's net
    EXPECT_FALSE(level.getWayPoint(2).isShown());
    EXPECT_EQ(level.getMap().getPoint(2).building, nullptr);

    level.click(600.0f, 500.0f);
    EXPECT_FALSE(level.getMap().isIdolInHand());
    EXPECT_EQ(countBuildings(objectIdol), 0);
    EXPECT_TRUE(level.getWayPoint(2).isShown());
    EXPECT_EQ(level.getWood(), 3);
}

TEST(WayPointSites, aPressOrdersTheIdolWhichTakesItsPointWhenItStandsAndLeavesItWhenItFalls) {
    cSiteLevel level;
    level.buildIdol();
    cIdol* idol = level.getWayPoint(2).getIdol();
    EXPECT_EQ(level.getMap().getPoint(2).building, idol);
    EXPECT_EQ(countBuildings(objectIdol), 1);  // the other proposal is gone
    EXPECT_EQ(level.getWood(), 2);
    EXPECT_FALSE(level.getWayPoint(2).isShown());
    EXPECT_FLOAT_EQ(idol->getMapCenter().x, 300.0f);

    level.getWayPoint(2).damage();
    level.frames(5);
    EXPECT_EQ(level.getWayPoint(2).getIdol(), nullptr);
    EXPECT_EQ(level.getMap().getPoint(2).building, nullptr);
    EXPECT_FALSE(level.getMap().hasRoad(2, -1, true) || level.getMap().hasRoad(-1, 2, true));
    level.frames(500);
    EXPECT_EQ(level.getMap().getFreeMenList().size(), 3u);
}

TEST(WayPointSites, callingTheOrderOffRemovesTheSiteAndGivesTheGoodsBack) {
    cSiteLevel level;
    level.getMap().showIdols(true);
    level.click(300.0f, 300.0f);
    ASSERT_TRUE(level.getWayPoint(2).hasProposedIdol());
    EXPECT_EQ(level.getWood(), 2);
    level.getMap().callOffOrder(*level.getWayPoint(2).getIdol());
    level.frames(300);
    EXPECT_EQ(level.getWayPoint(2).getIdol(), nullptr);
    EXPECT_EQ(countBuildings(objectIdol), 0);
    EXPECT_EQ(level.getWood(), 3);
}

TEST(WayPointSites, theCatapultThatIsOrderedWhereAnIdolStandsTakesItsPlace) {
    cSiteLevel level;
    level.buildIdol();
    level.getMap().showCatapults(true);
    ASSERT_TRUE(level.getWayPoint(2).hasProposedCatapult());
    level.click(300.0f, 300.0f);
    EXPECT_EQ(level.getWayPoint(2).getIdol(), nullptr);
    ASSERT_TRUE(level.playUntil([&] {
        const cCatapult* catapult = level.getWayPoint(2).getCatapult();
        return catapult && catapult->getLevel() == 1;
    }));
    EXPECT_EQ(level.getMap().getPoint(2).building, level.getWayPoint(2).getCatapult());
    EXPECT_EQ(countBuildings(objectIdol), 0);
    EXPECT_FALSE(level.getMap().isCatapultInHand());
}

TEST(WayPointSites, aFenceThatRisesClearsItsEndsAndItsGateGrowsWithIt) {
    cSiteLevel level;
    level.getMap().showIdols(true);
    level.click(200.0f, 400.0f);
    ASSERT_TRUE(level.getWayPoint(6).hasProposedIdol());
    auto& fence = dynamic_cast<cPlayerFence&>(*level.getMap().getFence(1, 6, false));
    fence.clicked();
    ASSERT_TRUE(level.playUntil([&] { return fence.isGrowing(); }));
    EXPECT_TRUE(level.getWayPoint(6).hasGates());
    ASSERT_TRUE(level.playUntil([&] { return fence.getLevel() == 1; }));
    level.frames(5);
    EXPECT_EQ(level.getWayPoint(6).getIdol(), nullptr);
    EXPECT_EQ(countBuildings(objectIdol), 0);
    level.frames(500);
    EXPECT_EQ(level.getMap().getFreeMenList().size(), 3u);
}

TEST(WayPointSites, aCatapultOffersWhatItsLevelReachesUntilThePointerLeavesIt) {
    cSiteLevel level;
    level.getMap().showCatapults(true);
    level.click(300.0f, 300.0f);
    auto* catapult = dynamic_cast<cPlayerCatapult*>(level.getWayPoint(2).getCatapult());
    ASSERT_TRUE(level.playUntil([&] { return catapult->getLevel() == 1; }));
    const Vector2 bunker{500.0f, 300.0f};
    const Vector2 road_middle{475.0f, 250.0f};
    cRoadEnemy& road = *cStorage<cRoadEnemy>::getStorage().begin()->second;

    level.getMap().showTargets(catapult, true);
    EXPECT_TRUE(road.isTargetButtonAt(road_middle));
    EXPECT_FALSE(level.getBuilding(4)->isTargetButtonAt(bunker));
    catapult->setLevel(3);
    level.getMap().showTargets(catapult, true);
    EXPECT_TRUE(level.getBuilding(4)->isTargetButtonAt(bunker));

    road.damage();  // while it is on show
    EXPECT_FALSE(road.isTargetButtonAt(road_middle));
    level.getMap().hideTargets();
    EXPECT_FALSE(level.getBuilding(4)->isTargetButtonAt(bunker));
}
