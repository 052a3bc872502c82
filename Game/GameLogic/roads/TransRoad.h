#pragma once

#include "Game/GameLogic/UpgradableUnit.h"
#include "Game/GameLogic/roads/Road.h"

/// A stretch of road that is planned or being built: seen through, until a road of its own kind takes its place.
///
/// Stretches of one plan are built one behind the other, away from the net: only the one that is started takes goods,
/// and it starts the next when it is done.
class cTransRoad : public cRoad, public cUpgradableUnit {
public:
    using cRoad::cRoad;
    ~cTransRoad() override;

    /// The keys of cRoad, then "alfa_param" (of its tiles), "disabled_color" (while the plan can't be paid) and the
    /// child tag "Progress".
    void loadXML(const Engine::iXML* xml) override;
    Int getType() const override { return objectTransRoad; }
    DXColor getRoadColor() const override;
    Bool pointInRect(const Vector2&) const override { return false; }  ///< the pointer means the track below
    void destroyMe() override;

    Int getUnderPoint() const override { return getP1(); }
    const sResourceCargo& getPrice() const override { return m_road_price; }
    void setPrice(const sResourceCargo& price) { m_road_price = price; }
    Int getNeededResources(Int type) const override;
    Int getNeededMen(Int) const override { return 1; }
    Float getUpgradeTime() const override { return m_speed; }
    /// Orders this stretch alone: it has still to be started. False, and nothing changed, where a road is or is being
    /// built already, and where no store can be reached.
    /// Throws "cRoadPlan::createBuildGoals(): there are not enough resources on the level to build road".
    Bool createUpgradeGoals() override;
    void upgrade() override;
    Bool degrade(Int) override { return false; }
    void finishUpgrade() override;
    void showProgress(Float cur, Float max) override;
    std::shared_ptr<cDeliveryGoal> getNewDeliveryGoal() override;
    std::shared_ptr<cGoal> getNewBuilderGoal() override;
    Bool keepsWaiting(const cGoal& goal, Long trans_id) const override;

    Bool getAllowed() const { return m_allowed; }
    void setAllowed(Bool allowed);  ///< can the plan be paid?
    Float getSpeed() const { return m_speed; }
    void setSpeed(Float speed) { m_speed = speed; }  ///< of its building, units a second
    Bool getStarted() const { return m_started; }
    void setStarted(Bool started) { m_started = started; }
    cTransRoad* getPrev() const { return m_prev; }
    cTransRoad* getNext() const { return m_next; }
    void setPrev(cTransRoad* prev) { m_prev = prev; }
    void setNext(cTransRoad* next) { m_next = next; }
    void turnRound() { setConnectionPoint(getP1(), getP0()); }  ///< it is built from its other end
    void callOff();  ///< its order, with all that was reserved for it; without one it just goes

private:
    void buildSolid();
    void leaveChain();

    Vector2 m_progress_offset{0.0f, 0.0f};  ///< of the bar from the point that the stretch leads to
    Float m_alfa_param = 1.0f;
    DXColor m_disabled_color{1.0f, 1.0f, 1.0f, 1.0f};
    Bool m_allowed = true;
    Float m_speed = 0.0f;
    sResourceCargo m_road_price;
    Bool m_started = false;
    cTransRoad* m_next = nullptr;  ///< in the order of building; not owned
    cTransRoad* m_prev = nullptr;
};
