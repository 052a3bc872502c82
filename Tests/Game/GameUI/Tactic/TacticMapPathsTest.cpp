#include <gtest/gtest.h>

#include "Game/GameLogic/WayPoint.h"
#include "Tests/Support/SmallLevel.h"

namespace {

// Roads but where something else is said; 0 is the start point, 7 and 8 lie under a bunker.
//
//     0 -- 1 -- 2 --enemy's fence-- 3       7 = 8 --enemy's road-- 9 --enemy's bridge-- 10 --fence-- 11
//          |    +-- 4                       |                                           +--enemy's road-- 12
//          +--bridge-- 5 --bridge site-- 6  1
const char level_of_both_sides[] =
    "<L Size=\"800,600\"><Points><P Pos=\"50,300\"/><P Pos=\"100,300\"/><P Pos=\"150,300\"/><P Pos=\"200,300\"/>"
    "<P Pos=\"150,350\"/><P Pos=\"100,350\"/><P Pos=\"100,400\"/><P Pos=\"100,200\"/><P Pos=\"150,200\"/>"
    "<P Pos=\"200,200\"/><P Pos=\"250,200\"/><P Pos=\"300,200\"/><P Pos=\"250,250\"/></Points><Arcs>"
    "<A p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" p2=\"2\" Type=\"1\"/><A p1=\"2\" p2=\"3\" Type=\"4\"/>"
    "<A p1=\"2\" p2=\"4\" Type=\"1\"/><A p1=\"1\" p2=\"5\" Type=\"11\"/><A p1=\"5\" p2=\"6\" Type=\"10\"/>"
    "<A p1=\"1\" p2=\"7\" Type=\"1\"/><A p1=\"7\" p2=\"8\" Type=\"0\"/><A p1=\"8\" p2=\"9\" Type=\"2\"/>"
    "<A p1=\"9\" p2=\"10\" Type=\"13\"/><A p1=\"10\" p2=\"11\" Type=\"3\"/><A p1=\"10\" p2=\"12\" Type=\"2\"/></Arcs>"
    "<Buildings><B Type=\"8\" Position=\"50,300\"><Points><P index=\"0\"/></Points></B>"
    "<B Type=\"15\" Position=\"120,200\"><Points><P index=\"7\"/><P index=\"8\"/></Points></B></Buildings></L>";

class TacticMapPaths : public testing::Test {
protected:
    void SetUp() override { m_level.start(level_of_both_sides); }
    std::vector<Int> getConnected(Bool player) {
        std::vector<Int> res;
        for (const sPointInfo& point : map().getPoints()) {
            if (player ? point.player_connected : point.enemy_connected)
                res.push_back(point.index);
        }
        return res;
    }
    cTacticMap& map() { return m_level.getMap(); }

    cSmallLevel m_level;
};

}  // namespace

TEST_F(TacticMapPaths, netsReachWhatClosesThemAndEndThere) {
    EXPECT_EQ(getConnected(true), (std::vector<Int>{0, 1, 2, 5, 7}));
    EXPECT_EQ(getConnected(false), (std::vector<Int>{7, 8, 9, 10}));
    EXPECT_EQ(map().getPoint(8).getArcType(7), ARC_INSIDE_BUILDING);

    map().setArcType(2, 3, ARC_ENEMY_FENCE_SITE);
    map().setArcType(10, 11, ARC_PLAYER_FENCE_SITE);
    map().setArcType(5, 6, ARC_PLAYER_BRIDGE);
    map().updateView(false);
    EXPECT_EQ(getConnected(true), (std::vector<Int>{0, 1, 2, 4, 5, 6, 7}));
    EXPECT_EQ(getConnected(false), (std::vector<Int>{7, 8, 9, 10, 12}));
}

TEST_F(TacticMapPaths, aPointLooksLikeTheSideThatHoldsIt) {
    const auto name = [&](Int point) { return map().getPoint(point).way_point->getVisualStateName(); };
    EXPECT_EQ(name(12), "wp_neutral");
    EXPECT_EQ(name(7), "wp_border");
    EXPECT_EQ(name(6), "wp_player");  // a place for a bridge of his
    EXPECT_EQ(name(2), "wp_enemy");   // the gate is shut, although his road leads there
    map().setArcType(2, 3, ARC_ENEMY_FENCE_SITE);
    map().setArcType(10, 11, ARC_PLAYER_FENCE_SITE);
    map().updateView(false);
    EXPECT_EQ(name(4), "wp_player");
    EXPECT_EQ(name(12), "wp_enemy");
}

TEST_F(TacticMapPaths, aRoadIsFoundByEitherOfItsEnds) {
    EXPECT_TRUE(map().hasRoad(1, 0, true));
    EXPECT_FALSE(map().hasRoad(8, 9, true));
    EXPECT_TRUE(map().hasRoad(8, 9, false));
    EXPECT_TRUE(map().hasRoad(7, 8, true));  // inside of the bunker
    EXPECT_TRUE(map().hasRoad(-1, 0, true));
    EXPECT_FALSE(map().hasRoad(0, -1, true));  // roads run from the larger index to the smaller
    EXPECT_TRUE(map().hasFence(10, -1, true));
    map().deleteRoad(0, 1, false, true);
    EXPECT_FALSE(map().hasRoad(0, 1, true));
    EXPECT_EQ(map().getPoint(0).getArcType(1), ARC_GROUND);
    EXPECT_EQ(getConnected(true), (std::vector<Int>{0}));
    m_level.frames(2);
}
