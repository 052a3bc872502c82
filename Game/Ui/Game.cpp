#include "Game/Ui/Game.h"

#include "Engine/Ui/NewProfile.h"
#include "Engine/Ui/Profile.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Game/Ui/LogLoad.h"
#include "Game/Ui/MainMenu.h"
#include "Game/Ui/Screen.h"

using namespace Engine;

namespace {

constexpr char main_menu_log[] = "reslog_mainmenu.xml";
constexpr UInt entries_per_frame = 3;

/// The key of the n-th property of a name.
String getStaticString(const char* name, UInt n) {
    String key(name);
    key.append(std::to_string(n));
    return key;
}

}  // namespace

void cGame::onInitProfile() {
    ENGINE_MARK;
    iXML* map = cResourceManager::getInstance()->getXML("LevelMap.lvl");
    const cResourceRef holder = cResourceRef::adopt(map);
    auto& values = cProfile::getInts();
    values["CurrentLevel"] = -1;
    for (UInt i = 0; i < map->getTagCount(); ++i)
        values[getStaticString("LevelFlag", i)] = 0;
    for (UInt i = 0; i < product_count; ++i)
        values[getStaticString("Product", i)] = 0;
}

void cGame::onProfileExist() {
    ENGINE_MARK;
    cProfile::open(cProfile::getCurrentUser());
    new cLogLoad(main_menu_log, runProfileExist, entries_per_frame, cLogLoad::mainMenuMusic);
}

void cGame::runProfileExist() {
    ENGINE_MARK;
    auto* menu = new cMainMenu;
    menu->updateUserName();
    showScreen(*menu);
}

void cGame::onCreateNewProfile() {
    ENGINE_MARK;
    new cLogLoad(main_menu_log, askForName, entries_per_frame, cLogLoad::mainMenuMusic);
}

void cGame::askForName() {
    ENGINE_MARK;
    cMainMenu::loadFixedBack();
    auto* screen = new cNewProfile;
    screen->setOnOk(onNewProfileCreated);
    showScreen(*screen);
}

void cGame::onNewProfileCreated() {
    ENGINE_MARK;
    if (!cMainMenu::getInstance())
        new cMainMenu;
    cMainMenu::getInstance()->updateUserName();
    showScreen(*cMainMenu::getInstance());
}
