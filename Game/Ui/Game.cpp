#include "Game/Ui/Game.h"

#include <algorithm>
#include <utility>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/NewProfile.h"
#include "Engine/Ui/Profile.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Game/GameLogic/Mark.h"
#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameMenu.h"
#include "Game/Ui/GameStrings.h"
#include "Game/Ui/LogLoad.h"
#include "Game/Ui/MainMenu.h"
#include "Game/Ui/Screen.h"
#include "Game/Ui/TellPlayer.h"

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

/// The save file of the current player.
String getSavePath() {
    return String(cProfile::getProfilesDir() + cProfile::getInstance()->getProfileID() + ".save");
}

}  // namespace

cGame::cGame(cView* parent, Bool no_save) : cView(parent), m_no_save(no_save) {
    ENGINE_MARK;
    loadView(*this, game_file);
    show();
    enable();
    if (no_save)
        return;
    loadLevels();
    new cLogLoad(strategic_log, onGameStarted, strategic_entries_per_frame, cLogLoad::gameMusic);
}

cLevelState* cGame::getSavedLevel(Int level) {
    const auto found = m_levels.find(level);
    return found == m_levels.end() ? nullptr : &found->second;
}

cLevelState* cGame::createSavedLevel(Int level) {
    return &m_levels.insert_or_assign(level, cLevelState(level)).first->second;
}

// The save ----------------------------------------------------------------------------------------------------------

sProgress& cGame::getProgress() {
    static sProgress progress;
    return progress;
}

void cGame::loadAwards() {
    ENGINE_MARK;
    sSave save;
    if (cProfile::getInstance() && cSaveFile(getSavePath()).readOnly(save))
        getProgress().awards = save.progress.awards;
}

void cGame::loadLevels() {
    ENGINE_MARK;
    if (!cProfile::getInstance())
        return;
    sSave save;
    const cSaveFile::eFound found = cSaveFile(getSavePath()).read(save);
    if (found == cSaveFile::restored)
        tellPlayer(getGameString("save_restored"));
    if (found == cSaveFile::lost)
        tellPlayer(getGameString("save_lost"));
    if (found != cSaveFile::good && found != cSaveFile::restored)
        return;
    getProgress() = save.progress;
    for (std::size_t i = 0; i < std::min<std::size_t>(save.products.size(), product_count); ++i)
        cProfile::getInts()[getStaticString("Product", static_cast<Int>(i))] = save.products[i];
    m_levels = std::move(save.levels);
}

void cGame::saveLevels() {
    ENGINE_MARK;
    cProfile* profile = cProfile::getInstance();
    if (m_no_save || !profile)
        return;
    try {
        // The properties first: a level that is open and was never entered can be, one that is closed can't.
        profile->saveAllProps();
        sSave save{.progress = getProgress(), .products = {}, .levels = m_levels};
        for (UInt i = 0; i < product_count; ++i)
            save.products.push_back(cProfile::getInts()[getStaticString("Product", static_cast<Int>(i))]);
        cSaveFile(getSavePath()).write(save);
        m_save_failed = false;
    } catch (...) {
        noteInSaveLog(takeFailureLine());
        if (!std::exchange(m_save_failed, true))
            tellPlayer(getGameString("save_failed"));
    }
}

void cGame::saveAtExit() {
    ENGINE_MARK;
    if (m_no_save)
        return;
    cTacticMap* map = cTacticMap::getInstance();
    if (!m_finished && map && cProfile::getInts()["CurrentLevel"] > -1)
        map->saveBinLevel();
    saveLevels();
}

void cGame::dropSavedLevel(Int level) {
    ENGINE_MARK;
    const auto found = m_levels.find(level);
    if (found == m_levels.end())
        return;
    if (!m_no_save && cProfile::getInstance()) {
        try {
            cSaveFile(getSavePath()).keepLevelAside(found->second);
        } catch (...) {
            noteInSaveLog(takeFailureLine());
        }
    }
    m_levels.erase(found);
}

Bool cGame::isLevelSaved(Int level) {
    const cGame* game = getInstance();
    return game && game->getSavedLevel(level);
}

sLevelHead cGame::readLevelHead(Int level) {
    sLevelHead head;
    if (!isLevelSaved(level))
        return head;
    try {
        head.serialize(*getInstance()->getSavedLevel(level)->createReader());
    } catch (...) {
        noteInSaveLog(String("The map of levels, level " + std::to_string(level) + ": " + takeFailureLine()));
        head = {};
    }
    return head;
}

Bool cGame::isLevelOpen(Int level) {
    return cProfile::getBools()[getStaticString("LevelOpen", level)];
}

void cGame::openLevel(Int level) {
    cProfile::getBools()[getStaticString("LevelOpen", level)] = true;
}

Int cGame::getKeptFlag(Int level, Int bridge) {
    const UInt flags = static_cast<UInt>(cProfile::getInts()[getStaticString("LevelFlag", level)]);
    return bridge >= 0 && bridge < kept_flag_count ? static_cast<Int>(flags >> (2 * bridge) & 3) : markNone;
}

void cGame::keepFlag(Int level, Int bridge, Int mark) {
    if (bridge < 0 || bridge >= kept_flag_count || getWorth(mark) <= getWorth(getKeptFlag(level, bridge)))
        return;
    Int& flags = cProfile::getInts()[getStaticString("LevelFlag", level)];
    const UInt others = static_cast<UInt>(flags) & ~(3u << (2 * bridge));
    flags = static_cast<Int>(others | static_cast<UInt>(mark) << (2 * bridge));
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
    getProgress().reset();
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
    new cStrategicMap(getInstance());
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
