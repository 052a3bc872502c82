#pragma once

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "Engine/core/Singleton.h"
#include "Engine/input/ControlCodes.h"
#include "Game/CommonUI/TipWorld.h"
#include "Game/GameLogic/ResourceCargo.h"
#include "Game/GameUI/Tactic/CenteredScrollBack.h"
#include "Game/GameUI/Tactic/LevelGraph.h"
#include "Game/GameUI/Tactic/LevelRoll.h"
#include "Game/GameUI/Tactic/TacticConstants.h"
#include "Game/GameUI/Tactic/WalkingMen.h"

class aTarget;
class cArrangementUnit;
class cBarrier;
class cBuilding;
class cCatapult;
class cControlPanel;
class cDraggedRoad;
class cFriendMan;
class cGoal;
class cGoalsList;
class cLevelBackgroundObject;
class cLevelObject;
class cMan;
class cMarketTask;
class cRoad;
class cRoadPlan;
class cRoadPrice;
class cStartPoint;
class cUpgradableUnit;

/// The numbers that a level counts while it is played; saved with it.
enum eLevelStat : std::size_t {
    statShopDeals = 0,
    statPortDeals = 1,
    statEnemySuccesses = 2,
    statMenBought = 3,
    statShops = 4,
    statPorts = 5,
    statBunkers = 6,
    statMenMade = 7,
    statMaximumOfMen = 8,
    level_stat_count = 9
};

/// The failure of a level whose record can't be used.
struct sDamagedRecord : String {
    using String::String;
};

/// The level in play: the panel under which every level object hangs, and the registry through which they know of each
/// other: the graph, the men, the goals, the stocks.
///
/// It simulates no object itself; each is a view with a frame of its own. Its own frame scrolls, lets clouds and birds
/// go, looks at men who come close to each other, and hands goals out. It lives as long as a game does and holds one
/// level after the other:
///
///     initialize() - the level rolls in - initAfterAppear() - play - a way out - the level rolls out - clear()
///
/// Positions of the level are map units; what hangs under the map is at its place on the screen, which is that place
/// less the scroll offset.
class cTacticMap : public cCenteredScrollBack, public Engine::cSingleton<cTacticMap>, public iTipWorld {
public:
    using PATH_HOLDER = ::PATH_HOLDER;

    /// Sets itself up from "GameUI/TacticMap.xml": the keys of the panel and of sTacticConstants, and the child tags
    /// "IdolIcon", "CatapultIcon", "DeepWater", "BottomTile", "NearshoreWater", "TopTile".
    /// Throws "Object already exist." for a second one.
    explicit cTacticMap(Engine::cView* parent);
    ~cTacticMap() override;

    void loadXML(const Engine::iXML* xml) override;
    void process() override;
    void absoluteProcess() override;
    void enabled() override;
    void disabled() override;

    // From level to level --------------------------------------------------------------------------------------------

    /// Begins the level "CurrentLevel" of the player, as he left it, or from its file if he never was there or wants
    /// it anew. Throws "LevelMap.lvl, level <n>...: <what>" for a level that can't be, with the map cleared.
    void initialize(Bool replay);
    void initAfterAppear();  ///< the level has rolled in and can be played
    void clear();            ///< everything of the level goes
    void clearAfterDisappear();
    /// Leaves for another level; -1: the end of the campaign.
    void loadNextLevel(Int next_level, const sResourceCargo& to_move);
    void replayLevel();
    void showStrategicMap();
    void showMainMenu();
    void showGameMenu();
    void goBack();   ///< to the level before, if there is one and the player confirms it
    void suspend();  ///< something lies over the level and takes the input: until resume()
    void resume();   ///< back from the game menu, from a question or from a market
    /// Removes what is only a plan: before saving.
    void deleteTemporaryObjects();
    void deleteEnemies();
    void bindAll();
    void unbindAll();
    Bool hasLevel() const { return m_goals != nullptr; }
    Bool isLocked() const override { return m_locked; }
    Bool isInputOff() const { return m_input_off; }
    Bool isRolling() const { return m_roll.isRunning(); }
    Bool isRollingOut() const { return m_roll.isRollingOut(); }
    Bool isToBeReplayed() const { return m_replay; }  ///< rolls out, to come again from its file
    Bool isLevelCompleted() const { return m_level_completed; }
    void setLevelCompleted(Bool completed) { m_level_completed = completed; }

    /// Reads the level from "LevelMap.lvl". Throws "Wrong arc index", "undefined object type" and, for other things
    /// that can't be, "LevelMap.lvl, level <n>, <element>: <what>".
    void loadXmlLevel();
    void loadLevelBackground();
    /// Puts the level into the player's record of it; nothing without a level.
    void saveBinLevel();
    /// Throws sDamagedRecord, "LevelMap.lvl, level <n>, saved: <what>", for a record that is cut or damaged.
    void loadBinLevel();
    /// Writes the record of the level: what is saved and what two runs are compared by.
    void writeLevel(Engine::iArch& arch);

    // What is there --------------------------------------------------------------------------------------------------

    Bool hasPoint(Int index) const { return m_graph.hasPoint(index); }
    sPointInfo& getPoint(Int index) { return m_graph.getPoint(index); }
    const sPointInfo& getPoint(Int index) const { return m_graph.getPoint(index); }
    Int getPointCount() const { return static_cast<Int>(m_graph.getPoints().size()); }
    const POINTS& getPoints() const { return m_graph.getPoints(); }
    const cPathSearch& getSearch() const { return m_graph.getSearch(); }
    void setArcType(Int a, Int b, Int type) { m_graph.setArcType(a, b, type); }
    void setBuilding(Int point, cLevelObject* object);
    void setIdolFlag(Int point, Bool stands) { m_graph.setIdol(point, stands); }
    void setPlayerConnected(Int point, Bool connected) { m_graph.setPlayerConnected(point, connected); }

    /// What stands on a point, a proposed idol or catapult included; null for nothing.
    cLevelObject* getLevelObject(Int point) const;
    /// That of the object on the point, else that of its way point, else null.
    cArrangementUnit* getArrangementUnit(Int point) const;
    /// The point whose building or node lies under that place of the screen; -1 for none.
    Int getPointByPosition(const Vector2& pos) const;
    cRoad* getRoad(Int p0, Int p1, Bool enemy) const;
    /// Do a road or one object over both join these points? With p0 -1 any road that ends at p1, with p1 -1 any road
    /// that begins at p0. Roads of the enemy count unless player_only.
    Bool hasRoad(Int p0, Int p1, Bool player_only) const;
    /// For the player's with p1 -1: any that has an end at p0.
    cBarrier* getFence(Int p0, Int p1, Bool enemy) const;
    Bool hasFence(Int p0, Int p1, Bool player_only) const;
    cBarrier* getBridgeRoad(Int p0, Int p1, Bool enemy) const;
    Bool hasBridgeRoad(Int p0, Int p1) const;  ///< of either side
    /// Removes the road of that arc, if there is one, and brings the map up to it: its views, or the nets alone.
    void deleteRoad(Int p0, Int p1, Bool enemy, Bool update_view);

    const Vector2& getSize() const { return m_size; }
    Engine::cView* getObjectsLayer() const { return m_objects; }  ///< the parent of all level objects
    Vector2 toScreen(const Vector2& map_position) const { return map_position - Vector2(getOffset(), 0.0f); }
    Vector2 toMap(const Vector2& screen_position) const { return screen_position + Vector2(getOffset(), 0.0f); }
    const sTacticConstants& getConstants() const { return m_constants; }
    cStartPoint* getStartPoint() const { return m_start_point; }
    Int getLevelStat(eLevelStat stat) const { return m_level_stats[stat]; }
    void addToLevelStat(eLevelStat stat, Int amount) { m_level_stats[stat] += amount; }
    void setMaximumOfMen(Int amount) { m_level_stats[statMaximumOfMen] = amount; }
    /// Told by the factory of everything that it makes.
    void objectCreated(cLevelObject& object);

    // Ways and nets --------------------------------------------------------------------------------------------------

    /// Works the nets of both sides out anew, and with them who stands where.
    /// Throws "cTacticMap::generateConnectionMap(): there is no point under StartPoint" or "... under Bunker".
    void generateConnectionMap();
    void generatePlayerConnectionMap(Int _base_connected) { m_graph.connectPlayer(_base_connected); }
    void generateEnemyConnectionMap(Int _base_connected) { m_graph.connectEnemy(_base_connected); }

    Bool getBestPath(Int src, Int dst, PATH_HOLDER& path, Float cross_country, Bool for_player, Bool use_gates,
                     Bool avoid_idols);
    /// The way of that man; of one who is as fast everywhere for null.
    Bool getBestPathByRoads(const cMan* man, Int src, Int dst, PATH_HOLDER& path, Bool for_player, Bool use_gates,
                            Bool avoid_idols);
    Bool getBestPathForDraggedRoad(Int _from, Int _to, PATH_HOLDER& _path);
    Bool getBestPathForRoadPlan(Int src, PATH_HOLDER& path);
    Int getShipPath(Int _from, PATH_HOLDER& path);
    Float getPathLength(const PATH_HOLDER& path) const { return m_graph.getSearch().getPathLength(path); }
    Float getPathLength(Int src, Int dst, Bool cross_country);
    /// The nearest warehouse or start point on the player's net; null for none.
    cBuilding* getClosestWarehouse(const cMan* man, Int src, Bool need_space);
    /// The player's stores that can be reached from a point, nearest first; their distances stay on them.
    void getSortedResourceProviders(std::vector<cBuilding*>& buildings, Int src_point);
    /// By their way to a point, or by their distance from a place of the screen; it stays on them.
    void sortMenByDistance(std::vector<cFriendMan*>& men, Int src_point, Bool descending);
    void sortMenByDistance(std::vector<cFriendMan*>& men, const Vector2& src_pos, Bool descending);
    /// For a man who has lost his way; -1 for none.
    Int getNearestConnectedPoint(Int src);
    /// Where a man who has no room at src may stand; -1 for nowhere better.
    Int getNearestFreePoint(Int src);
    Bool isStandingPlace(const sPointInfo& point) const;  ///< nothing takes the place for itself
    Int getPointCapacity(Int point) const;                ///< how many men may stand there
    Int countMen(Int point) const;                        ///< the player's men who stand there or left it last

    // Men and goals --------------------------------------------------------------------------------------------------

    const std::vector<cFriendMan*>& getMen() const { return m_men; }
    const std::vector<cMan*>& getEnemies() const { return m_enemies; }
    /// In the order of their birth.
    const std::vector<cFriendMan*>& getFreeMenList() const { return m_free_men; }
    const std::vector<cFriendMan*>& getBusyMen() const { return m_busy_men; }
    Int getNumberOfMen() const;  ///< those who will come included, as long as they are not born
    void setFreeMan(cFriendMan* man);
    void setBusyMan(cFriendMan* man);
    void addEnemy(cMan* man) { m_enemies.push_back(man); }
    void removeMan(cMan* man);  ///< who is about to end
    /// A man who has just become free takes over the goal of another whose way is longer.
    void rearrangeGoals(cFriendMan* man);
    void freeBusyMen();               ///< cancels the goals that stand alone
    void freeBusyMen(Long trans_id);  ///< cancels the goals of that transaction
    Bool isAnyGoalOfType(Int type) const;
    void clearGoalList();
    void clearTasks();                               ///< the player calls everything off
    Bool callOffOrder(const cUpgradableUnit& unit);  ///< with all its goals; false if it has none
    Bool canBuyMan();
    void buyMan();
    cFriendMan* setUpInitMan(Int point);
    cGoalsList* getGoals() const { return m_goals.get(); }
    Long getCurrentTransaction() const { return m_current_transaction; }
    Long makeTransaction() { return ++m_transactions; }

    // Goods ----------------------------------------------------------------------------------------------------------

    /// All goods of the player on the level, counted anew if forced.
    const sResourceCargo& getGlobalCargo(Bool force);
    Int getGlobalCapacity() const { return m_global_capacity; }
    /// Pays out of the stores nearest to a point, then out of men's hands.
    /// Throws "cTacticMap::consumeGlobalResources(): there is not enough global resources on the level".
    Bool consumeGlobalResources(const sResourceCargo& price, Int under_point);
    Int consumeResourcesFromLoadingMen(Int type, Int amount);  ///< gives what was not found
    /// Men on their way to a store with a load.
    /// Throws "cTacticMap::getLoadingMen() - busy man hasn't goal".
    void getLoadingMen(std::vector<cFriendMan*>& men) const;
    void addProduct(Int product_id, Int amount);
    void setProduct(Int product_id, Int amount);
    Int getProduct(Int product_id) const;
    static Bool isPlan(Int product_id);  ///< that a shop sells, and without which no bridge is left
    /// The plans among these trades that nobody has bought bind the level's bridges.
    void saveUpgrades(const std::vector<cMarketTask*>& tasks);
    void removeUpgrade(Int product_id) { m_upgrades.erase(product_id); }
    const std::map<Int, cMarketTask*>& getUpgrades() const { return m_upgrades; }  ///< those plans, by their products

    // What is seen ---------------------------------------------------------------------------------------------------

    /// After the graph has changed: the nets, the totals, all roads, fences, nodes and men.
    void updateView(Bool hide);
    void updateGlobalResources(Bool force);
    void updateUpgradableUnits();
    void updateBuildings(Bool hide);
    void updateRoads(Bool hide);
    void updateFences(Bool player, Bool enemy, Bool hide);
    void updateBridgeRoads(Bool player, Bool enemy, Bool hide);
    void updateWayPoints(Bool hide);
    void updateDamagedRoads();
    void updateControlPanel();
    void showControlPanel();
    void showLack(const sResourceCargo& need, Int men);  ///< the control panel tells what is missing of it
    Bool isPanelAt(const Vector2& point) const;          ///< does the control panel hide that place of the screen?
    cControlPanel& getControlPanel() const { return *m_control_panel; }
    void onFenceBuilt();  ///< after any change of fences
    void targetDamaged(aTarget* target);
    void addBackgroundTile(cLevelBackgroundObject* tile, Bool animated, Bool rolls);
    void removeScenery(cLevelBackgroundObject* object) { std::erase(m_background, object); }  ///< it is about to end
    /// Does a child of that view lie on the map by itself, taken along by no object?
    Bool liesOnMap(const Engine::cView* parent) const { return !parent || parent == this || parent == m_objects; }
    void addEffect(Engine::cControl* effect) { m_effects.push_back(effect); }  ///< it ends with the level at the latest
    void removeEffect(Engine::cControl* effect) { std::erase(m_effects, effect); }
    Bool areCloudsEnabled() const { return m_clouds_enabled; }
    void setCloudsEnabled(Bool clouds_enabled) { m_clouds_enabled = clouds_enabled; }
    void setBirdsEnabled(Bool birds_enabled) { m_birds_enabled = birds_enabled; }

    // The player's hand ----------------------------------------------------------------------------------------------

    void setDragMode(Bool drag);
    /// The pointer carries an idol, or a catapult, and every place for one proposes it; or no longer.
    void showIdols(Bool show);
    void showCatapults(Bool show);
    void showSitesAnew();  ///< the places for what the pointer carries may have changed
    Bool isIdolInHand() const { return m_idol_in_hand; }
    Bool isCatapultInHand() const { return m_catapult_in_hand; }
    Bool isDragged() const { return m_drag_mode; }
    /// The road from src_point to dst_point, or for -1 to the player's net; null where there is no way.
    std::unique_ptr<cRoadPlan> getRoadPlan(Int src_point, Int dst_point);
    cRoadPrice& getRoadPrice();
    /// The road that the pointer pulls behind it; null if there is none, or it has not been moved yet.
    cDraggedRoad* getRoadInDrag() const { return m_road_in_drag ? m_dragged_road : nullptr; }
    void deleteDraggedRoad();

    /// What a catapult reaches of one side shows its button.
    void showTargets(cCatapult* catapult, Bool for_enemy);
    void hideTargets();
    void targetClicked(aTarget* target);
    /// The player chooses one of the targets on show.
    Bool areTargetsShown() const { return m_targets_shown; }
    void setTargetsShown(Bool shown) { m_targets_shown = shown; }
    cCatapult* getCatapultOfTargets() const { return m_catapult_of_targets; }  ///< whose targets were shown last
    void catapultEnded(const cCatapult& catapult);

    // What tips ask
    std::array<Int, 5> getStock() const override { return m_global_cargo.amounts; }
    Int getFreeMen() const override { return static_cast<Int>(m_free_men.size()); }
    Bool isPointedAt(const Engine::cView&) const override { return false; }

private:
    static void onMouseDown(Engine::cView* view);
    static void onMouseUp(Engine::cView* view);
    static void onMouseMove(Engine::eControl control, Long value, Engine::cView* view);
    static void onRightClick(Engine::cView* view);
    static void onEscape(Engine::cView* view);
    void mouseDown();
    void mouseUp();
    void mouseMove();
    void press(const Vector2& cursor);
    void pressPoint(Int point);
    Bool pressSite(cWayPoint& way_point);
    void pressTarget(const Vector2& cursor);
    void dropFromHand();
    void carry(Engine::cPicture& icon, Bool shown);
    void moveIcon(Engine::cPicture& icon);
    void updateFlyingIdolPos() { moveIcon(*m_idol_icon); }
    void updateFlyingCatapultPos() { moveIcon(*m_catapult_icon); }
    void offerTarget(aTarget& target, const Vector2& center, Float radius);
    template <class T>
    void offerTargets(const Vector2& center, Float radius);
    void finishDraggedRoad();
    Bool cursorOutOfScreen() const;

    void createWaypoints();
    void createRoadAndFences();
    void createArcObjects(Int a, Int b, const sArcInfo& arc);
    void requireStartPoint() const;
    void loadLevel(Bool replay);
    void readLevel(Engine::iArch& arch);
    void readMen(Engine::iArch& arch);

    void stopInput();
    void startLeaving(Int next_level);
    void startRoll(cLevelRoll::eDirection direction);
    void rollFrame(Float dt);

    void processIdleMen(Float step);
    void processClouds(Float step);
    void processBirds();
    void processDispatch(Float step);
    cFriendMan* findManFor(cGoal& goal);
    void measureMan(cFriendMan& man, Int target, PATH_HOLDER& path);
    Bool settleCloseCalls(const std::vector<cFriendMan*>& men, Int target);
    void countUsedPoints();
    void discardObject(Engine::cView* view);
    template <class T>
    void discardStorage();
    template <class T>
    void updateStorage(Bool hide);

    sTacticConstants m_constants;
    cLevelGraph m_graph;
    Vector2 m_size{0.0f, 0.0f};  ///< of the level's map, units

    // Not owned: children of this view.
    std::vector<cFriendMan*> m_free_men;  ///< with nothing to do
    std::vector<cFriendMan*> m_busy_men;  ///< with a goal
    std::vector<cFriendMan*> m_men;       ///< all of the player's, in the order of their birth
    std::vector<cMan*> m_enemies;
    cWalkingMen m_walking_men;

    Int m_global_capacity = 0;
    sResourceCargo m_global_cargo;
    sResourceCargo m_to_move;  ///< goods of the last level's caravan
    std::unique_ptr<cGoalsList> m_goals;
    Long m_transactions = 0;          ///< so many there were on this level so far
    Long m_current_transaction = -1;  ///< the one that has priority; -1 for none
    Bool m_dispatch_enabled = false;
    Float m_tasks_timer = 0.25f;             ///< seconds to the next dispatch
    Float m_man_idle_timer = 0.0f;           ///< seconds
    std::map<Int, cMarketTask*> m_upgrades;  ///< plans that shops of the level offer and nobody has bought; not owned
    std::array<Int, level_stat_count> m_level_stats{};
    cStartPoint* m_start_point = nullptr;

    // Of the last connection map
    Int m_connected_points = 0;
    Int m_free_points = 0;
    Int m_used_points = 0;
    Float m_free_point_capacity = 1.0f;
    Float m_building_point_capacity = 2.0f;
    std::vector<Float> m_men_on_points;

    // Kept between dispatches, so that nothing is allocated
    std::vector<cFriendMan*> m_candidates;
    std::vector<cFriendMan*> m_close_men;  ///< whose order roundings might decide

    // Children of this view
    cControlPanel* m_control_panel;
    Engine::cPicture* m_idol_icon;
    Engine::cPicture* m_catapult_icon;
    Engine::cPicture* m_water;
    Engine::cPicture* m_bottom_tile;
    Engine::cPicture* m_nearshore;
    Engine::cPicture* m_top_tile;
    std::vector<cLevelBackgroundObject*> m_animated_tiles;
    std::vector<cLevelBackgroundObject*> m_all_tiles;
    std::vector<cLevelBackgroundObject*> m_background;  ///< every object of the scenery
    std::vector<Engine::cControl*> m_effects;           ///< those that no object takes along
    Engine::cView* m_objects;                           ///< the parent of all level objects

    Bool m_clouds_enabled = true;
    Bool m_birds_enabled = true;
    Float m_clouds_time = 0.0f;  ///< seconds since the last chance for a cloud
    Vector2 m_clouds_start{0.0f, 0.0f};

    cLevelRoll m_roll;
    Int m_next_level = -1;  ///< what comes after the level has rolled out; 0 and above: that level
    Bool m_replay = false;
    Bool m_locked = true;
    Bool m_input_off = true;
    Bool m_level_completed = false;
    Bool m_drag_mode = false;
    Float m_drag_mouse_x = 0.0f;
    Bool m_scroll_by_border = false;
    cDraggedRoad* m_dragged_road = nullptr;  ///< owned by the view tree
    Bool m_road_in_drag = false;             ///< it has been moved
    cRoadPrice* m_road_price = nullptr;      ///< a child of the layer of objects; made when it is first shown
    Bool m_idol_in_hand = false;
    Bool m_catapult_in_hand = false;
    Bool m_targets_shown = false;
    cCatapult* m_catapult_of_targets = nullptr;
    std::vector<aTarget*> m_shown_targets;  ///< null where one was destroyed
};
