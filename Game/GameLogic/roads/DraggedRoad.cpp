#include "Game/GameLogic/roads/DraggedRoad.h"

#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/Storage.h"
#include "Engine/core/CallStack.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

void cDraggedRoad::setConnectionPoint(Int p0, Int) {
    setEnds(p0, -1);
    m_start = getRoadPointPos(p0);
    m_end = m_start;
}

void cDraggedRoad::setEnd(const Vector2& pos) {
    m_end = getMap().toMap(pos);
}

void cDraggedRoad::updateView(Bool hide) {
    if (getP0() == -1 || hide)
        return this->hide();
    createTiles(m_start, m_end, getRoadColor(), false);
    show();
}

void cDraggedRoad::destroyMe() {
    ENGINE_MARK;
    getMap().unRegisterControl(this);
    hide();
    disable();
    std::erase_if(cStorage<cDraggedRoad>::getStorage(), [this](const auto& entry) { return entry.second == this; });
    discard(static_cast<cView*>(this), here());
}
