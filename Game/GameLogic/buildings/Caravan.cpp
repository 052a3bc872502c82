#include "Game/GameLogic/buildings/Caravan.h"

#include "Game/GameLogic/buildings/Building.h"

using namespace Engine;

cCaravan::cCaravan(cBuilding& building) : cScaleOscillator(&building), m_building(building) {
    setTipFile("GameLogic/Tip.xml");
    setTipAnchor(building);
}

void cCaravan::setStatePicture(eButtonState state) {
    const Float time = getAnimTime();
    cScaleOscillator::setStatePicture(state);
    setAnimTime(time);
}

void cCaravan::updateInfoTipCargo(sInfoTip& info) {
    m_building.updateInfoTipCargo(info);
}

void cCaravan::updateInfoTipPrice(sInfoTip& info) {
    m_building.updateInfoTipPrice(info);
}

void cCaravan::setLook(const cState& look) {
    setStatePicture(eButtonState::normal);  // what lights it up takes the look with the next state
    cState::operator=(look);
    setAnimTime(0.0f);
    setDirty();
    setStatePicture(getState());
}

void cCaravan::setOff(const Vector2& way, Float speed) {
    m_trip_time = speed > 0.0f ? glm::length(way) / speed : 0.0f;
    m_remaining = m_trip_time;
    m_direction = m_trip_time > 0.0f ? way / m_trip_time : Vector2(0.0f);
}

Bool cCaravan::roll(Float step) {
    animate(step);
    if (m_remaining <= 0.0f)
        return false;
    setPosition(getPosition() + m_direction * step);
    m_remaining -= step;
    return true;
}
