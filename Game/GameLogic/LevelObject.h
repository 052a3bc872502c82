#pragma once

#include <map>

#include "Engine/Ui/OverlayButton.h"
#include "Engine/Ui/State.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Game/GameLogic/Connectable.h"
#include "Game/GameLogic/Observable.h"
#include "Game/Types.h"

namespace Engine {
class iArch;
class iXML;
}  // namespace Engine
class cTacticMap;

/// What a level object is. The numbers stand in level files and saves.
enum eObjectType : Int {
    objectWayPoint = 0,
    objectRoad = 1,
    objectRoadEnemy = 2,
    objectPlayerFence = 3,
    objectEnemyFence = 4,
    objectIdol = 5,
    objectPlayerCatapult = 6,
    objectEnemyCatapult = 7,
    objectStartPoint = 8,
    objectWarehouse = 9,
    objectIronMill = 10,
    objectStoneMill = 11,
    objectWoodMill = 12,
    objectFoodMill = 13,
    objectBridge = 14,
    objectBunker = 15,
    objectPort = 16,
    objectShop = 17,
    objectFriendMan = 19,
    objectEnemyMan = 20,
    objectMill = 21,  ///< no object by itself
    objectTransRoad = 22,
    objectDraggedRoad = 23,
    objectPlayerBridgeRoad = 24,
    objectEnemyBridgeRoad = 25,
    objectDamagedRoad = 26,
};

/// A thing that stands or walks on the level's map: a button that knows what it is, how it looks in each of its states
/// and how to save itself.
///
/// It is made by create(), told where it belongs (loadXmlState() or loadBinState()), and brought to life by
/// setInitState(). It is a child of the map, registered with it as long as it lives, so that it moves when the map
/// scrolls: its position is always one on the screen. It ends by the map's clear() or by an end of its own, through
/// discard().
class cLevelObject : public cScaleOscillator<Engine::cOverlayButton>, public cConnectable, public iObservable {
public:
    /// The object of a type, set up by its definition file "GameLogic/<name>.xml" and not yet placed.
    /// Throws "undefined object type" for a number that is none.
    static cLevelObject* create(Int type, cTacticMap& map);
    /// The definition file of a type; null for a number that is none.
    static const char* getDefinitionFile(Int type);

    /// @param parent  the map
    explicit cLevelObject(Engine::cView* parent);
    ~cLevelObject() override;

    /// The keys of the button, then the child tag "States": each of its children is one look (cState) with the
    /// attribute "id" as its name. What a look leaves out is as in the object's own tag.
    void loadXML(const Engine::iXML* xml) override;
    /// An object that the player's net does not reach, or that is not active, always looks disabled.
    void setStatePicture(Engine::eButtonState state) override;

    virtual Int getType() const = 0;
    virtual void startOscillator() { setOscillating(true); }
    virtual void clearWorkingMen() {}
    virtual void setInitState() {}
    virtual void saveBinState(Engine::iArch&) {}
    virtual void loadBinState(Engine::iArch&) {}
    virtual void loadXmlState(const Engine::iXML*) {}
    /// Shows or hides the object, and brings its looks up to what the graph says.
    virtual void updateView(Bool hide);
    virtual Bool isEnemyBuilding() const;
    virtual Bool isActive() const { return m_is_active; }
    virtual void setActive(Bool active) { m_is_active = active; }
    virtual void setVisualState(const Engine::cState& state);
    virtual void changeVisualState(const Engine::cState& state);  ///< nothing if it looks so already
    virtual Bool isFriend() const { return false; }

    const Engine::cState* findState(const String& id) const;  ///< null without one
    /// Takes the look of that name if there is one.
    Bool changeVisualState(const String& id);

protected:
    cTacticMap& getMap() const;

private:
    std::map<String, Engine::cState> m_states;
    const Engine::cState* m_visual_state = nullptr;  ///< the one of m_states that it has now
    Bool m_is_active = true;
};
