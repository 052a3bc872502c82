#include "Game/GameUI/Tactic/TacticMap.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Profile.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Log.h"
#include "Engine/core/Random.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/input/Input.h"
#include "Game/GameLogic/Upgrade.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/bridgeroads/BridgeRoad.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/fences/Fence.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/roads/DamagedRoad.h"
#include "Game/GameLogic/roads/DraggedRoad.h"
#include "Game/GameLogic/roads/Road.h"
#include "Game/GameLogic/roads/RoadEnemy.h"
#include "Game/GameLogic/roads/TransRoad.h"
#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/GameUI/Tactic/ControlPanel.h"
#include "Game/GameUI/Tactic/LevelBackgroundObject.h"
#include "Game/GameUI/Tactic/LevelFile.h"
#include "Game/GameUI/Tactic/MarketMenu.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameMenu.h"
#include "Game/Ui/GameSounds.h"
#include "Game/Ui/Music.h"

using namespace Engine;

namespace {

constexpr char definition_file[] = "GameUI/TacticMap.xml";
constexpr Int to_strategic_map = -2;  ///< next_level
constexpr Int to_last_comics = -1;    ///< next_level

}  // namespace

cTacticMap::cTacticMap(cView* parent)
    : cCenteredScrollBack(parent),
      m_control_panel(new cControlPanel(this)),
      m_idol_icon(new cPicture(this)),
      m_catapult_icon(new cPicture(this)),
      m_water(new cPicture(this)),
      m_bottom_tile(new cPicture(this)),
      m_nearshore(new cPicture(this)),
      m_top_tile(new cPicture(this)),
      m_objects(new cView(this)) {
    ENGINE_MARK;
    loadView(*this, definition_file);
    m_control_panel->setIdolCost(cUpgrade::loadFirstPrice(cLevelObject::getDefinitionFile(objectIdol)));
    m_control_panel->setCatapultCost(cUpgrade::loadFirstPrice(cLevelObject::getDefinitionFile(objectPlayerCatapult)));
    m_objects->enable();
    m_objects->absoluteEnable();
    iTipWorld::set(this);
}

cTacticMap::~cTacticMap() {
    // A walk knows the building that it leads to, which may go first.
    for (cFriendMan* man : m_men)
        man->setTask(nullptr);
    for (cMan* man : m_enemies)
        man->setTask(nullptr);
    if (iTipWorld::get() == this)
        iTipWorld::set(nullptr);
}

void cTacticMap::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cCenteredScrollBack::loadXML(xml);
    m_constants.loadXML(xml);
    m_man_idle_timer = m_constants.man_idle_time;
    loadChild(*m_idol_icon, xml, "IdolIcon");
    loadChild(*m_catapult_icon, xml, "CatapultIcon");
    loadChild(*m_water, xml, "DeepWater");
    loadChild(*m_bottom_tile, xml, "BottomTile");
    loadChild(*m_nearshore, xml, "NearshoreWater");
    loadChild(*m_top_tile, xml, "TopTile");
    for (cPicture* prototype : {m_idol_icon, m_catapult_icon, m_water, m_bottom_tile, m_nearshore, m_top_tile})
        prototype->hide();
}

void cTacticMap::enabled() {
    cCenteredScrollBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onEscape, this);
}

void cTacticMap::disabled() {
    cCenteredScrollBack::disabled();
    if (cInput* input = cInput::getInstance())
        input->unbind(Control::esc_release, onEscape, this);
}

// The beginning of a level -------------------------------------------------------------------------------------------

void cTacticMap::initialize(Bool replay) {
    ENGINE_MARK;
    openTacticLog();
    m_replay = false;
    try {
        loadLevel(replay);
    } catch (...) {
        clear();
        throw;
    }
    show();
    startRoll(cLevelRoll::in);
    cUtils::showLevelBridges(false);
    Music::goOnWithLevel(cProfile::getInts()["CurrentLevel"]);
    playGameSound("next_level");
    if (cLog* log = tacticLog())
        log->printf(u"cTacticMap::initialize(): level %d was loaded.", cProfile::getInts()["CurrentLevel"]);
    m_clouds_start = chooseCloudsStart(m_constants.clouds_destination);
}

void cTacticMap::loadLevel(Bool replay) {
    const Int level = cProfile::getInts()["CurrentLevel"];
    const String name = cLevelFile::getName(level);
    const auto update_nets = [this] { generateConnectionMap(); };
    cGame* game = cGame::getInstance();
    if (game && game->getSavedLevel(level) && !replay) {
        loadBinLevel();
        cLevelFile::withPlace(name, update_nets);
    } else {
        m_level_stats = {};
        loadXmlLevel();
        cLevelFile::withPlace(name, update_nets);
        m_level_completed = false;
        m_global_capacity = 0;
        m_global_cargo = {};
    }
    loadLevelBackground();
    setMapWidth(m_size.x);
    m_goals = std::make_unique<cGoalsList>();
    cLevelFile::withPlace(name, [this] {
        updateView(false);
        updateBuildings(false);
    });
}

void cTacticMap::initAfterAppear() {
    ENGINE_MARK;
    if (cStrategicMap* strategic = cStrategicMap::getInstance()) {
        strategic->hide();
        strategic->disable();
    }
    enable();
    m_locked = false;
    m_dispatch_enabled = true;
    m_current_transaction = -1;
    m_input_off = false;
    bindAll();
    updateControlPanel();
    if (m_start_point->getMenBorn() >= 1) {
        m_start_point->hideCaravan();
        showControlPanel();
    } else {
        m_start_point->startCaravan();
    }
}

// Frames -------------------------------------------------------------------------------------------------------------

void cTacticMap::process() {
    const Float step = cTimer::getInstance()->getStep();
    if (!m_drag_mode && !m_scroll_by_border && !isRolling())
        moveProcess();
    processIdleMen(step);
    processClouds(step);
    processBirds();
    for (cLevelBackgroundObject* tile : m_animated_tiles)
        tile->setAnimTime(tile->getAnimTime() + step);
    m_walking_men.test(*this);
    processDispatch(step);
}

void cTacticMap::processIdleMen(Float step) {
    m_man_idle_timer -= step;
    if (m_man_idle_timer >= 0.0f)
        return;
    m_man_idle_timer = m_constants.man_idle_time;
    if (m_free_men.empty())
        return;
    const auto count = static_cast<Float>(m_free_men.size());
    cFriendMan* man =
        m_free_men[static_cast<std::size_t>(count * static_cast<Float>(Engine::random().next()) / 32768.0f)];
    if (man->isIdle())
        man->setIAmFreeVisualState();
}

void cTacticMap::processClouds(Float step) {
    if (!m_clouds_enabled || !(m_constants.clouds_period > 0.0f))
        return;
    m_clouds_time += step;
    if (m_clouds_time < m_constants.clouds_period)
        return;
    m_clouds_time -= m_constants.clouds_period;
    const Float chance = static_cast<Float>(Engine::random().next()) / 32767.0f;
    if (m_constants.clouds_possibility > 0.0f && chance <= m_constants.clouds_possibility)
        m_background.push_back(new cClouds(this, m_clouds_start));
}

void cTacticMap::processBirds() {
    if (!m_birds_enabled || m_constants.birds_possibility < 1)
        return;
    const Float draw =
        static_cast<Float>(m_constants.birds_possibility) * static_cast<Float>(Engine::random().next()) / 32768.0f;
    if (static_cast<Int>(draw) < 1)
        m_background.push_back(new cBird(this));
}

void cTacticMap::absoluteProcess() {
    cCenteredScrollBack::absoluteProcess();
    if (isRolling())
        rollFrame(cTimer::getInstance()->getRealStep());
}

// The roll -----------------------------------------------------------------------------------------------------------

/// What stands on the land is seen only while the land lies still.
void cTacticMap::startRoll(cLevelRoll::eDirection direction) {
    const std::vector<cControl*> tiles(m_all_tiles.begin(), m_all_tiles.end());
    const auto* graphics = cGraphics::getInstance();
    Vector2 place(static_cast<Float>(graphics->getWidth()) * 0.5f, static_cast<Float>(graphics->getHeight()) * 0.5f);
    if (cStrategicMap* strategic = cStrategicMap::getInstance()) {
        const Int level = cProfile::getInts()["CurrentLevel"];
        place = strategic->getEffectCenter(level);
        strategic->setEffectBegin(level, m_constants.new_level_effect_time, direction == cLevelRoll::in);
    }
    m_objects->hide();
    absoluteEnable();  // until clear(): rolls and tasks go on there
    m_roll.start(direction, tiles, m_constants.new_level_effect_time, m_constants.new_level_alpha_factor,
                 m_constants.new_level_startup_delta, place);
}

void cTacticMap::rollFrame(Float dt) {
    const Float before = m_roll.getLeft();
    const Float step = m_roll.advance(dt);
    const auto passes = [&](Float time) {
        time = std::min(time, m_roll.getTime());  // one beyond the roll is passed in its first frame
        return before >= time && m_roll.getLeft() < time;
    };
    if (cStrategicMap* strategic = cStrategicMap::getInstance())
        strategic->rollEffect(step, m_roll.isRollingIn());
    if (m_roll.isRollingIn() && passes(m_constants.new_level_show_bridges))
        cUtils::showLevelBridges(true);
    if (m_roll.isRollingOut() && passes(m_constants.new_level_hide_bridges))
        cUtils::showLevelBridges(false);
    if (!m_roll.isAtEnd())
        return;
    const Bool rolled_in = m_roll.isRollingIn();
    if (rolled_in) {
        m_roll.finish();
        m_objects->show();
        initAfterAppear();
    } else {
        m_roll.clear();
        clearAfterDisappear();
    }
}

// The end of a level -------------------------------------------------------------------------------------------------

void cTacticMap::discardObject(cView* view) {
    view->hide();
    view->disable();
    view->absoluteDisable();
    discard(view, here());
}

template <class T>
void cTacticMap::discardStorage() {
    auto& storage = cStorage<T>::getStorage();
    for (const auto& [number, object] : storage)
        discardObject(object);
    storage.clear();
}

void cTacticMap::clear() {
    ENGINE_MARK;
    m_input_off = true;
    m_dispatch_enabled = false;
    m_locked = true;
    if (cMarketMenu* menu = cMarketMenu::getInstance())
        menu->closeMenu();
    setDragMode(false);
    unbindAll();
    m_shown_targets.clear();
    m_targets_shown = false;
    m_catapult_of_targets = nullptr;
    dropFromHand();
    deleteDraggedRoad();
    cUtils::deleteRoadPlans();
    for (cFriendMan* man : std::vector(m_men))
        man->destroyMe();
    m_men.clear();
    m_free_men.clear();
    m_busy_men.clear();
    deleteEnemies();
    for (cBuilding* building : cBuilding::getStorage()) {
        building->clearWorkingMen();
        discardObject(building);
    }
    cBuilding::clearStorage();
    m_start_point = nullptr;
    for (cLevelBackgroundObject* object : m_background) {
        if (isValid(object))
            discardObject(object);
    }
    m_background.clear();
    m_animated_tiles.clear();
    m_all_tiles.clear();
    for (cControl* effect : m_effects)
        discardObject(effect);
    m_effects.clear();
    discardStorage<cRoad>();
    discardStorage<cDamagedRoad>();
    discardStorage<cRoadEnemy>();
    discardStorage<cTransRoad>();
    discardStorage<cDraggedRoad>();
    discardStorage<cPlayerFence>();
    discardStorage<cEnemyFence>();
    discardStorage<cPlayerBridgeRoad>();
    discardStorage<cEnemyBridgeRoad>();
    discardStorage<cWayPoint>();
    m_graph.clear();
    m_upgrades.clear();
    m_goals.reset();
    m_transactions = 0;
    m_roll.clear();
    m_control_panel->hide();
    absoluteDisable();
    resetOffset();
    stopMoving();
}

void cTacticMap::clearAfterDisappear() {
    ENGINE_MARK;
    clear();
    hide();
    disable();
    cStrategicMap* strategic = cStrategicMap::getInstance();
    if (!strategic)
        return;
    if (m_next_level >= 0)
        return strategic->enterLevel(m_next_level, m_replay);
    if (m_next_level == to_last_comics)
        cGame::onEndLastComics();
    Music::goOnWithMap();
    strategic->comeBack();
}

void cTacticMap::deleteEnemies() {
    for (cMan* man : std::vector(m_enemies))
        man->destroyMe();
    m_enemies.clear();
}

void cTacticMap::deleteTemporaryObjects() {
    ENGINE_MARK;
    dropFromHand();
    hideTargets();
    m_targets_shown = false;
    deleteDraggedRoad();
    cUtils::deleteRoadPlans();
    const auto& sections = cStorage<cTransRoad>::getStorage();
    while (!sections.empty())
        sections.begin()->second->callOff();  // what was reserved for it goes back into the stores
    for (const sPointInfo& point : m_graph.getPoints()) {
        for (const auto& [neighbour, arc] : point.arcs) {
            if (arc.type == ARC_ROAD_IN_PROGRESS)
                setArcType(point.index, neighbour, ARC_GROUND);
        }
    }
    for (const auto& [number, way_point] : cStorage<cWayPoint>::getStorage()) {
        if (way_point->hasProposedIdol())
            way_point->deleteIdol(false, true);
        if (way_point->hasProposedCatapult())
            way_point->deleteCatapult(false, true);
    }
    deleteEnemies();
    std::erase_if(m_background, [this](cLevelBackgroundObject* object) {
        const Bool is_cloud = isValid(object) && dynamic_cast<cClouds*>(object);
        if (is_cloud)
            discardObject(object);
        return is_cloud;
    });
}

// Ways out -----------------------------------------------------------------------------------------------------------

void cTacticMap::stopInput() {
    deleteDraggedRoad();
    cUtils::deleteRoadPlans();
    disable();
    m_locked = true;
    unbindAll();
}

/// Nobody plays the level from here on; it goes back to where it came from.
void cTacticMap::startLeaving(Int next_level) {
    stopInput();
    m_next_level = next_level;
    m_control_panel->hide();
    startRoll(cLevelRoll::out);
    if (cStrategicMap* strategic = cStrategicMap::getInstance())
        strategic->show();
}

void cTacticMap::loadNextLevel(Int next_level, const sResourceCargo& to_move) {
    ENGINE_MARK;
    cStrategicMap* strategic = cStrategicMap::getInstance();
    const Int level = cProfile::getInts()["CurrentLevel"];
    saveBinLevel();
    if (m_level_completed) {
        if (strategic)
            strategic->updateLevelFlags(level);
        if (next_level >= 0) {
            cGame::openLevel(next_level);
            if (strategic)
                strategic->setPreviousLevel(next_level, level);
        }
    }
    if (cGame* game = cGame::getInstance())
        game->saveLevels();
    m_to_move = to_move;
    startLeaving(next_level);
}

void cTacticMap::replayLevel() {
    ENGINE_MARK;
    deleteTemporaryObjects();
    m_replay = true;
    startLeaving(cProfile::getInts()["CurrentLevel"]);
}

void cTacticMap::showStrategicMap() {
    ENGINE_MARK;
    if (cStrategicMap* strategic = cStrategicMap::getInstance())
        strategic->updateLevelFlags(cProfile::getInts()["CurrentLevel"]);
    saveBinLevel();
    if (cGame* game = cGame::getInstance())
        game->saveLevels();
    startLeaving(to_strategic_map);
}

void cTacticMap::showMainMenu() {
    ENGINE_MARK;
    disable();
    saveBinLevel();
    clear();
    hide();
    absoluteDisable();
    cGame::leaveForMainMenu();
}

void cTacticMap::suspend() {
    setDragMode(false);
    stopInput();
}

void cTacticMap::showGameMenu() {
    ENGINE_MARK;
    suspend();
    if (cGameMenu* menu = cGameMenu::getInstance()) {
        menu->show();
        menu->enable();
    }
}

void cTacticMap::goBack() {
    ENGINE_MARK;
    if (m_locked || !m_start_point || m_start_point->getPrevLevel() < 0)
        return;
    suspend();
    m_start_point->askToGoBack();
}

void cTacticMap::resume() {
    ENGINE_MARK;
    if (!hasLevel() || isRolling())
        return;
    m_locked = false;
    enable();
    bindAll();
}

void cTacticMap::onEscape(cView* view) {
    auto* map = static_cast<cTacticMap*>(view);
    if (!map->m_locked)
        map->showGameMenu();
}
