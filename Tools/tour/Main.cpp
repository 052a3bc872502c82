// tour DIR: starts the real game without a display, plays it through its real input path, and leaves pictures of what
// it saw in DIR. The clock is stepped by hand, so the pictures are the same on every machine.
#include <SDL.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <vector>

#include "Engine/Ui/NewProfile.h"
#include "Engine/Ui/SelectProfile.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/image/Image.h"
#include "Engine/platform/sdl/SdlPlatform.h"
#include "Game/Entry.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/Credits.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameMenu.h"
#include "Game/Ui/LogLoad.h"
#include "Game/Ui/MainMenu.h"
#include "Game/Ui/Options.h"
#include "Game/Ui/Preload.h"
#include "Game/Ui/YesNoExit.h"

using namespace Engine;

namespace {

constexpr UInt frame_ms = 20;

Vector2 cursor{-1.0f, -1.0f};  ///< in the window, pixels

/// One thing to do, a while after it may be done.
struct sStep {
    Float pause;  ///< seconds
    std::function<void()> act;
    std::function<bool()> may = [] { return true; };
};
using STEPS = std::vector<sStep>;

/// The desktop platform with a clock that stands between frames and a hand that follows a script.
class cTourPlatform : public Platform::cSdlPlatform {
public:
    explicit cTourPlatform(STEPS steps) : m_steps(std::move(steps)) {}

    UInt getMilliseconds() override { return m_now; }
    void sleep(UInt milliseconds) override { m_now += milliseconds; }
    /// The video driver without a display has no pointer of its own.
    Vector2 getCursorPos() override {
        Float rect[4];
        cGraphics::getInstance()->getWindowRect(rect);
        return Vector2(rect[0], rect[1]) + cursor;
    }

    Bool takeMessage(Platform::sMessage& message) override {
        if (cSdlPlatform::takeMessage(message))
            return true;
        m_now += frame_ms;
        follow();
        return cSdlPlatform::takeMessage(message);
    }

    Bool isDone() const { return m_next == m_steps.size(); }

private:
    static constexpr UInt patience = 60000;  ///< milliseconds from one step to the next

    void follow() {
        for (; m_next < m_steps.size(); ++m_next, m_may_since = 0, m_last = m_now) {
            const sStep& step = m_steps[m_next];
            if (m_may_since == 0 && step.may())
                m_may_since = m_now;
            if (m_now - m_last > patience)
                return postMessage({Platform::eMessage::quit, 0});
            if (m_may_since == 0 || static_cast<Float>(m_now - m_may_since) < step.pause * 1000.0f)
                return;
            step.act();
        }
    }

    STEPS m_steps;
    std::size_t m_next = 0;
    UInt m_now = 0;
    UInt m_last = 0;       ///< when the last step was done
    UInt m_may_since = 0;  ///< when the next one became possible; 0: not yet
};

// The hand ---------------------------------------------------------------------------------------------------------

void moveTo(const Vector2& target) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = static_cast<int>(target.x);
    event.motion.y = static_cast<int>(target.y);
    event.motion.xrel = static_cast<int>(target.x - cursor.x);
    event.motion.yrel = static_cast<int>(target.y - cursor.y);
    SDL_PushEvent(&event);
    cursor = target;
}

void pushButton(Uint32 type) {
    SDL_Event event{};
    event.type = type;
    event.button.button = SDL_BUTTON_LEFT;
    SDL_PushEvent(&event);
}

void press() {
    pushButton(SDL_MOUSEBUTTONDOWN);
}

void release() {
    pushButton(SDL_MOUSEBUTTONUP);
}

void pushKey(SDL_Keycode key, SDL_Scancode code) {
    for (const Uint32 type : {SDL_KEYDOWN, SDL_KEYUP}) {
        SDL_Event event{};
        event.type = type;
        event.key.keysym.sym = key;
        event.key.keysym.scancode = code;
        SDL_PushEvent(&event);
    }
}

void pushSpace() {
    pushKey(SDLK_SPACE, SDL_SCANCODE_SPACE);
}

void pushEsc() {
    pushKey(SDLK_ESCAPE, SDL_SCANCODE_ESCAPE);
}

void type(const char* text) {
    SDL_Event event{};
    event.type = SDL_TEXTINPUT;
    SDL_strlcpy(event.text.text, text, sizeof(event.text.text));
    SDL_PushEvent(&event);
}

/// The middle of a control, as its screen's file places it.
Vector2 placeOf(const String& file, const String& tag) {
    iXML* document = cResourceManager::getInstance()->getXML(file);
    const cResourceRef holder = cResourceRef::adopt(document);
    iXML* child = nullptr;
    Vector2 place(0.0f, 0.0f);
    if (!document->get(tag, child) || !readKey(*child, u"position", place))
        throw String("The tour finds no place of \"" + tag + "\" in " + file + ".");
    return place;
}

/// Saves the picture that the player has before him.
void shoot(const std::string& path) {
    sImage image;
    if (!cGraphics::getInstance()->getDevice().readPicture(image))
        throw String("The display gives no picture.");
    const auto bytes = encodePng(image, String(path));
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw String("Can't write \"" + path + "\".");
    std::printf("%s\n", path.c_str());
}

// The script -------------------------------------------------------------------------------------------------------

/// Writes steps down, one after the other.
class cScript {
public:
    explicit cScript(std::string out) : m_out(std::move(out)) {}

    cScript& then(Float pause, std::function<void()> act) {
        m_steps.push_back({pause, std::move(act)});
        return *this;
    }
    cScript& shot(Float pause, const std::string& name) {
        return then(pause, [path = m_out + "/" + name + ".png"] { shoot(path); });
    }
    cScript& when(bool (*may)()) {
        m_steps.push_back({0.2f, [] {}, may});
        return *this;
    }
    /// Waits for a screen and the end of all fades.
    template <class T>
    cScript& screen() {
        m_steps.push_back(
            {0.2f, [] {},
             [] { return T::getInstance() && T::getInstance()->isShown() && UI::getTransparenty().empty(); }});
        return *this;
    }
    cScript& point(const String& file, const String& tag, const Vector2& offset = Vector2(0.0f, 0.0f)) {
        return then(0.1f, [=] { moveTo(placeOf(file, tag) + offset); });
    }
    cScript& click(const String& file, const String& tag) {
        return point(file, tag).then(0.1f, press).then(0.1f, release);
    }
    const STEPS& getSteps() const { return m_steps; }

private:
    std::string m_out;
    STEPS m_steps;
};

constexpr char menu[] = "UI/MainMenu.xml";
constexpr char options[] = "UI/Options.xml";
constexpr char leaving[] = "UI/YesNoExit.xml";

/// A player who comes for the first time: logos, his name, and a look at everything.
STEPS makeFirstRun(const std::string& out) {
    cScript script(out);
    script.shot(1.0f, "01-logo-fading-in").shot(2.9f, "02-logo").then(1.0f, pushSpace).shot(3.0f, "03-title");
    script.then(0.1f, pushSpace).screen<cNewProfile>().shot(0.2f, "04-name-asked");
    script.then(0.1f, [] { type("Anna"); }).shot(0.4f, "05-name-typed").click("UI/NewUser.xml", "OkButton");
    script.screen<cMainMenu>().shot(1.0f, "06-main-menu");
    script.point(menu, "OptionsButton").shot(0.3f, "07-hovered").then(0.1f, press).shot(0.2f, "08-pressed");
    script.then(0.1f, release).screen<cOptions>().shot(0.5f, "09-options");
    script.click(options, "SoundVolume").shot(0.3f, "10-volume").point(options, "FullScreen").shot(1.5f, "11-tip");
    script.click(options, "OkButton").screen<cMainMenu>();
    script.click(menu, "CreditsButton").screen<cCredits>().shot(0.5f, "12-credits");
    script.click("UI/Credits.xml", "ReturnButton").screen<cMainMenu>();
    script.click(menu, "ChangeUserButton").screen<cSelectProfile>().shot(0.5f, "13-players");
    script.click("UI/SelectUser.xml", "ExitButton").screen<cMainMenu>().then(0.1f, pushEsc);
    script.screen<cYesNoExit>().shot(0.5f, "14-exit").point(leaving, "NoButton").shot(0.5f, "15-exit-no");
    script.point(leaving, "YesButton", {-12.0f, 6.0f}).shot(0.04f, "16-exit-yes").shot(1.0f, "17-exit-yes-fled");
    script.click(leaving, "NoButton").screen<cMainMenu>().shot(0.5f, "18-main-menu-again").then(0.1f, pushEsc);
    script.screen<cYesNoExit>().click(leaving, "YesButton");
    return script.getSteps();
}

/// The same player again: known by name.
STEPS makeSecondRun(const std::string& out) {
    cScript script(out);
    for (int i = 0; i < 3; ++i)
        script.then(0.3f, pushSpace);
    script.screen<cMainMenu>().shot(2.0f, "19-welcome-back").then(0.1f, pushEsc);
    script.screen<cYesNoExit>().click(leaving, "YesButton");
    return script.getSteps();
}

/// Where the node of a level lies on the map of levels.
Vector2 placeOfNode(UInt level) {
    iXML* document = cResourceManager::getInstance()->getXML("GameUI/Strategic/StrategicMap.xml");
    const cResourceRef holder = cResourceRef::adopt(document);
    iXML* nodes = nullptr;
    iXML* node = nullptr;
    Vector2 place(0.0f, 0.0f);
    if (!document->get("LevelNodes", nodes) || level >= nodes->getTagCount())
        throw String("The map of levels has no node ") + std::to_string(level);
    nodes->get(level, node);
    readKey(*node, u"position", place);
    return place;
}

Bool isLevelPlayed() {
    const cTacticMap* map = cTacticMap::getInstance();
    return map && map->hasLevel() && !map->isRolling() && !map->isLocked();
}

Bool isMapOfLevelsOpen() {
    const cStrategicMap* map = cStrategicMap::getInstance();
    return map && map->isShown() && map->isEnabled() && UI::getTransparenty().empty();
}

/// Over the start point; declined.
void askToGoBack(cScript& script, const String& name) {
    script.then(0.1f, [] {
        const cTacticMap* map = cTacticMap::getInstance();
        moveTo(map->toScreen(map->getStartPoint()->getMapCenter()));
    });
    script.shot(0.2f, name + "-start-point").then(0.1f, press).then(0.1f, release).shot(1.0f, name + "-go-back");
    script.then(0.1f, pushEsc).when(isLevelPlayed);
}

/// Enters a level, looks at it, and goes back to the map of levels.
void visitLevel(cScript& script, UInt level, const String& name) {
    script.when(isMapOfLevelsOpen).then(0.2f, [level] {
        cGame::openLevel(static_cast<Int>(level));
        cStrategicMap::getInstance()->updateView();
        moveTo(placeOfNode(level));
    });
    script.then(0.1f, press).then(0.1f, release).shot(0.8f, name + "-rolls-in").when(isLevelPlayed);
    script.shot(0.2f, name + "-caravan").shot(6.0f, name + "-men");
    if (level == 1)
        askToGoBack(script, name);
    if (level > 1)
        script.then(0.1f, [] { moveTo({799.0f, 300.0f}); }).shot(2.0f, name + "-scrolled");
    script.then(0.1f, pushEsc);
    if (level == 0)
        script.shot(0.5f, name + "-menu");
    script.screen<cGameMenu>().click("UI/GameMenu.xml", "MapButton").screen<cGameMenu>();
    script.click("UI/YesNo.xml", "YesButton").shot(1.0f, name + "-rolls-out");
}

/// The levels, one after the other.
STEPS makeLevelRun(const std::string& out) {
    cScript script(out);
    for (int i = 0; i < 3; ++i)
        script.then(0.3f, pushSpace);
    script.screen<cMainMenu>().click(menu, "StartButton").when(isMapOfLevelsOpen).shot(0.5f, "20-map-of-levels");
    constexpr UInt levels = 5;
    for (UInt level = 0; level < levels; ++level)
        visitLevel(script, level, std::to_string(21 + level) + "-level" + std::to_string(level));
    script.when(isMapOfLevelsOpen)
        .shot(0.5f, "26-map-of-levels")
        .click("GameUI/Strategic/StrategicMap.xml", "MainMenuButton");
    script.screen<cMainMenu>().shot(1.0f, "27-main-menu").then(0.1f, pushEsc);
    script.screen<cYesNoExit>().click(leaving, "YesButton");
    return script.getSteps();
}

/// True if the whole script was played.
bool play(const STEPS& steps) {
    cTourPlatform platform(steps);
    runGame(platform);
    if (!platform.isDone())
        std::fprintf(stderr, "tour: the game ended before the tour did; see error.log\n");
    return platform.isDone();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || argv[1][0] == '-') {
        std::fprintf(stderr, "usage: tour DIR\nPlays the game without a display and leaves pictures in DIR.\n");
        return argc == 2 && std::string_view(argv[1]) == "--help" ? 0 : 2;
    }
    const std::string out = argv[1];
    const std::filesystem::path home = std::filesystem::absolute(out) / "home";
    std::error_code error;
    std::filesystem::remove_all(home, error);  // the first run is that of a new player
    std::filesystem::create_directories(home, error);
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    setenv("XDG_DATA_HOME", home.c_str(), 1);
    return play(makeFirstRun(out)) && play(makeSecondRun(out)) && play(makeLevelRun(out)) ? 0 : 1;
}
