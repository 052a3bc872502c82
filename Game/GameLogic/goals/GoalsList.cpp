#include "Game/GameLogic/goals/GoalsList.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "Engine/core/CallStack.h"

void cGoalsList::addGoal(std::shared_ptr<cGoal> goal) {
    m_goals.push_front(std::move(goal));
}

void cGoalsList::remove(const cGoal* goal) {
    m_goals.remove_if([goal](const std::shared_ptr<cGoal>& other) { return other.get() == goal; });
}

Bool cGoalsList::contains(Long trans_id) const {
    return std::any_of(m_goals.begin(), m_goals.end(),
                       [trans_id](const auto& goal) { return goal->getTransactionId() == trans_id; });
}

Bool cGoalsList::contains(const cGoal* goal) const {
    return std::any_of(m_goals.begin(), m_goals.end(), [goal](const auto& other) { return other.get() == goal; });
}

Bool cGoalsList::containsType(Int type) const {
    return std::any_of(m_goals.begin(), m_goals.end(), [type](const auto& goal) { return goal->getType() == type; });
}

cGoal* cGoalsList::findReady(Long current_transaction) const {
    const auto found = std::find_if(m_goals.rbegin(), m_goals.rend(), [current_transaction](const auto& goal) {
        return !goal->filter(current_transaction);
    });
    return found == m_goals.rend() ? nullptr : found->get();
}

void cGoalsList::manageTransation(const cGoal* goal) {
    if (contains(goal->getTransactionId()))
        m_open_transactions.insert(goal->getTransactionId());
    else
        m_open_transactions.erase(goal->getTransactionId());
}

/// From the oldest on. A goal that is called off may change the list, so those meant are gathered first.
template <class F>
void cGoalsList::cancelIf(F&& is_meant) {
    ENGINE_MARK;
    std::vector<std::shared_ptr<cGoal>> meant;
    std::copy_if(m_goals.rbegin(), m_goals.rend(), std::back_inserter(meant), is_meant);
    for (const auto& goal : meant) {
        if (!contains(goal.get()))
            continue;  // an earlier one has taken it along
        remove(goal.get());
        goal->cancel();
    }
}

void cGoalsList::deleteTransaction(Long id) {
    cancelIf([id](const auto& goal) { return goal->getTransactionId() == id; });
    m_open_transactions.erase(id);
}

void cGoalsList::deleteTransactions() {
    cancelIf([this](const auto& goal) { return !m_open_transactions.contains(goal->getTransactionId()); });
}
