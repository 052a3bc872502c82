#include <gtest/gtest.h>

#include <filesystem>

#include "Engine/Ui/NewProfile.h"
#include "Engine/Ui/Profile.h"
#include "Engine/Ui/SelectProfile.h"
#include "Engine/Ui/YesNo.h"
#include "Tests/Support/TestFont.h"

namespace Engine {

namespace {

constexpr UInt esc = 1;
constexpr UInt enter = 28;
constexpr UInt enough_frames = 30;  // for any fade of these screens

UInt answered = 0;   // calls of the screen's ok callback
UInt cancelled = 0;  // calls of its cancel callback

std::string button(const std::string& name, const std::string& position) {
    return "<" + name + R"( Visible="1" Enable="1" size="40 40" position=")" + position + R"("/>)";
}

/// The screens' own files, with their parts far apart, on a machine that knows nobody.
class ProfileScreens : public ::testing::Test {
protected:
    ProfileScreens() {
        answered = 0;
        cancelled = 0;
        TestFont::install(program);
        program.write("sys/constants.xml",
                      R"(<main><game app_directory="test" window_title="Test" profiles="Players"/></main>)");
        const std::string edit = "<NameEdit" + TestFont::attributes + R"(MaxLength="8" position="400 300"/>)";
        const std::string head = R"(<s Enable="1" TranparencySpeed="10">)";
        program.write("UI/NewUser.xml", head + edit + button("OkButton", "100 500") + "</s>");
        program.write("UI/SelectUser.xml",
                      head + edit + button("OkButton", "100 500") + button("ExitButton", "200 500") +
                          button("DeleteButton", "300 500") +
                          R"(<UserList Visible="1" Enable="1" Interlinear="50" TopLeft="0 0" BottomRight="200 150">
                              <Button Enable="1" size="100 40"/></UserList></s>)");
        program.write("UI/YesNo.xml", R"(<y Visible="1" Enable="1" TranparencySpeed="10">)" +
                                          button("YesButton", "600 500") + button("NoButton", "700 500") + "</y>");
        program.start();
    }
    ~ProfileScreens() override { cProfile::close(); }

    /// The last of them is the one who plays. Each has his number as a property.
    void know(std::initializer_list<const char16_t*> names) {
        for (const char16_t* name : names) {
            cProfile::open(name);
            cProfile::getInts()["number"] = static_cast<Int>(std::stoi(cProfile::getInstance()->getProfileID()));
        }
    }

    void bringUp(cView& screen) {
        screen.showTransparently();
        screen.enable();
        program.frames(enough_frames);
    }
    void openNew() {
        auto* screen = new cNewProfile;
        screen->setOnOk([] { ++answered; });
        bringUp(*screen);
    }
    void openSelect(Bool can_cancel = true) {
        auto* screen = new cSelectProfile(nullptr, can_cancel);
        screen->setOnOk([] { ++answered; });
        screen->setOnCancel([] { ++cancelled; });
        bringUp(*screen);
    }

    void type(std::u16string_view text) {
        for (const char16_t unit : text)
            program.getPlatform().postMessage({Platform::eMessage::character, unit});
        program.frames(2);
    }
    void key(UInt scan_code) {
        program.getPlatform().pushKey(scan_code, true);
        program.frame();
        program.getPlatform().pushKey(scan_code, false);
        program.frames(enough_frames);
    }
    void click(Float x, Float y) {
        program.click(x, y);
        program.frames(enough_frames);
    }
    void clickOk() { click(100.0f, 500.0f); }
    void clickExit() { click(200.0f, 500.0f); }
    void clickDelete() { click(300.0f, 500.0f); }
    void clickYes() { click(600.0f, 500.0f); }
    void clickNo() { click(700.0f, 500.0f); }
    void clickRow(UInt row) { click(100.0f, 25.0f + 50.0f * static_cast<Float>(row)); }

    static WString player() { return cProfile::getInstance() ? cProfile::getInstance()->getName() : WString(); }
    static cProfile::NAME_LIST players() {
        cProfile::NAME_LIST names;
        cProfile::getInstance()->getNames(names);
        return names;
    }

    cHeadlessProgram program;
};

using NAMES = cProfile::NAME_LIST;

}  // namespace

TEST_F(ProfileScreens, theFirstPlayerNeedsANameThatIsNotBlank) {
    openNew();
    key(enter);
    type(u"  ");
    clickOk();
    EXPECT_EQ(answered, 0u);
    EXPECT_EQ(cProfile::getInstance(), nullptr);
    type(u"Ann?\b\b");
    key(esc);  // there is no way round it
    type(u"n ");
    key(enter);
    EXPECT_EQ(player(), u"An");
    EXPECT_EQ(answered, 1u);
    EXPECT_EQ(cNewProfile::getInstance(), nullptr);
}

TEST_F(ProfileScreens, enterAndAClickInOneFrameMakeOnePlayer) {
    openNew();
    type(u"Ann");
    program.moveCursor(100.0f, 500.0f);
    program.frame();
    program.press();
    program.getPlatform().pushKey(enter, true);
    program.frame();
    program.release();
    program.getPlatform().pushKey(enter, false);
    program.frames(enough_frames);
    EXPECT_EQ(answered, 1u);
    EXPECT_EQ(players(), (NAMES{u"Ann"}));
}

TEST_F(ProfileScreens, aNameThatIsTakenCanNotBeCreatedAgain) {
    know({u"Ann", u"Bob"});
    openSelect();
    type(u"\b\b\bAnn");
    key(enter);
    clickOk();
    EXPECT_EQ(answered, 0u);
    EXPECT_EQ(player(), u"Bob");
    type(u"e");
    clickOk();
    EXPECT_EQ(answered, 1u);
    EXPECT_EQ(player(), u"Anne");
    EXPECT_EQ(cProfile::getInstance()->getProfileID(), "00000003");
    EXPECT_FALSE(cProfile::getInts().contains("number"));
    EXPECT_EQ(cSelectProfile::getInstance(), nullptr);
}

TEST_F(ProfileScreens, aClickOnANameChangesThePlayerAtOnce) {
    know({u"Ann", u"Bob"});
    openSelect();
    clickRow(0);
    EXPECT_EQ(player(), u"Ann");
    EXPECT_EQ(cProfile::getInts()["number"], 1);
    EXPECT_EQ(answered + cancelled, 0u);
    clickOk();  // the name in the field was chosen, not typed
    EXPECT_EQ(answered, 1u);
    EXPECT_EQ(players(), (NAMES{u"Ann", u"Bob"}));
}

// Three rows are seen.
TEST_F(ProfileScreens, ofManyPlayersTheOneWhoPlaysIsInSight) {
    know({u"A", u"B", u"C", u"D", u"E"});
    openSelect();
    clickRow(0);
    EXPECT_EQ(player(), u"C");
    clickRow(2);
    EXPECT_EQ(player(), u"E");
}

TEST_F(ProfileScreens, escAndTheExitButtonKeepThePlayer) {
    know({u"Ann"});
    openSelect();
    type(u"x");
    key(esc);
    EXPECT_EQ(cancelled, 1u);
    EXPECT_EQ(players(), (NAMES{u"Ann"}));
    openSelect();
    clickExit();
    EXPECT_EQ(cancelled, 2u);
    openSelect(false);
    key(esc);
    clickExit();
    EXPECT_EQ(cancelled, 2u);
    EXPECT_NE(cSelectProfile::getInstance(), nullptr);
}

TEST_F(ProfileScreens, aPlayerIsDeletedOnlyWithAYes) {
    know({u"Ann", u"Bob"});
    openSelect();
    clickDelete();
    EXPECT_TRUE(cSelectProfile::getInstance()->isLocked());
    type(u"x");  // the field behind the question does not hear it
    clickNo();
    EXPECT_EQ(players(), (NAMES{u"Ann", u"Bob"}));
    clickDelete();
    clickYes();
    EXPECT_EQ(players(), (NAMES{u"Ann"}));
    EXPECT_EQ(player(), u"Ann");
    EXPECT_EQ(cProfile::getInts()["number"], 1);
    clickRow(1);  // nobody stands there any more
    EXPECT_EQ(player(), u"Ann");
    clickOk();
    EXPECT_EQ(answered, 1u);
}

TEST_F(ProfileScreens, aSaveThatFailsAtTheEndIsInTheLog) {
    know({u"Ann"});
    const cTempDirectory& directory = program.getDirectory();
    const cWorkingDirectory working_directory(directory);
    std::filesystem::remove_all(directory.getPath() + "home/test/players");
    directory.write("home/test/players", "no directory any more");
    cProfile::close();
    EXPECT_NE(directory.read("profiles.log").find("saveAllProps"), String::npos);
}

TEST_F(ProfileScreens, afterTheLastPlayerSomebodyHasToCome) {
    know({u"Ann"});
    openSelect();
    clickDelete();
    key(enter);  // answers the question
    EXPECT_EQ(players(), NAMES{});
    clickDelete();
    clickOk();
    key(esc);
    EXPECT_EQ(answered + cancelled, 0u);
    EXPECT_EQ(cProfile::getCurrentUser(), u"");
    type(u"Cid");
    key(enter);
    EXPECT_EQ(player(), u"Cid");
    EXPECT_EQ(answered, 1u);
}

}  // namespace Engine
