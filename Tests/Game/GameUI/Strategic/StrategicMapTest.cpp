#include "Game/GameUI/Strategic/StrategicMap.h"

#include <gtest/gtest.h>

#include "Tests/Support/SmallLevel.h"

TEST(StrategicMap, tellsWhatIsWrongWithALevelAndIsThereForTheNextOne) {
    cSmallLevel fixture;
    Engine::cHeadlessProgram& program = fixture.getProgram();
    program.write("UI/GameMenu.xml", "<Menu/>");
    program.write("GameUI/Strategic/StrategicMap.xml",
                  "<Map Visible=\"1\" Enable=\"1\"><NodeButton size=\"20,20\"/><LevelNodes>"
                  "<N position=\"100,100\"/><N position=\"200,100\"/></LevelNodes></Map>");
    program.write("LevelMap.lvl",
                  "<LevelMap><L Size=\"800,600\"><Points><P Pos=\"1e30,0\"/></Points></L>"
                  "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/></Points><Buildings>" +
                      startPoint("100,300", 1) + "</Buildings></L></LevelMap>");
    program.start();
    auto* map = new cStrategicMap(nullptr);
    map->show();
    map->enable();
    Engine::cProfile::getInts()["CurrentLevel"] = -1;

    map->enterLevel(0, false);
    ASSERT_EQ(program.getPlatform().getMessageBoxes().size(), 1u);
    EXPECT_EQ(program.getPlatform().getMessageBoxes()[0],
              u"LevelMap.lvl, level 0, Points 0: \"Pos\" is no place on a map");
    EXPECT_EQ(Engine::cProfile::getInts()["CurrentLevel"], -1);
    EXPECT_FALSE(cTacticMap::getInstance()->hasLevel());
    EXPECT_TRUE(map->isShown() && map->isEnabled());

    map->enterLevel(1, false);
    program.frames(100);
    EXPECT_TRUE(cTacticMap::getInstance()->hasLevel());
    EXPECT_FALSE(cTacticMap::getInstance()->isLocked());
}
