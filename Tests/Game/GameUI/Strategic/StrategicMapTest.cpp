#include "Game/GameUI/Strategic/StrategicMap.h"

#include <gtest/gtest.h>

#include <functional>

#include "Engine/Ui/Scavenger.h"
#include "Game/GameLogic/Mark.h"
#include "Game/GameUI/Strategic/StartPointInfo.h"
#include "Game/GameUI/Strategic/StrategicRoll.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameMenu.h"
#include "Game/Ui/GameStrings.h"
#include "Game/Ui/LevelHead.h"
#include "Game/Ui/YesNoExt.h"
#include "Tests/Support/SmallLevel.h"

TEST(StrategicMap, tellsWhatIsWrongWithALevelAndIsThereForTheNextOne) {
    cSmallLevel fixture;
    Engine::cHeadlessProgram& program = fixture.getProgram();
    program.write("UI/GameMenu.xml", "<Menu/>");
    program.write("GameUI/Strategic/StrategicMap.xml",
                  "<Map Visible=\"1\" Enable=\"1\"><NodeButton size=\"20,20\"/><FogPrototypes/><LevelNodes>"
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

namespace {

constexpr UInt enter = 28;
constexpr UInt esc = 1;

/// A game of a known player, with levels of a start point and a bridge each.
class MapOfLevels : public ::testing::Test {
protected:
    MapOfLevels() {
        fixture.getProgram().write("Game.xml",
                                   "<Game AbsoluteEnable=\"1\"><StartProducts><P id=\"1\"/></StartProducts></Game>");
        write("UI/GameMenu.xml", "<Menu/>");
        write("UI/YesNo.xml", "<YesNo/>");
        write("UI/Load.xml", "<Load Visible=\"1\" Enable=\"1\"/>");
        write("GameStrings.xml", "<G/>");
        write("YesNoStrings.xml", "<G/>");
        write(
            "GameUI/Strategic/StrategicMap.xml",
            "<Map tut_levels_number=\"1\"><NodeButton size=\"20,20\"><Tip><CargoText "
            "String=\"Level\"/></Tip></NodeButton>"
            "<FlagPrototype size=\"4,4\"/><NumberPrototype position=\"0,20\"/>"
            "<FogPrototypes><F size=\"8,8\" position=\"0,-4\"/></FogPrototypes><LevelNodes>"
            "<N position=\"100,100\" flag0=\"110,90\"/><N position=\"200,100\"/><N position=\"300,100\"/></LevelNodes>"
            "</Map>");
        const std::string level =
            "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"300,300\"/></Points><Arcs>"
            "<A p1=\"0\" p2=\"1\" Type=\"1\"/></Arcs><Buildings>" +
            startPoint("100,300", 1) +
            "<B Type=\"14\" Position=\"300,300\" BridgeNumber=\"0\" NextLevel=\"1\" GoldTime=\"9\" "
            "SilverTime=\"9\"><Points><P index=\"1\"/></Points><Upgrades><U/><U/></Upgrades></B></Buildings></L>";
        write("LevelMap.lvl", "<LevelMap>" + level + level + level + "</LevelMap>");
    }
    ~MapOfLevels() override {
        program.stop();
        Engine::cProfile::close();
        Engine::cProfile::setInitHook(nullptr);
    }
    void write(const Engine::String& name, const std::string& text) { program.write(name, text); }

    void start(bool is_known) {
        program.start();
        strings = std::make_unique<cGameStrings>();
        Engine::cProfile::setInitHook(cGame::onInitProfile);
        Engine::cProfile::open(u"Anna");
        if (is_known)
            Engine::cProfile::getInts()["started"] = 1;
        enterGame();
    }
    void enterGame() {
        new cGame(nullptr, false);
        for (int i = 0; i < 100 && !cStrategicMap::getInstance(); ++i)
            program.frame();
    }
    void leaveGame() {
        Engine::discard(cGameMenu::getInstance(), "test");
        Engine::discard(cGame::getInstance(), "test");
        program.frame();
    }
    /// A record of level 0 that ends behind its head.
    void putRecord(bool completed, Int mark) {
        sLevelHead head{.completed = completed, .marks = {mark}};
        head.serialize(*cGame::getInstance()->createSavedLevel(0)->createWriter());
    }
    void pushKey(UInt code) {
        program.getPlatform().pushKey(code, true);
        program.getPlatform().pushKey(code, false);
        program.frames(30);
    }
    void clickNode(Float x) { program.click(x, 100); }
    /// Both the buttons and the pictures of the map lie among its children.
    static const cTips<cStrategicMap::cStartPointInfo>* node(Int level) {
        const cTips<cStrategicMap::cStartPointInfo>* found = nullptr;
        for (Engine::cView* child : children()) {
            const auto* info = dynamic_cast<const cTips<cStrategicMap::cStartPointInfo>*>(child);
            if (info && info->getLevel() == level)
                found = info;
        }
        return found;
    }
    static std::vector<Engine::cView*> children() {
        std::vector<Engine::cView*> res;
        struct cOpen : Engine::cView {
            using cView::getChildren;
        };
        (cStrategicMap::getInstance()->*&cOpen::getChildren)().walk(
            [&](Engine::cView* child) { res.push_back(child); });
        return res;
    }
    static int countFlags() {
        int count = 0;
        for (Engine::cView* child : children()) {
            const auto* flag = dynamic_cast<Engine::cPicture*>(child);
            count += flag && flag->isShow() && flag->getSize() == Vector2(4.0f, 4.0f) &&
                     flag->getPosition() == Vector2(110.0f, 90.0f);
        }
        return count;
    }

    cSmallLevel fixture;
    Engine::cHeadlessProgram& program = fixture.getProgram();
    Engine::cWorkingDirectory working{program.getDirectory()};
    std::unique_ptr<cGameStrings> strings;
};

}  // namespace

TEST_F(MapOfLevels, hasFogOverWhatIsClosed) {
    start(true);
    EXPECT_TRUE(node(0)->isEnabled());
    EXPECT_FALSE(node(0)->getFog()->isShow());
    EXPECT_FALSE(node(1)->isEnabled());
    EXPECT_TRUE(node(1)->getFog()->isShow());
    EXPECT_EQ(node(1)->getFog()->getPosition(), Vector2(200.0f, 96.0f));
    EXPECT_FALSE(cStrategicMap::getInstance()->isAllLevelsOpened(markBlue, 1));
    EXPECT_TRUE(cStrategicMap::getInstance()->isAllLevelsOpened(markGold, 0));
}

TEST_F(MapOfLevels, keepsTheBestFlagOfALevelThatIsPlayedAllOver) {
    start(true);
    putRecord(true, markGold);
    cGame::getInstance()->saveLevels();
    leaveGame();
    enterGame();
    EXPECT_EQ(countFlags(), 1);
    EXPECT_EQ(node(0)->getMark(), markGold);
    putRecord(false, markNone);  // left in the middle of playing it again
    cGame::getInstance()->saveLevels();
    leaveGame();
    Engine::cProfile::close();
    Engine::cProfile::open(u"Anna");
    enterGame();
    EXPECT_EQ(countFlags(), 1);
    EXPECT_TRUE(cStrategicMap::getInstance()->isAllLevelsOpened(markGold, 1));
    cStrategicMap::getInstance()->showUI(false);
    EXPECT_EQ(countFlags(), 0);
}

TEST_F(MapOfLevels, asksWhetherAFinishedLevelIsPlayedAgain) {
    start(true);
    cStrategicMap::getInstance()->enterLevel(0, false);
    program.frames(100);
    cTacticMap::getInstance()->setLevelCompleted(true);
    cTacticMap::getInstance()->showStrategicMap();
    program.frames(100);
    EXPECT_FALSE(cTacticMap::getInstance()->hasLevel());
    clickNode(100.0f);
    EXPECT_FALSE(cTacticMap::getInstance()->hasLevel());
    pushKey(esc);
    program.frames(100);
    EXPECT_TRUE(cTacticMap::getInstance()->isLevelCompleted());  // as it was left
    cTacticMap::getInstance()->showStrategicMap();
    program.frames(100);
    clickNode(100.0f);
    pushKey(enter);
    program.frames(100);
    EXPECT_TRUE(cTacticMap::getInstance()->hasLevel());
    EXPECT_FALSE(cTacticMap::getInstance()->isLevelCompleted());
}

TEST_F(MapOfLevels, asksWhetherALevelWithADamagedRecordBeginsAnew) {
    start(true);
    putRecord(false, markNone);
    clickNode(100.0f);
    EXPECT_FALSE(cTacticMap::getInstance()->hasLevel());
    pushKey(esc);
    EXPECT_NE(cGame::getInstance()->getSavedLevel(0), nullptr);
    EXPECT_TRUE(cStrategicMap::getInstance()->isEnabled());
    clickNode(100.0f);
    pushKey(enter);
    program.frames(100);
    EXPECT_TRUE(cTacticMap::getInstance()->hasLevel());
    EXPECT_FALSE(program.getDirectory().read("home/test/00000001.level0.damaged").empty());
}

TEST_F(MapOfLevels, offersANewPlayerToSkipTheLessons) {
    start(false);
    EXPECT_FALSE(cStrategicMap::getInstance()->isEnabled());
    EXPECT_EQ(Engine::cProfile::getInts()["started"], 1);
    pushKey(enter);
    EXPECT_TRUE(cStrategicMap::getInstance()->isEnabled());
    EXPECT_TRUE(node(1)->isEnabled());
    EXPECT_FALSE(node(2)->isEnabled());
    EXPECT_EQ(Engine::cProfile::getInts()["Product1"], 2);
    EXPECT_EQ(Engine::cProfile::getInts()["Product27"], 1);
    const auto& hints = cGame::getProgress().hints;
    EXPECT_EQ(std::count(hints.begin(), hints.end(), sProgress::hint_done), 6 + 4 + 11 + 4 + 1);
    leaveGame();
    enterGame();
    program.frame();
    EXPECT_TRUE(cStrategicMap::getInstance()->isEnabled());  // not asked again
    EXPECT_EQ(cGame::getProgress().hints[54], sProgress::hint_done);
}

TEST_F(MapOfLevels, isResumedWhereTheProgramWasClosedOrALevelLeft) {
    start(true);
    const auto save_by = [this](Int deals, const std::function<void()>& leave) {
        cStrategicMap::getInstance()->enterLevel(0, false);
        program.frames(100);
        cTacticMap::getInstance()->addToLevelStat(statShopDeals, deals);
        leave();
        leaveGame();
        Engine::cProfile::close();
        Engine::cProfile::open(u"Anna");
        enterGame();
    };
    save_by(7, [] { cGame::getInstance()->saveAtExit(); });
    save_by(2, [] { cTacticMap::getInstance()->showStrategicMap(); });  // the program may be gone in the next moment
    cStrategicMap::getInstance()->enterLevel(0, false);
    EXPECT_EQ(cTacticMap::getInstance()->getLevelStat(statShopDeals), 9);
}

// The place comes to the middle of the screen, a picture as large as the screen is then 1 / scale as large.
TEST_F(MapOfLevels, rollGrowsTheLandAboutThePlace) {
    program.start();
    Engine::cPicture land(nullptr);
    Engine::cPicture fog(nullptr);
    land.setPosition({400.0f, 300.0f});
    land.setSize({800.0f, 600.0f});
    fog.setPosition({200.0f, 100.0f});
    fog.setSize({80.0f, 60.0f});
    cStrategicRoll roll;
    roll.addPicture(land);
    roll.addFog(fog);
    roll.setEffectBegin({800.0f, 600.0f}, 2.0f, {200.0f, 300.0f}, 0.25f, 1.0f);
    EXPECT_EQ(roll.getMapSpeed(), Vector2(400.0f, 0.0f));
    EXPECT_EQ(roll.getSizeSpeed(), Vector2(1200.0f, 900.0f));
    roll.advance(2.0f);
    EXPECT_EQ(land.getSize(), Vector2(3200.0f, 2400.0f));
    EXPECT_EQ(land.getPosition(), Vector2(1200.0f, 300.0f));
    EXPECT_FLOAT_EQ(fog.getPosition().y, 100.0f - 2.0f * 0.85f * 1500.0f);
    EXPECT_EQ(fog.getSize(), Vector2(80.0f + 2400.0f, 60.0f + 1800.0f));
    roll.restore();
    EXPECT_EQ(land.getSize(), Vector2(800.0f, 600.0f));
}
