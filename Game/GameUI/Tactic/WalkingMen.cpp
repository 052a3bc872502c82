#include "Game/GameUI/Tactic/WalkingMen.h"

#include <algorithm>
#include <cmath>

#include "Engine/core/CallStack.h"
#include "Game/GameLogic/men/EnemyMan.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/men/tasks/ManWalkTask.h"
#include "Game/GameUI/Tactic/TacticMap.h"

namespace {

Bool meetHeadOn(const cManWalkTask& a, const cManWalkTask& b) {
    return a.getSrc() == b.getDst() && a.getDst() == b.getSrc();
}

Bool isBusyWithOther(const cManWalkTask& task) {
    return task.isPassBy() || task.isPraying();
}

/// Can the enemy of the two run the other one down?
Bool canPushOff(const cMan& a, const cMan& b) {
    const auto* enemy = dynamic_cast<const cEnemyMan*>(a.isFriend() ? &b : &a);
    return enemy && enemy->canPushOff();
}

}  // namespace

void cWalkingMen::test(cTacticMap& map) {
    ENGINE_MARK;
    const sTacticConstants& constants = map.getConstants();
    const Float reach = std::max(constants.push_off_distance, constants.passby_distance);
    m_men.assign(map.getMen().begin(), map.getMen().end());
    m_men.insert(m_men.end(), map.getEnemies().begin(), map.getEnemies().end());
    if (m_men.size() < 2 || !(reach > 0.0f))
        return;
    m_places.clear();
    for (const cMan* man : m_men)
        m_places.push_back(man->getMovablePosition());

    // What a pair does changes neither list nor place, but for a swap, which changes who walks where.
    for (const auto& [first, second] : m_grid.findPairs(m_places, std::sqrt(reach))) {
        cMan& a = *m_men[first];
        cMan& b = *m_men[second];
        const Vector2 way = m_places[first] - m_places[second];
        const Float distance = glm::dot(way, way);
        if (distance < constants.push_off_distance && a.isFriend() != b.isFriend() && canPushOff(a, b)) {
            a.startPushOff(constants.push_off_time);
            b.startPushOff(constants.push_off_time);
            continue;
        }
        const Bool is_near =
            distance < constants.passby_distance && distance > constants.passby_buffer_zone * constants.passby_distance;
        if (!is_near || a.isFriend() != b.isFriend())
            continue;
        if (a.isFriend())
            meetFriends(a, b);
        else
            meetEnemies(a, b);
    }
}

void cWalkingMen::meetFriends(cMan& a, cMan& b) {
    const cManWalkTask* first = a.getWalkTask();
    const cManWalkTask* second = b.getWalkTask();
    if (!first || !second || isBusyWithOther(*first) || isBusyWithOther(*second))
        return;
    if (meetHeadOn(*first, *second))
        a.exchangeGoals(&b, false);
    else if (first->getSrc() == second->getSrc() && first->getDst() != second->getDst() && first->isOnEllipse() &&
             second->isOnEllipse())
        a.exchangeGoals(&b, true);
}

void cWalkingMen::meetEnemies(cMan& a, cMan& b) {
    cManWalkTask* first = a.getWalkTask();
    cManWalkTask* second = b.getWalkTask();
    if (!first || !second || !meetHeadOn(*first, *second) || isBusyWithOther(*first) || isBusyWithOther(*second))
        return;
    const Vector2 middle = (a.getMovablePosition() + b.getMovablePosition()) * 0.5f;
    first->startPassBy(middle);
    second->startPassBy(middle);
}
