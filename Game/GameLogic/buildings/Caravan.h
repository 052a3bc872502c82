#pragma once

#include "Engine/Ui/OverlayButton.h"
#include "Game/CommonUI/InfoTip.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Game/CommonUI/Tips.h"
#include "Game/Types.h"

class cBuilding;

/// The caravan of a way in or out: a wagon that rolls in a straight line, and a button whose tip tells what its
/// building's does, at the same place.
///
/// It stands where its building's file puts it. From setOff() on its building calls roll() each frame, until that tells
/// that it has arrived.
class cCaravan : public cScaleOscillator<cTips<Engine::cOverlayButton>>, public iExtendedInfoTip {
public:
    /// @param building  its parent
    explicit cCaravan(cBuilding& building);

    void setStatePicture(Engine::eButtonState state) override;  ///< its animation runs on
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;

    void setLook(const Engine::cState& look);
    void animate(Float step) { setAnimTime(getAnimTime() + step); }
    /// It is to go that way from where it is.
    /// @param way    units
    /// @param speed  units a second; with one of 0 or less it has arrived at once, where it is
    void setOff(const Vector2& way, Float speed);
    /// One frame of its way. False, and nothing is moved, once its time is used up.
    Bool roll(Float step);
    Float getTripTime() const { return m_trip_time; }   ///< seconds of the whole way
    Float getRemaining() const { return m_remaining; }  ///< seconds left of it

private:
    cBuilding& m_building;
    Float m_trip_time = 0.0f;
    Float m_remaining = 0.0f;
    Vector2 m_direction{0.0f, 0.0f};  ///< of its motion, units a second
};
