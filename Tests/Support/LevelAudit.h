#pragma once

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "Tests/Support/Ledger.h"

class cGoal;

/// Looks after every frame of a level whether it still adds up.
///
/// Goods only get fewer as they are built in, traded or paid for men, and only more by what mills make and trades give.
/// What stores have promised is what goals are to fetch there. An order has all it needs on its way. Each man is in the
/// list that his goal says, has a place or is on his way, and does not stand in his work for ever.
class cLevelAudit {
public:
    /// The level as it is now is where counting begins.
    void start();
    /// The same level, left and entered again: what men carried may be gone, nothing else, and nothing is new. Gives
    /// what is wrong.
    String startAgain();
    /// After each frame: what is wrong, in words; empty as long as all is well.
    /// @param step  seconds
    String findFault(Float step);
    const std::map<Int, long>& getGoalCounts() const { return m_goal_counts; }  ///< how many were seen of each type

private:
    /// Where a man was last seen to do something.
    struct sTrace {
        Vector2 position{0.0f, 0.0f};
        const void* task = nullptr;
        Float idle = 0.0f;  ///< seconds since
    };

    void remember();
    void gatherGoals();
    // These throw what is wrong.
    void checkLists() const;
    void checkGoods() const;
    void checkPromises() const;
    void checkOrders() const;
    void checkMan(const cFriendMan& man);
    void checkProgress(const cFriendMan& man, Float step);

    sLedger m_before;
    Int m_men_bought = 0;
    Int m_mill_levels = 0;
    std::map<Int, Int> m_mills_at_work;  ///< by what they make
    Int m_deals = 0;
    std::vector<std::pair<const cMarketTask*, std::size_t>> m_trades_at_work;  ///< with their orders
    std::vector<const cGoal*> m_goals;  ///< those that wait and those that men have
    std::set<const cGoal*> m_waiting;
    UInt m_last_goal = 0;  ///< its number
    std::map<Int, long> m_goal_counts;
    std::map<ULongLong, sTrace> m_traces;  ///< by the number of the man
};
