#include "Game/Ui/Game.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/NewProfile.h"
#include "Engine/Ui/Profile.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/Ui/GameMenu.h"
#include "Game/Ui/LogLoad.h"
#include "Game/Ui/MainMenu.h"
#include "Game/Ui/Screen.h"

using namespace Engine;

namespace {

constexpr char game_file[] = "Game.xml";
constexpr char main_menu_log[] = "reslog_mainmenu.xml";
constexpr char strategic_log[] = "reslog_strategic.xml";
constexpr UInt entries_per_frame = 3;
constexpr UInt strategic_entries_per_frame = 8;

/// The key of the n-th property of a name.
String getStaticString(const char* name, Int n) {
    String key(name);
    key.append(std::to_string(n));
    return key;
}

}  // namespace

cGame::cGame(cView* parent, Bool no_save) : cView(parent), m_no_save(no_save) {
    ENGINE_MARK;
    loadView(*this, game_file);
    show();
    enable();
    if (!no_save)
        new cLogLoad(strategic_log, onGameStarted, strategic_entries_per_frame, cLogLoad::gameMusic);
}

cLevelState* cGame::getSavedLevel(Int level) {
    const auto found = m_levels.find(level);
    return found == m_levels.end() ? nullptr : &found->second;
}

cLevelState* cGame::createSavedLevel(Int level) {
    return &m_levels.insert_or_assign(level, cLevelState(level)).first->second;
}

void cGame::saveLevels() {
}

Bool cGame::isLevelOpen(Int level) {
    return cProfile::getBools()[getStaticString("LevelOpen", level)];
}

void cGame::openLevel(Int level) {
    cProfile::getBools()[getStaticString("LevelOpen", level)] = true;
}

void cGame::onInitProfile() {
    ENGINE_MARK;
    iXML* map = cResourceManager::getInstance()->getXML("LevelMap.lvl");
    const cResourceRef holder = cResourceRef::adopt(map);
    auto& values = cProfile::getInts();
    values["CurrentLevel"] = -1;
    for (UInt i = 0; i < map->getTagCount(); ++i)
        values[getStaticString("LevelFlag", static_cast<Int>(i))] = 0;
    for (UInt i = 0; i < product_count; ++i)
        values[getStaticString("Product", static_cast<Int>(i))] = 0;
    giveStartProducts();
}

void cGame::giveStartProducts() {
    iXML* game = cResourceManager::getInstance()->getXML(game_file);
    const cResourceRef holder = cResourceRef::adopt(game);
    iXML* products = nullptr;
    if (!game->get("StartProducts", products))
        return;
    for (UInt i = 0; i < products->getTagCount(); ++i) {
        iXML* tag = nullptr;
        products->get(i, tag);
        Int id = -1;
        readKey(*tag, u"id", id);
        if (id >= 0 && id < static_cast<Int>(product_count))
            cProfile::getInts()[getStaticString("Product", id)] = 1;
    }
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

void cGame::onGameStarted() {
    ENGINE_MARK;
    auto* map = new cStrategicMap(getInstance());
    map->show();
    map->enable();
}

void cGame::onEndLastComics() {
    if (cGame* game = getInstance())
        game->m_finished = true;
}

void cGame::leaveForMainMenu() {
    ENGINE_MARK;
    cGame* game = getInstance();
    if (game) {
        game->saveLevels();
        if (cGameMenu* menu = cGameMenu::getInstance())
            discard(menu, here());
        discard(game, here());  // and with it the map of levels and the level's
    }
    new cLogLoad(main_menu_log, runProfileExist, entries_per_frame, cLogLoad::mainMenuMusic);
}
