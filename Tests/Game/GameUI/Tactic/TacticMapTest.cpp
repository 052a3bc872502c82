#include "Game/GameUI/Tactic/TacticMap.h"

#include <gtest/gtest.h>

#include "Tests/Support/SmallLevel.h"

// 0 (start point) --road 100-- 1 --road 100-- 2,  0 --ground-- 3
const char level_of_four[] =
    "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/><P Pos=\"300,300\"/><P Pos=\"100,400\"/>"
    "</Points><Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" p2=\"2\" Type=\"1\"/><A p1=\"0\" p2=\"3\" Type=\"0\"/>"
    "</Arcs><Buildings>";

TEST(TacticMap, bearsTheFirstMenWhoThenFindRoomToStand) {
    cSmallLevel level;
    level.start(level_of_four + startPoint("100,300", 5) + "</Buildings></L>");
    EXPECT_EQ(level.getMap().getNumberOfMen(), 5);
    EXPECT_TRUE(level.getMap().getMen().empty());  // the caravan is on its way
    level.frames(1000);
    ASSERT_EQ(level.getMap().getMen().size(), 5u);
    for (const cFriendMan* man : level.getMap().getMen())
        EXPECT_TRUE(man->isIdle());
    // Each place of his net takes one; who finds none stays at the building. Point 3 is not his.
    EXPECT_EQ(level.getMap().countMen(1), 1);
    EXPECT_EQ(level.getMap().countMen(2), 1);
    EXPECT_EQ(level.getMap().countMen(3), 0);
    EXPECT_EQ(level.getMap().getArrangementUnit(0)->getRing().size(), 3u);
}
