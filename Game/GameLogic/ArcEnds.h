#pragma once

#include "Engine/core/Arch.h"
#include "Game/Types.h"

/// The two points of the arc that something lies on: a road, a fence, a bridge road. Which is which tells the direction
/// that its pieces run in; the arc itself has none.
class cArcEnds {
public:
    Int getP0() const { return m_p0; }
    Int getP1() const { return m_p1; }
    Bool joins(Int a, Int b) const { return (a == m_p0 && b == m_p1) || (a == m_p1 && b == m_p0); }
    Bool hasEnd(Int point) const { return point == m_p0 || point == m_p1; }
    Bool hasEnds() const { return m_p0 != -1 && m_p1 != -1 && m_p0 != m_p1; }

protected:
    void setEnds(Int p0, Int p1) {
        m_p0 = p0;
        m_p1 = p1;
    }
    void serializeEnds(Engine::iArch& arch) { arch << m_p0 << m_p1; }

private:
    Int m_p0 = -1;
    Int m_p1 = -1;
};
