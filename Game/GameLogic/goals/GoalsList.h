#pragma once

#include <list>
#include <memory>
#include <set>

#include "Game/GameLogic/goals/Goal.h"
#include "Game/Types.h"

/// The goals of a level that wait for men: first in, first out.
///
/// It also knows which transactions are under way: those of which a man has one goal while others still wait.
class cGoalsList {
public:
    void addGoal(std::shared_ptr<cGoal> goal);
    void remove(const cGoal* goal);  ///< it leaves the list and is otherwise left alone
    Bool contains(Long trans_id) const;
    Bool contains(const cGoal* goal) const;
    Bool containsType(Int type) const;
    Bool isEmpty() const { return m_goals.empty(); }
    /// The oldest goal that need not wait while that transaction has priority; null for none.
    cGoal* findReady(Long current_transaction) const;
    /// One goal of this goal's transaction has found its man.
    void manageTransation(const cGoal* goal);
    /// Calls off all waiting goals of a transaction.
    void deleteTransaction(Long id);
    /// Calls off all waiting goals but those of transactions that are under way.
    void deleteTransactions();

    const std::list<std::shared_ptr<cGoal>>& getGoals() const { return m_goals; }  ///< the newest first

private:
    template <class F>
    void cancelIf(F&& is_meant);

    std::list<std::shared_ptr<cGoal>> m_goals;
    std::set<Long> m_open_transactions;
};
