#include "Game/GameLogic/LevelObject.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/iXML.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cLevelObject::cLevelObject(cView* parent) : cScaleOscillator<cOverlayButton>(parent) {
    if (cTacticMap* map = cTacticMap::getInstance())
        map->registerControl(this);
}

cLevelObject::~cLevelObject() {
    if (cTacticMap* map = cTacticMap::getInstance())
        map->unRegisterControl(this);
}

cTacticMap& cLevelObject::getMap() const {
    return *cTacticMap::getInstance();
}

void cLevelObject::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cScaleOscillator<cOverlayButton>::loadXML(xml);
    iXML* states = nullptr;
    if (!xml->get("States", states))
        return;
    for (UInt i = 0; i < states->getTagCount(); ++i) {
        iXML* tag = nullptr;
        states->get(i, tag);
        String id;
        readKey(*tag, u"id", id);
        cState state = *this;
        state.loadXML(tag);
        m_states.insert_or_assign(id, state);
    }
}

void cLevelObject::setStatePicture(eButtonState state) {
    const Float time = getAnimTime();
    const Bool is_shown_as_asked = isPlayerConnected() && isActive();
    cScaleOscillator<cOverlayButton>::setStatePicture(is_shown_as_asked ? state : eButtonState::disabled);
    if (isPlayAnimation())
        setAnimTime(time);  // a state has no frame of its own there
}

void cLevelObject::updateView(Bool hide) {
    if (hide)
        this->hide();
    else if (!isShow())
        show();
    setStatePicture(getState());
}

Bool cLevelObject::isEnemyBuilding() const {
    return getType() == objectBunker || getType() == objectEnemyCatapult;
}

void cLevelObject::setVisualState(const cState& state) {
    setMesh(state.getMesh());
    setAnimation(state.getAnimation());  // these two glide from pose to pose
    cState::operator=(state);
    m_visual_state = &state;
    setDirty();
}

void cLevelObject::changeVisualState(const cState& state) {
    if (m_visual_state != &state)
        setVisualState(state);
}

const cState* cLevelObject::findState(const String& id) const {
    const auto found = m_states.find(id);
    return found == m_states.end() ? nullptr : &found->second;
}

Bool cLevelObject::changeVisualState(const String& id) {
    const cState* state = findState(id);
    if (state)
        changeVisualState(*state);
    return state != nullptr;
}
