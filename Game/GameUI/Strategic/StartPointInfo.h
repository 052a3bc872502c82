#pragma once

#include <vector>

#include "Engine/Ui/AnimButton.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/TextLine.h"
#include "Game/GameLogic/Mark.h"
#include "Game/GameUI/Strategic/StrategicMap.h"

/// The node of one level on the map of levels: the button, and what lies about it on the map, whose children these are:
/// the fog over a closed level, its number, and a flag for each bridge that was passed.
class cStrategicMap::cStartPointInfo : public Engine::cAnimButton {
public:
    using cAnimButton::cAnimButton;

    /// Keys "position", "effect_center" (where its level rolls out of; both units, the latter the former by default)
    /// and "initial_scale_factor" (how large its level is then, in parts of the screen).
    void loadLevelSettings(const Engine::iXML& xml);
    void setLooks(const Engine::cState& available, const Engine::cState& unavailable);

    /// A cloud of fog like the prototype, at that distance from the node.
    void setFog(const Engine::cPicture& prototype);
    /// A number like the prototype, at that distance from the node.
    void createNumber(const Engine::cTextLine& prototype, Int number);
    /// One more flag; the node's mark is that of its best one. Nothing happens for a flag that is there already.
    /// @param position  on the map, units
    void addFlag(Int bridge, const Vector2& position, Int mark, const Engine::cPicture& prototype);

    void setAvail(Bool available);
    void showFog(Bool show);
    void showNumber(Bool show);
    void showFlags(Bool show);  ///< those of bridges that were passed

    Int getLevel() const { return m_level; }
    void setLevel(Int level) { m_level = level; }
    /// The best flag of the level, an eMark.
    Int getMark() const { return m_mark; }
    const Vector2& getEffectCenter() const { return m_effect_center; }
    Float getInitialScaleFactor() const { return m_initial_scale_factor; }
    Engine::cPicture* getFog() const { return m_fog; }

    // The roll of the fog, units a second.
    virtual const Int& getPrevLevel() const { return m_prev_level; }
    virtual void setPrevLevel(const Int& level) { m_prev_level = level; }
    virtual const Vector2& getRollDirection() const { return m_roll_direction; }
    virtual void setRollDirection(const Vector2& direction) { m_roll_direction = direction; }

private:
    struct sFlag {
        Int bridge = 0;
        Vector2 position{0.0f, 0.0f};
        Int mark = markNone;
        Engine::cPicture* picture = nullptr;  ///< a child of the map
    };

    Int m_level = -1;
    Int m_mark = markNone;
    Int m_prev_level = -1;
    Vector2 m_effect_center{0.0f, 0.0f};
    Float m_initial_scale_factor = 0.2f;
    Vector2 m_roll_direction{0.0f, 0.0f};
    Engine::cState m_available;
    Engine::cState m_unavailable;
    std::vector<sFlag> m_flags;
    Engine::cPicture* m_fog = nullptr;      ///< a child of the map
    Engine::cTextLine* m_number = nullptr;  ///< a child of the map
};
