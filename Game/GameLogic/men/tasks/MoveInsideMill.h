#pragma once

#include "Game/GameLogic/men/tasks/MoveTask.h"

class cMan;
class cMill;

/// Walks a man straight from one spot of a mill to another.
class cMoveInsideMill : public cMoveTask {
public:
    /// Spots are on the screen.
    /// @param silent  the mill is not told that he has come
    cMoveInsideMill(cMill* mill, cMan* man, const Vector2& from, const Vector2& to, Bool silent);

    void onStart() override;
    void onEnd() override;
    void moveForward(Float dt) override;
    void getDstPosition(Vector2& out) const override { out = {0.0f, 0.0f}; }

private:
    cMill* m_mill;  ///< neither is owned; both outlive the task
    cMan* m_man;
    Vector2 m_from;
    Vector2 m_to;
    Bool m_silent;
};
