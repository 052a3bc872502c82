#pragma once

#include "Game/GameLogic/men/tasks/MoveTask.h"

class cBridge;
class cEnemyMan;

/// Walks the man of a bridge straight from one place to another with a flag: down to the bridge, where he changes it
/// for the one that flies there, and away with that.
class cEnemyBringsFlag : public cMoveTask {
public:
    /// What he is about. The numbers are those of the flags that he carries.
    enum eKind : Int { bringsSilver = 1, takesGold = 2, bringsBlue = 3 };

    /// @param bridge  told when he has brought a flag; neither it nor the man is owned, both outlive the task
    /// @param from    as to, on the map
    /// @param vanish  one who carries silver takes it away, and is gone at the end
    cEnemyBringsFlag(cBridge* bridge, cEnemyMan* man, Int kind, const Vector2& from, const Vector2& to, Bool vanish);

    void onStart() override;
    void onEnd() override;
    void moveForward(Float dt) override;
    void getDstPosition(Vector2& out) const override;

private:
    cBridge* m_bridge;
    cEnemyMan* m_man;
    Int m_kind;
    Vector2 m_from;
    Vector2 m_to;
    Bool m_vanish;
};
