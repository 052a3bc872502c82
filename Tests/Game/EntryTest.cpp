#include "Game/Entry.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>

#include "Engine/Sound/SoundManager.h"
#include "Engine/Ui/NewProfile.h"
#include "Engine/Ui/Profile.h"
#include "Engine/Ui/SelectProfile.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Engine.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/platform/headless/HeadlessPlatform.h"
#include "Engine/platform/sdl/OpenAlDevice.h"
#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/Credits.h"
#include "Game/Ui/LogLoad.h"
#include "Game/Ui/MainMenu.h"
#include "Game/Ui/Options.h"
#include "Game/Ui/YesNoExit.h"
#include "Tests/Support/DataDirectory.h"
#include "Tests/Support/TempDirectory.h"

using namespace Engine;

namespace {

/// The whole program on a copy of the real data, each frame 20 ms, in a current directory of its own.
///
/// What happens is a list of steps; the frame after the last one closes the window.
class Entry : public ::testing::Test {
protected:
    Entry() {
        std::filesystem::copy(BRINDLE_SOURCE_DIR "/Data", std::string(directory / "Data"),
                              std::filesystem::copy_options::recursive);
    }

    /// One start of the program, from the first logo to its end. Gives how many steps it did not live to see.
    std::size_t run() {
        m_platform.emplace(directory / "brindle", directory / "home/");
        m_platform->setSoundDevice(std::make_unique<Platform::cOpenAlDevice>());  // mixes, and nobody listens
        frames = 0;
        m_platform->setOnIdle([this] { frame(); });
        EXPECT_EQ(runGame(*m_platform), 0);
        EXPECT_EQ(cEngine::getInstance(), nullptr);
        EXPECT_EQ(cProfile::getInstance(), nullptr);
        const std::size_t left = m_steps.size();
        m_steps.clear();
        return left;
    }

    // Steps.
    void wait(
        int count, std::function<void()> act = [] {}) {
        for (int i = 1; i < count; ++i)
            m_steps.push_back([] { return true; });
        m_steps.push_back([act = std::move(act)] { return act(), true; });
    }
    void until(std::function<bool()> ready) { m_steps.push_back(std::move(ready)); }
    /// Waits for a screen and the end of all fades.
    template <class T>
    void untilScreen() {
        until([] { return T::getInstance() && T::getInstance()->isShown() && UI::getTransparenty().empty(); });
        wait(2);
    }
    /// Three logos, each skipped.
    void skipLogos() {
        for (int i = 0; i < 3; ++i)
            wait(5, [this] { pushClick(); });
    }
    void press(UInt code) {
        wait(2, [this, code] {
            m_platform->pushKey(code, true);
            m_platform->pushKey(code, false);
        });
    }
    void type(const WString& text) {
        wait(2, [this, text] {
            for (const char16_t c : text)
                m_platform->postMessage({Platform::eMessage::character, c});
        });
    }
    /// @param offset  from the middle of the control, units
    void click(const String& file, const String& tag, const Vector2& offset = Vector2(0.0f, 0.0f)) {
        wait(2, [this, file, tag, offset] { moveTo(placeOf(file, tag) + offset); });
        wait(2, [this] { m_platform->pushMouseButton(0, true); });
        wait(2, [this] { m_platform->pushMouseButton(0, false); });
        wait(2);
    }
    void createPlayer(const WString& name) {
        skipLogos();
        untilScreen<cNewProfile>();
        type(name);
        click("UI/NewUser.xml", "OkButton");
        untilScreen<cMainMenu>();
    }

    void pushClick() {
        m_platform->pushMouseButton(0, true);
        m_platform->pushMouseButton(0, false);
    }
    String errorLog() const { return directory.read("error.log"); }
    Platform::cHeadlessPlatform& platform() { return *m_platform; }

    cTempDirectory directory;
    cWorkingDirectory working{directory};
    int frames = 0;

private:
    void frame() {
        m_platform->advance(20);
        ++frames;
        if (frames > 5000 || m_steps.empty())
            m_platform->postMessage({Platform::eMessage::close, 0});
        else if (m_steps.front()())
            m_steps.pop_front();
    }
    static Vector2 placeOf(const String& file, const String& tag) {
        iXML* document = cResourceManager::getInstance()->getXML(file);
        const cResourceRef holder = cResourceRef::adopt(document);
        iXML* child = nullptr;
        Vector2 place(0.0f, 0.0f);
        EXPECT_TRUE(document->get(tag, child) && readKey(*child, u"position", place)) << file << " " << tag;
        return place;
    }
    void moveTo(const Vector2& place) {
        Vector2 on_screen;
        cGraphics::getInstance()->toScreen(place, on_screen);
        m_platform->moveCursor(on_screen);
    }

    std::optional<Platform::cHeadlessPlatform> m_platform;
    std::deque<std::function<bool()>> m_steps;  ///< each runs until it is true
};

}  // namespace

TEST_F(Entry, showsThreeLogosOfFourSecondsThenAsksForAName) {
    int asked = 0;
    untilScreen<cNewProfile>();
    wait(1, [&] { asked = frames; });
    EXPECT_EQ(run(), 0u) << errorLog();
    EXPECT_GT(asked, 3 * 4.0 / 0.02);
    EXPECT_LT(asked, 3 * 4.0 / 0.02 + 200);
    EXPECT_EQ(errorLog(), "");
    EXPECT_TRUE(directory.has("home/brindle/sys/settings.xml"));
}

// A press and its release count once.
TEST_F(Entry, eachClickSkipsOneLogo) {
    skipLogos();
    wait(1, [this] { EXPECT_LT(frames, 20); });
    untilScreen<cNewProfile>();
    EXPECT_EQ(run(), 0u) << errorLog();
}

TEST_F(Entry, goesOnWithoutLogos) {
    std::filesystem::remove(std::string(directory / "Data/Logo.jpg"));
    std::filesystem::remove(std::string(directory / "Data/logos.pack"));
    directory.write("Data/UI/logo.xml", "<Logo Visible=\"1\" Enable=\"1\"/>");
    untilScreen<cNewProfile>();
    EXPECT_EQ(run(), 0u);
    EXPECT_EQ(errorLog(), "");
}

TEST_F(Entry, thePlayerOfTheFirstRunIsKnownInTheSecond) {
    createPlayer(u"Анна & \"Co\"");
    EXPECT_EQ(run(), 0u) << errorLog();
    EXPECT_EQ(directory.read("home/brindle/profiles/profiles.xml"),
              toBytes(u"\uFEFF<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
                      u"<Profiles NextID=\"2\" CurrentUser=\"Анна &amp; &quot;Co&quot;\" NowPlaying=\"0\" >\n"
                      u"<Profile Name=\"Анна &amp; &quot;Co&quot;\" ID=\"1\" />\n</Profiles>"));
    const String values = directory.read("home/brindle/profiles/00000001.xml");
    EXPECT_NE(values.find(toBytes(u"<prop Name=\"CurrentLevel\" Val=\"-1\" Type=\"Int\" />")), String::npos);
    EXPECT_NE(values.find(toBytes(u"<prop Name=\"Product33\" Val=\"0\" Type=\"Int\" />")), String::npos);

    skipLogos();
    until([] {
        EXPECT_EQ(cNewProfile::getInstance(), nullptr);
        return cMainMenu::getInstance();
    });
    wait(1, [] { EXPECT_EQ(cProfile::getInstance()->getName(), u"Анна & \"Co\""); });
    EXPECT_EQ(run(), 0u) << errorLog();
    EXPECT_EQ(directory.read("home/brindle/profiles/00000001.xml"), values);
    EXPECT_EQ(errorLog(), "");
}

TEST_F(Entry, everyScreenOfTheMainMenuLeadsBackToIt) {
    createPlayer(u"Anna");
    click("UI/MainMenu.xml", "OptionsButton");
    untilScreen<cOptions>();
    click("UI/Options.xml", "OkButton");
    untilScreen<cMainMenu>();
    click("UI/MainMenu.xml", "CreditsButton");
    untilScreen<cCredits>();
    click("UI/Credits.xml", "ReturnButton");
    untilScreen<cMainMenu>();
    click("UI/MainMenu.xml", "ChangeUserButton");
    untilScreen<cSelectProfile>();
    click("UI/SelectUser.xml", "ExitButton");
    untilScreen<cMainMenu>();
    press(1);
    untilScreen<cYesNoExit>();
    click("UI/YesNoExit.xml", "NoButton");
    untilScreen<cMainMenu>();
    wait(1, [] { EXPECT_TRUE(cMainMenu::getInstance()->isEnabled()); });
    EXPECT_EQ(run(), 0u);
    EXPECT_EQ(errorLog(), "");
}

TEST_F(Entry, escAndYesLeave) {
    createPlayer(u"Anna");
    press(1);
    untilScreen<cYesNoExit>();
    click("UI/YesNoExit.xml", "YesButton");  // caught before it has fled
    wait(100);
    EXPECT_GT(run(), 90u);
    EXPECT_EQ(errorLog(), "");
}

TEST_F(Entry, optionsOutliveARestart) {
    UInt volume = 0;
    createPlayer(u"Anna");
    click("UI/MainMenu.xml", "OptionsButton");
    untilScreen<cOptions>();
    click("UI/Options.xml", "SoundVolume", {-30.0f, 0.0f});
    wait(1, [&] { volume = cSoundManager::getInstance()->getSoundVolume(); });
    click("UI/Options.xml", "FullScreen");
    wait(5, [] { EXPECT_TRUE(cGraphics::getInstance()->isFullScreen()); });
    EXPECT_EQ(run(), 0u) << errorLog();
    EXPECT_GT(volume, 10u);
    EXPECT_LT(volume, 50u);

    skipLogos();
    untilScreen<cMainMenu>();
    wait(1, [&] {
        EXPECT_EQ(cSoundManager::getInstance()->getSoundVolume(), volume);
        EXPECT_EQ(cSoundManager::getInstance()->getMusicVolume(), 100u);
        EXPECT_TRUE(cGraphics::getInstance()->isFullScreen());
    });
    EXPECT_EQ(run(), 0u) << errorLog();
}

// The loading screen fetches all of it, so nothing is read while the main menu comes up.
TEST_F(Entry, theResourceLogNamesWhatTheMainMenuNeeds) {
    createPlayer(u"Anna");
    EXPECT_EQ(run(), 0u) << errorLog();
    std::set<String> loaded;
    skipLogos();
    until([&] {
        if (!cLogLoad::getInstance())
            return false;
        cResourceManager::getInstance()->clearUseless();
        return true;
    });
    until([&] {
        if (cMainMenu::getInstance())
            return true;
        cResourceManager::getInstance()->getResourceNames(loaded);
        return false;
    });
    wait(1, [&] {
        std::set<String> needed;
        cResourceManager::getInstance()->getResourceNames(needed);
        for (const String& name : needed)
            EXPECT_TRUE(loaded.contains(name)) << name << " is not in reslog_mainmenu.xml";
    });
    EXPECT_EQ(run(), 0u) << errorLog();
}

// A level reads from the disk its own land and music, no more. After a new picture: scripts/reslog.sh.
TEST_F(Entry, theResourceLogNamesWhatTheMapOfLevelsAndALevelNeed) {
    std::set<String> loaded;
    const auto add_loaded = [&] { cResourceManager::getInstance()->getResourceNames(loaded); };
    createPlayer(u"Anna");
    click("UI/MainMenu.xml", "StartButton");
    until([&] {
        if (cLogLoad::getInstance())
            add_loaded();
        return cStrategicMap::getInstance() && cStrategicMap::getInstance()->isShown();
    });
    wait(50, [] { cStrategicMap::getInstance()->startLevel(1, false); });
    until([] { return cTacticMap::getInstance()->hasLevel() && !cTacticMap::getInstance()->isRolling(); });
    wait(200, [&] {
        std::set<String> needed;
        cResourceManager::getInstance()->getResourceNames(needed);
        for (const String& name : needed) {
            const Bool is_its_own = name.starts_with("land/") || name.starts_with("music/") || name == "levelmap.lvl";
            EXPECT_TRUE(is_its_own || loaded.contains(name)) << name << " is not in reslog_strategic.xml";
        }
    });
    EXPECT_EQ(run(), 0u) << errorLog();
}

TEST_F(Entry, tellsThePlayerOfAFailureInAFrameAndEndsInOrder) {
    struct cFaulty : cView {
        using cView::cView;
        void process() override {
            ENGINE_MARK_TEXT("void cFaulty::process()");
            throw "the wheel came off";
        }
    };
    wait(5, [] {
        auto* faulty = new cFaulty(nullptr);
        faulty->show();
        faulty->enable();
    });
    EXPECT_EQ(run(), 0u) << errorLog();
    ASSERT_EQ(platform().getMessageBoxes().size(), 1u);
    EXPECT_NE(platform().getMessageBoxes()[0].find(u"error.log"), WString::npos);
    EXPECT_NE(errorLog().find("the wheel came off\nvoid cFaulty::process()\n"), String::npos);
    EXPECT_TRUE(directory.has("home/brindle/sys/settings.xml"));
    EXPECT_EQ(callStackText(), "");
}

TEST_F(Entry, keepsDamagedSettingsAsideAndUsesTheShippedOnes) {
    directory.write("home/brindle/sys/settings.xml", "<main><graphics wid");
    wait(1);
    EXPECT_EQ(run(), 0u);
    EXPECT_EQ(errorLog(), "");
    EXPECT_EQ(directory.read("home/brindle/sys/settings.xml.damaged"), "<main><graphics wid");
    EXPECT_GT(directory.read("home/brindle/sys/settings.xml").size(), 100u);
}

struct sBroken {
    const char* name;
    const char* file;
    const char* text;      ///< null removes the file
    const char* expected;  ///< in the log
};

class BrokenData : public Entry, public ::testing::WithParamInterface<sBroken> {};

TEST_P(BrokenData, endsTheProgramWithOneClearErrorAndTheSettingsIntact) {
    const sBroken& broken = GetParam();
    directory.write("home/brindle/sys/settings.xml", "<main><graphics width=\"800\" height=\"600\"/></main>");
    const String path = directory / (String("Data/") + broken.file);
    if (broken.text)
        directory.write(String("Data/") + broken.file, broken.text);
    else
        std::filesystem::remove(std::string(path));
    EXPECT_EQ(run(), 0u) << errorLog();
    EXPECT_NE(errorLog().find(broken.expected), String::npos) << errorLog();
    EXPECT_NE(directory.read("home/brindle/sys/settings.xml").find("8"), String::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Files, BrokenData,
    ::testing::Values(
        sBroken{"constantsMissing", "sys/constants.xml", nullptr, "File \"sys/constants.xml\" not found."},
        sBroken{"constantsCut", "sys/constants.xml", "<main><game app_direc", "filename: sys/constants.xml"},
        sBroken{"constantsWithoutDirectory", "sys/constants.xml", "<main/>", "app_directory not defined."},
        sBroken{"packCut", "logos.pack", "PK\3\4 and then nothing", "logos.pack is cannot be opened."},
        sBroken{"textsCut", "GameStrings.xml", "<main", "filename: gamestrings.xml"},
        sBroken{"pictureTorn", "logo.jpg", "\xFF\xD8\xFF\xE0 no more", "logo.jpg"}),
    [](const auto& param_info) { return std::string(param_info.param.name); });
