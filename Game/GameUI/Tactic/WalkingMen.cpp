#include "Game/GameUI/Tactic/WalkingMen.h"

#include <algorithm>

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

}  // namespace

void cWalkingMen::test(cTacticMap& map) {
    ENGINE_MARK;
    const sTacticConstants& constants = map.getConstants();
    const Float reach = std::max(constants.push_off_distance, constants.passby_distance);
    if (!(reach > 0.0f))
        return;
    const auto& men = map.getMen();
    const auto& enemies = map.getEnemies();
    const auto get_man = [&](UInt i) -> cMan& { return i < men.size() ? *men[i] : *enemies[i - men.size()]; };
    m_places.clear();
    for (const cMan* man : men)
        m_places.push_back(man->getMovablePosition());
    for (const cMan* enemy : enemies)
        m_places.push_back(enemy->getMovablePosition());

    // Most pairs of one side are so close that nothing happens; without the other side nobody asks for them. What a
    // pair does changes neither list nor place, but for a swap, which changes who walks where.
    const Float least_passby = constants.passby_buffer_zone * constants.passby_distance;
    const Float least = enemies.empty() ? least_passby : -1.0f;
    for (const auto& [first, second] : m_grid.findPairs(m_places, reach, least)) {
        const Vector2 way = m_places[first] - m_places[second];
        const Float distance = glm::dot(way, way);
        const Bool is_friend = first < men.size();
        if (is_friend != (second < men.size())) {
            if (distance < constants.push_off_distance)
                meetOtherSide(get_man(first), get_man(second), constants.push_off_time);
        } else if (distance < constants.passby_distance && distance > least_passby) {
            if (is_friend)
                meetFriends(get_man(first), get_man(second));
            else
                meetEnemies(get_man(first), get_man(second));
        }
    }
}

void cWalkingMen::meetOtherSide(cMan& man, cMan& enemy, Float time) {
    const auto* attacker = dynamic_cast<const cEnemyMan*>(&enemy);
    if (!attacker || !attacker->canPushOff())
        return;
    man.startPushOff(time);
    enemy.startPushOff(time);
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
