#include "Game/GameLogic/roads/DamagedRoad.h"

#include <gtest/gtest.h>

#include "Engine/Ui/Storage.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

namespace {

// 0 (start point) --road-- 1 --road-- 2, ground 0-2, 2-3, 3-4, 1-5, 1-7; 5 --enemy's fence-- 6, 7 is a bunker,
// 2 --enemy's road-- 8
const char level_of_nine[] =
    "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/><P Pos=\"300,350\"/><P Pos=\"400,300\"/>"
    "<P Pos=\"500,300\"/><P Pos=\"200,200\"/><P Pos=\"300,200\"/><P Pos=\"200,400\"/><P Pos=\"300,450\"/></Points>"
    "<Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" p2=\"2\" Type=\"1\"/><A p1=\"0\" p2=\"2\"/>"
    "<A p1=\"2\" p2=\"3\"/><A p1=\"3\" p2=\"4\"/><A p1=\"1\" p2=\"5\"/><A p1=\"5\" p2=\"6\" Type=\"4\"/>"
    "<A p1=\"1\" p2=\"7\"/><A p1=\"2\" p2=\"8\" Type=\"2\"/></Arcs><Buildings>"
    "<B Type=\"8\" Position=\"100,300\"><Points><P index=\"0\"/></Points></B>"
    "<B Type=\"15\" Position=\"200,400\"><Points><P index=\"7\"/></Points></B></Buildings></L>";

cDamagedRoad* findTrack(Int p0, Int p1) {
    for (const auto& [number, road] : cStorage<cDamagedRoad>::getStorage()) {
        if (road->joins(p0, p1))
            return road;
    }
    return nullptr;
}

}  // namespace

TEST(DamagedRoad, canBeOrderedWhereOneEndIsThePlayersAndNothingOfTheEnemysIsNear) {
    struct sCase {
        Int p0, p1;
        Bool connected, enabled;
        const char* why;
    };
    const sCase cases[] = {
        {0, 1, false, false, "both ends are joined by a road"},
        {0, 2, true, true, "bare ground between two points of the net"},
        {2, 3, true, true, "one end on the net"},
        {3, 4, false, false, "far from the net"},
        {1, 5, false, false, "a shut gate at the other end"},
        {1, 7, false, false, "a bunker at the other end"},
        {2, 8, true, false, "the enemy's road on it"},
    };
    cSmallLevel level;
    level.start(level_of_nine);
    for (const sCase& test : cases) {
        const cDamagedRoad* track = findTrack(test.p0, test.p1);
        ASSERT_NE(track, nullptr) << test.why;
        EXPECT_EQ(track->isPlayerConnected(), test.connected) << test.why;
        EXPECT_EQ(track->isEnabled(), test.enabled) << test.why;
    }
    level.getMap().setArcType(2, 3, ARC_ROAD_IN_PROGRESS);
    level.getMap().updateView(false);
    EXPECT_FALSE(findTrack(2, 3)->isEnabled());  // men are at it
}
