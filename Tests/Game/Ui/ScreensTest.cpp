// The screens around the game, each on a file of its own with plain buttons of 20 x 20 at known places.
#include <gtest/gtest.h>

#include <algorithm>
#include <glm/geometric.hpp>
#include <optional>
#include <set>

#include "Engine/Sound/SoundManager.h"
#include "Engine/Ui/Control.h"
#include "Engine/Ui/Profile.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/Random.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/core/Settings.h"
#include "Engine/platform/sdl/OpenAlDevice.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameMenu.h"
#include "Game/Ui/GameStrings.h"
#include "Game/Ui/Help.h"
#include "Game/Ui/LogLoad.h"
#include "Game/Ui/Music.h"
#include "Game/Ui/Options.h"
#include "Game/Ui/Screen.h"
#include "Game/Ui/YesNoExit.h"
#include "Game/Ui/YesNoExt.h"
#include "Tests/Support/HeadlessProgram.h"
#include "Tests/Support/TestWave.h"

using namespace Engine;

namespace {

constexpr UInt esc = 1;
constexpr UInt enter = 28;

std::string button(const char* tag, int x, int y) {
    return std::string("<") + tag + " Visible=\"1\" Enable=\"1\" position=\"" + std::to_string(x) + "," +
           std::to_string(y) + "\" size=\"20,20\"/>";
}

std::string screen(const std::string& content) {
    return "<Screen Visible=\"1\" Enable=\"1\">" + content + "</Screen>";
}

/// Is a control drawn whose centre is here?
Bool isDrawnAt(Float x, Float y) {
    Bool found = false;
    UI::getDrawSet().walk(
        [&](cControl* control) { found = found || (control->getPosition() == Vector2(x, y) && control->isShown()); });
    return found;
}

/// What the screens under test have called, in order.
std::string calls;

class Screens : public ::testing::Test {
protected:
    Screens() {
        calls.clear();
        program.write("GameStrings.xml",
                      "<g><Strings><s id=\"a\" value=\"old\"/><s id=\"b\" value=\"b\"/></Strings></g>");
        program.write("YesNoStrings.xml", "<g><Strings><s id=\"a\" value=\"new\"/></Strings></g>");
        program.write("UI/YesNo.xml", screen(button("YesButton", 100, 100) + button("NoButton", 200, 100)));
    }
    ~Screens() override {
        Music::stop();
        strings.reset();
    }

    void start() {
        program.start();
        strings.emplace();
    }
    void key(UInt code) {
        program.getPlatform().pushKey(code, true);
        program.getPlatform().pushKey(code, false);
        program.frame();
    }
    void click(Float x, Float y) { program.click(x, y); }
    /// Long enough for any fade.
    void settle() { program.frames(40); }

    cHeadlessProgram program;
    std::optional<cGameStrings> strings;
};

}  // namespace

TEST_F(Screens, laterTextsOfANameWinAndUnknownNamesAreEmpty) {
    start();
    EXPECT_EQ(strings->getString("a"), u"new");
    EXPECT_EQ(strings->getString("b"), u"b");
    EXPECT_EQ(strings->getString("c"), u"");
}

// The dialog with two answers --------------------------------------------------------------------------------------

TEST_F(Screens, theDialogKeepsItsOwnerDisabledAndAnswersOnce) {
    start();
    auto* owner = new cView(nullptr);
    owner->show();
    owner->enable();
    auto* dialog = new cYesNoExt(owner);
    dialog->setYes([](cView*) { calls += "yes "; });
    dialog->setNo([](cView*) { calls += "no "; });
    showScreen(*dialog);
    EXPECT_FALSE(owner->isEnabled());
    settle();
    owner->enable();
    program.frame();
    EXPECT_FALSE(owner->isEnabled());

    program.getPlatform().pushKey(esc, false);
    program.getPlatform().pushKey(enter, false);
    program.frame();
    EXPECT_EQ(calls, "no ");
    discard(dialog, "test");
    program.frame();
    EXPECT_TRUE(owner->isEnabled());
}

// The dialog whose button flees ------------------------------------------------------------------------------------

TEST(FleeingButton, staysWithinThirtyUnitsOfHomeWhereverThePointerGoes) {
    const Vector2 home(300, 200);
    Vector2 place = home;
    cRandom chance;
    Float farthest = 0.0f;
    for (int i = 0; i < 20000; ++i) {
        const Vector2 any(static_cast<Float>(chance.next() % 200 - 100), static_cast<Float>(chance.next() % 200 - 100));
        const Vector2 before = place;
        place = fleeFrom(i % 7 == 0 ? place : home + any, place, home, 0.02f);
        farthest = std::max(farthest, glm::length(place - home));
        ASSERT_LE(glm::length(place - before), 120.0f * 0.02f + 1e-3f);
    }
    EXPECT_LE(farthest, 30.0f + 1e-3f);
    EXPECT_GT(farthest, 10.0f);
    for (int i = 0; i < 50; ++i)  // nobody near: back home
        place = fleeFrom({700, 500}, place, home, 0.02f);
    EXPECT_EQ(place, home);
}

namespace {

class ExitDialog : public Screens {
protected:
    void open() {
        program.write("UI/YesNoExit.xml",
                      screen(button("YesButton", 300, 200) + button("NoButton", 500, 200) + button("Bee0", 10, 10) +
                             button("Bee1", 20, 10) + button("Bee2", 30, 10)));
        start();
        dialog = new cYesNoExit(
            nullptr, [](cView*) { calls += "yes "; }, [](cView*) { calls += "no "; });
        showScreen(*dialog);
        settle();
    }
    cYesNoExit* dialog = nullptr;
};

}  // namespace

// The pointer rests a little beside the middle of the button, which would be gone from under it within ten frames.
TEST_F(ExitDialog, theButtonStandsStillWhilePressed) {
    open();
    program.moveCursor(302, 200);
    program.press();
    program.frames(50);
    program.release();
    program.frame();
    EXPECT_EQ(calls, "yes ");
}

TEST_F(ExitDialog, theButtonLeavesAPointerThatDoesNotPress) {
    open();
    program.moveCursor(302, 200);
    program.frames(50);
    program.press();
    program.release();
    program.frame();
    EXPECT_EQ(calls, "");
    key(esc);
    EXPECT_EQ(calls, "no ");
}

TEST_F(ExitDialog, oneBeeIsShownByWhatIsHovered) {
    open();
    const auto bees = [] {
        return std::to_string(isDrawnAt(10, 10)) + std::to_string(isDrawnAt(20, 10)) +
               std::to_string(isDrawnAt(30, 10));
    };
    EXPECT_EQ(bees(), "100");
    program.moveCursor(500, 200);
    program.frame();
    EXPECT_EQ(bees(), "010");
    program.moveCursor(305, 200);
    program.frame();
    EXPECT_EQ(bees(), "001");
    program.moveCursor(700, 500);
    program.frame();
    EXPECT_EQ(bees(), "100");
}

// The loading screen -----------------------------------------------------------------------------------------------

TEST_F(Screens, withoutALogLoadingGoesOnInTheConstructor) {
    program.write("Ui/Load.xml", screen(""));
    start();
    new cLogLoad(
        "nowhere.xml", [] { calls += "on "; }, 3, cLogLoad::sameMusic);
    EXPECT_EQ(calls, "on ");
    program.frame();
    EXPECT_EQ(cLogLoad::getInstance(), nullptr);
    EXPECT_EQ(calls, "on ");
}

TEST_F(Screens, loadsAFewEntriesAFrameAndKeepsThem) {
    program.write("Ui/Load.xml", screen(""));
    std::string entries;
    for (const char* name : {"0.xml", "1.xml", "2.xml", "3.xml", "4.xml", "5.xml", "6.xml"}) {
        program.write(name, "<d/>");
        entries += std::string("<Tag Path=\"") + name + "\" Type=\"1\"/>";
    }
    program.write("log.xml", "<ResourceLog>" + entries + "</ResourceLog>");
    start();
    new cLogLoad(
        "log.xml", [] { calls += "on "; }, 3, cLogLoad::mainMenuMusic);
    const auto loaded = [] {
        std::set<String> names;
        cResourceManager::getInstance()->getResourceNames(names);
        return std::count_if(names.begin(), names.end(), [](const String& name) { return name.size() == 5; });
    };
    const auto before = loaded();
    program.frame();
    EXPECT_EQ(loaded() - before, 3);
    program.frames(2);
    EXPECT_EQ(loaded() - before, 7);
    EXPECT_EQ(calls, "");
    program.frames(2);
    EXPECT_EQ(calls, "on ");
    EXPECT_EQ(cLogLoad::getInstance(), nullptr);
}

// Music --------------------------------------------------------------------------------------------------------------

TEST_F(Screens, theMapOfLevelsAndEachLevelInTurnHaveTheirOwnPiece) {
    program.write("UI/Load.xml",
                  "<l><MainMenuMusic Sound=\"menu.wav\"/><GameMusic Sound=\"map.wav\"/>"
                  "<GameMusic Sound=\"one.wav\"/><GameMusic Sound=\"two.wav\"/></l>");
    program.write("alone.xml", "<l><GameMusic Sound=\"map.wav\"/></l>");
    program.write("none.xml", "<l/>");
    start();
    const auto pieces = [](const char* file) {
        iXML* load = cResourceManager::getInstance()->getXML(file);
        const cResourceRef holder = cResourceRef::adopt(load);
        return Music::getMapPiece(*load) + " " + Music::getLevelPiece(*load, 0) + " " + Music::getLevelPiece(*load, 1) +
               " " + Music::getLevelPiece(*load, 2);
    };
    EXPECT_EQ(pieces("UI/Load.xml"), "map.wav one.wav two.wav one.wav");
    EXPECT_EQ(pieces("alone.xml"), "map.wav map.wav map.wav map.wav");
    EXPECT_EQ(pieces("none.xml"), "   ");
}

// A level that follows another with the same piece does not begin it anew; another piece takes its place in memory.
TEST_F(Screens, aPieceThatIsOnTheAirGoesOn) {
    program.write("UI/Load.xml",
                  "<l><GameMusic Sound=\"map.wav\"/><GameMusic Sound=\"one.wav\"/><GameMusic Sound=\"one.wav\"/></l>");
    program.write("map.wav", TestWave::makeSine(440.0, 0.1));
    program.write("one.wav", TestWave::makeSine(220.0, 0.1));
    auto device = std::make_unique<Platform::cOpenAlDevice>();
    Platform::cOpenAlDevice& air = *device;
    program.getPlatform().setSoundDevice(std::move(device));
    start();
    const auto loaded = [] {
        std::set<String> names;
        cResourceManager::getInstance()->getResourceNames(names);
        return (names.contains("map.wav") ? String("map ") : String()) + (names.contains("one.wav") ? "one" : "");
    };
    Music::goOnWithMap();
    EXPECT_EQ(loaded(), "map ");
    Music::goOnWithLevel(0);
    EXPECT_EQ(loaded(), "one");
    Music::goOnWithLevel(1);
    EXPECT_EQ(air.getChannelStatus(2), Platform::eChannelStatus::playing) << "the second that was begun";
    Music::goOnWithMap();
    EXPECT_EQ(loaded(), "map ");
}

// Options ----------------------------------------------------------------------------------------------------------

namespace {

class Options : public Screens {
protected:
    void open() {
        program.write("UI/Options.xml",
                      screen(button("OkButton", 100, 100) + button("FullScreen", 200, 100) +
                             "<SoundVolume Visible=\"1\" Enable=\"1\" position=\"400,200\" size=\"100,20\"/>"));
        program.getPlatform().setSoundDevice(std::make_unique<Platform::cOpenAlDevice>());  // nobody listens
        start();
        opener = new cView(nullptr);
        showScreen(*new cOptions(opener));
        settle();
    }
    Bool fullScreen() {
        Bool value = false;
        cSettings::getInstance()->getProperty("graphics", "fullscreen", value);
        return value;
    }
    cView* opener = nullptr;
};

}  // namespace

TEST_F(Options, theSwitchAndTheSettingFollowEachOther) {
    open();
    click(200, 100);
    EXPECT_TRUE(fullScreen());
    program.getPlatform().postMessage({Platform::eMessage::sysKeyDown, Platform::vkReturn});  // Alt+Enter
    program.frames(3);
    EXPECT_FALSE(fullScreen());
    click(200, 100);
    EXPECT_TRUE(fullScreen());
}

TEST_F(Options, theSliderSetsTheVolumeAtOnce) {
    open();
    click(425, 200);
    EXPECT_EQ(cSoundManager::getInstance()->getSoundVolume(), 75u);
    EXPECT_EQ(cSoundManager::getInstance()->getMusicVolume(), 100u);
}

TEST_F(Options, theButtonAndEscLeadBack) {
    open();
    click(100, 100);
    EXPECT_TRUE(opener->isShown());
    settle();
    EXPECT_EQ(cOptions::getInstance(), nullptr);
    opener->hide();
    showScreen(*new cOptions(opener));
    settle();
    key(esc);
    settle();
    EXPECT_TRUE(opener->isShown() && opener->isEnabled());
    EXPECT_EQ(cOptions::getInstance(), nullptr);
}

// The menu over a level --------------------------------------------------------------------------------------------

namespace {

class GameMenu : public Screens {
protected:
    void open() {
        program.write("UI/GameMenu.xml", screen(button("ContinueButton", 100, 300) +
                                                button("MainMenuButton", 100, 340) + button("ReplayButton", 100, 380) +
                                                button("MapButton", 100, 420) + button("HelpButton", 100, 460)));
        program.write("UI/Help.xml",
                      screen(button("OkButton", 300, 300) + button("NextButton", 340, 300) +
                             button("PrevButton", 380, 300) + "<Pages><p><Pictures>" + button("a", 1, 1) +
                             "</Pictures></p><p><Pictures>" + button("a", 2, 1) + "</Pictures></p></Pages>"));
        start();
        showScreen(*new cGameMenu({[] { calls += "resume "; }, [] { calls += "main "; }, [] { calls += "replay "; },
                                   [] { calls += "map "; }}));
        settle();
    }
};

}  // namespace

TEST_F(GameMenu, theWaysOutOfALevelAskFirst) {
    open();
    const std::pair<Float, const char*> ways[] = {{340.0f, "main "}, {380.0f, "replay "}, {420.0f, "map "}};
    for (const auto& [y, expected] : ways) {
        calls.clear();
        click(100, y);
        settle();
        EXPECT_FALSE(cGameMenu::getInstance()->isEnabled());
        key(esc);
        settle();
        EXPECT_EQ(calls, "");
        EXPECT_TRUE(cGameMenu::getInstance()->isEnabled());
        click(100, y);
        settle();
        key(enter);
        EXPECT_EQ(calls, expected);
        settle();
        EXPECT_FALSE(cGameMenu::getInstance()->isShown());  // it goes with the level
        key(esc);                                           // and is deaf
        EXPECT_EQ(calls, expected);
        showScreen(*cGameMenu::getInstance());
        settle();
    }
}

TEST_F(GameMenu, escAndEnterGoOnPlayingButNotThroughAQuestion) {
    open();
    click(100, 380);
    settle();
    key(esc);  // the question's
    settle();
    EXPECT_EQ(calls, "");
    key(enter);
    EXPECT_EQ(calls, "resume ");
    EXPECT_FALSE(cGameMenu::getInstance()->isShown());
    key(enter);
    EXPECT_EQ(calls, "resume ");
}

TEST_F(GameMenu, helpTurnsItsPagesAndLeadsBack) {
    open();
    click(100, 460);
    settle();
    EXPECT_TRUE(isDrawnAt(1, 1) && !isDrawnAt(2, 1));
    EXPECT_FALSE(isDrawnAt(380, 300));
    click(340, 300);
    EXPECT_TRUE(!isDrawnAt(1, 1) && isDrawnAt(2, 1));
    EXPECT_FALSE(isDrawnAt(340, 300));
    click(380, 300);
    EXPECT_TRUE(isDrawnAt(1, 1) && !isDrawnAt(2, 1));
    click(300, 300);
    click(100, 460);  // again, while it still fades away
    settle();
    EXPECT_EQ(cHelp::getInstance(), nullptr);
    EXPECT_TRUE(cGameMenu::getInstance()->isShown() && cGameMenu::getInstance()->isEnabled());
}

// What a new player begins with ------------------------------------------------------------------------------------

TEST_F(Screens, aNewPlayerHasAFlagForEachLevelAndTheFirstProducts) {
    program.write("LevelMap.lvl", "<LevelMap><Level/><Level/><Level/></LevelMap>");
    program.write("Game.xml", "<Game><StartProducts><P id=\"11\"/><P id=\"34\"/></StartProducts></Game>");
    start();
    auto& values = cProfile::getInts();
    values = {{"CurrentLevel", 5}, {"Product33", 2}};
    cGame::onInitProfile();
    EXPECT_EQ(values["CurrentLevel"], -1);
    EXPECT_EQ(values["Product33"], 0);
    EXPECT_EQ(values["Product11"], 1);
    EXPECT_EQ(values.size(), 1u + 3 + 34);
    EXPECT_TRUE(values.contains("LevelFlag0") && values.contains("LevelFlag2"));
    values.clear();
}
