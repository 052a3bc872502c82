#pragma once

#include <vector>

#include "Game/Types.h"

namespace Engine {
class cPicture;
class cView;
class iXML;
}  // namespace Engine

/// A row of marks, one for each piece of work under way.
///
/// The marks are children of the view that is set as their parent, and go where that goes. It outlives the holder, or
/// gives its marks back with setTicksParent() first.
class cTicksHolder {
public:
    cTicksHolder() = default;
    cTicksHolder(const cTicksHolder&) = delete;
    cTicksHolder& operator=(const cTicksHolder&) = delete;
    virtual ~cTicksHolder();

    /// The key "tick_offset" (from mark to mark, units) and the child tag "TickProto" (cPicture: the look of a mark,
    /// and the place and deep of the first one, both counted from the parent's).
    virtual void loadXML(const Engine::iXML* xml);

    /// The marks go over to that view, in the same row; with null they stay where they are on the screen.
    void setTicksParent(Engine::cView* view);
    void showTicks(Bool shown);
    void addTick();     ///< shown, at the end of the row; nothing without a prototype
    void deleteTick();  ///< the last one; nothing if there is none
    void clearAllTicks();

    UInt getTicksCount() const { return static_cast<UInt>(m_ticks.size()); }
    const Engine::cPicture* getTick(UInt index) const { return m_ticks.at(index); }

private:
    void placeTick(UInt index);

    Engine::cPicture* m_tick_proto = nullptr;  ///< without a parent, never shown; ends with the holder
    Vector2 m_tick_offset{0.0f, 0.0f};
    std::vector<Engine::cPicture*> m_ticks;  ///< children of the parent view
    Engine::cView* m_ticks_parent = nullptr;
};
