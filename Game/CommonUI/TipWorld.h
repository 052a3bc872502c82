#pragma once

#include <array>

#include "Game/Types.h"

namespace Engine {
class cView;
}

/// What tips ask of the game being played. Without one no tip has anything to compare with, and nothing is pointed at.
class iTipWorld {
public:
    /// What the player has, in the order money, food, wood, stone, iron.
    virtual std::array<Int, 5> getStock() const = 0;
    virtual Int getFreeMen() const = 0;
    /// Does the tutorial point at this object now? Its tip stays away meanwhile.
    virtual Bool isPointedAt(const Engine::cView& object) const = 0;

    /// The one that all tips ask; null for none. Not owned.
    static iTipWorld* get() { return m_current; }
    static void set(iTipWorld* world) { m_current = world; }

protected:
    ~iTipWorld() = default;

private:
    static inline iTipWorld* m_current = nullptr;
};
