#include "Game/GameLogic/buildings/StartPoint.h"

#include <gtest/gtest.h>

#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/Ui/GameStrings.h"
#include "Tests/Support/SmallLevel.h"

namespace {

constexpr UInt esc = 1;
constexpr UInt enter = 28;
const Vector2 camp(100.0f, 300.0f);
const Vector2 plank(48.0f, 300.0f);  // of the bridge, which runs to the left

std::string makeLevel(Int previous) {
    return "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/></Points><Buildings><B Type=\"8\" Position=\"100,300\" "
           "Angle=\"180\" Capacity=\"50\" PrevLevel=\"" +
           std::to_string(previous) + "\" MenAmount=\"0\"><Points><P index=\"0\"/></Points></B></Buildings></L>";
}

/// Two levels, and the player on one of them.
class StartPoint : public ::testing::Test {
protected:
    StartPoint() {
        for (const char* texts : {"GameStrings.xml", "YesNoStrings.xml"})
            program.write(texts, "<g><Strings/></g>");
        program.write("UI/GameMenu.xml", "<Menu/>");
        program.write("UI/YesNo.xml", "<Question Visible=\"1\" Enable=\"1\"/>");
        program.write(cLevelObject::getDefinitionFile(objectStartPoint),
                      "<S size=\"20,20\" Enable=\"1\" ellipse_a=\"20\" ellipse_b=\"12\" speed=\"400\">"
                      "<BridgeTile size=\"16,16\" Visible=\"1\" Enable=\"1\"/></S>");
        program.write("GameUI/Strategic/StrategicMap.xml",
                      "<Map Visible=\"1\" Enable=\"1\"><NodeButton size=\"20,20\"/><FogPrototypes/><LevelNodes>"
                      "<N position=\"700,100\"/><N position=\"700,200\"/></LevelNodes></Map>");
        program.write("LevelMap.lvl", "<LevelMap>" + makeLevel(-1) + makeLevel(0) + "</LevelMap>");
        program.start();
    }
    void begin(Int level) {
        if (!cStrategicMap::getInstance())
            new cStrategicMap(nullptr);
        cStrategicMap::getInstance()->enterLevel(level, false);
        program.frames(100);
        ASSERT_FALSE(map().isLocked());
    }
    void click(const Vector2& place) {
        program.click(place.x, place.y);
        program.frames(20);  // a question has faded in
    }
    void key(UInt code) {
        program.getPlatform().pushKey(code, true);
        program.getPlatform().pushKey(code, false);
        program.frames(100);  // whatever comes has rolled in
    }
    static cTacticMap& map() { return *cTacticMap::getInstance(); }
    static Int level() { return Engine::cProfile::getInts()["CurrentLevel"]; }

    cSmallLevel fixture;
    Engine::cHeadlessProgram& program = fixture.getProgram();
};

}  // namespace

TEST_F(StartPoint, andItsBridgeLeadBackToTheLevelBeforeIfThePlayerConfirmsIt) {
    const cGameStrings texts;
    for (const Vector2& place : {camp, plank}) {
        begin(1);
        click(place);
        EXPECT_TRUE(map().isLocked());
        EXPECT_FALSE(map().isEnabled());
        click(place);  // the question stands over it
        key(esc);
        EXPECT_FALSE(map().isLocked());
        EXPECT_TRUE(map().isEnabled());
        EXPECT_EQ(level(), 1);

        click(place);
        key(enter);
        EXPECT_EQ(level(), 0);
        EXPECT_FALSE(map().isLocked());
        EXPECT_TRUE(map().isEnabled());
        map().clear();
    }
}

TEST_F(StartPoint, ofTheFirstLevelLeadsNowhere) {
    const cGameStrings texts;
    begin(0);
    for (const Vector2& place : {camp, plank}) {
        click(place);
        EXPECT_FALSE(map().isLocked());
    }
}
