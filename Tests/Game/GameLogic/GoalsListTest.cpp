#include "Game/GameLogic/goals/GoalsList.h"

#include <gtest/gtest.h>

#include "Tests/Support/WalkingLevel.h"

/// One of no level: that it is called off is only counted.
struct cCountedGoal : cWalkGoal {
    cCountedGoal() : cWalkGoal(0) {}
    void cancel() override { ++cancelled; }
};

struct GoalsList : testing::Test {
    std::shared_ptr<cCountedGoal> add(Long transaction) {
        auto goal = std::make_shared<cCountedGoal>();
        goal->setTransactionId(transaction);
        list.addGoal(goal);
        return goal;
    }

    cGoalsList list;
};

TEST_F(GoalsList, handsOutTheOldestThatNeedNotWait) {
    const auto oldest = add(1);
    const auto middle = add(2);
    add(3);
    EXPECT_EQ(list.findReady(-1), oldest.get());
    oldest->waits = true;
    EXPECT_EQ(list.findReady(-1), middle.get());
    oldest->waits = false;
    EXPECT_EQ(list.findReady(-1), oldest.get());
}

TEST_F(GoalsList, callsOffWhatNobodyHasBegun) {
    const auto begun = add(1);
    const auto waiting = add(1);
    const auto other = add(2);
    list.remove(begun.get());  // a man has it
    list.manageTransation(begun.get());
    list.deleteTransactions();
    EXPECT_EQ(waiting->cancelled, 0);
    EXPECT_EQ(other->cancelled, 1);

    list.deleteTransaction(1);
    EXPECT_EQ(begun->cancelled, 0);
    EXPECT_EQ(waiting->cancelled, 1);
    EXPECT_TRUE(list.isEmpty());

    const auto late = add(1);  // the transaction is over, so it is no longer under way
    list.deleteTransactions();
    EXPECT_EQ(late->cancelled, 1);
}

/// One that takes others along when it is called off, as a load does its whole transaction.
TEST_F(GoalsList, standsGoalsThatCallOffOthers) {
    struct cTakesAll : cWalkGoal {
        explicit cTakesAll(cGoalsList& goals) : cWalkGoal(0), list(goals) { setTransactionId(1); }
        void cancel() override {
            ++cancelled;
            list.deleteTransaction(1);
        }
        cGoalsList& list;
    };
    const auto first = std::make_shared<cTakesAll>(list);
    const auto second = std::make_shared<cTakesAll>(list);
    list.addGoal(first);
    list.addGoal(second);
    list.deleteTransaction(1);
    EXPECT_EQ(first->cancelled, 1);
    EXPECT_EQ(second->cancelled, 1);
    EXPECT_TRUE(list.isEmpty());
}
