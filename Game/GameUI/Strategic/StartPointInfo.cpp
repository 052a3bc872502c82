#include "Game/GameUI/Strategic/StartPointInfo.h"

#include <algorithm>
#include <array>

#include "Engine/core/Keys.h"

using namespace Engine;

namespace {

/// Fog over land that is crowded is smaller.
Float getFogScale(Int level) {
    constexpr std::array small_ones = {10, 20, 21, 29};
    constexpr std::array smallest_ones = {19, 30, 31, 32, 33, 34, 37};
    if (std::ranges::find(smallest_ones, level) != smallest_ones.end())
        return 0.5f;
    return std::ranges::find(small_ones, level) != small_ones.end() ? 0.75f : 1.0f;
}

}  // namespace

void cStrategicMap::cStartPointInfo::loadLevelSettings(const iXML& xml) {
    Vector2 position = getPosition();
    readKey(xml, u"position", position);
    setPosition(position);
    m_effect_center = position;
    readKey(xml, u"effect_center", m_effect_center);
    readKey(xml, u"initial_scale_factor", m_initial_scale_factor);
}

void cStrategicMap::cStartPointInfo::setLooks(const cState& available, const cState& unavailable) {
    m_available = available;
    m_unavailable = unavailable;
}

void cStrategicMap::cStartPointInfo::setFog(const cPicture& prototype) {
    m_fog = new cPicture(prototype);
    m_fog->setPosition(getPosition() + prototype.getPosition());
    m_fog->setSize(prototype.getSize() * getFogScale(m_level));
    m_fog->hide();
}

void cStrategicMap::cStartPointInfo::createNumber(const cTextLine& prototype, Int number) {
    m_number = new cTextLine(prototype);
    m_number->setLocalized(false);
    m_number->setText(formatText(number));
    m_number->setPosition(getPosition() + prototype.getPosition());
    m_number->hide();
}

void cStrategicMap::cStartPointInfo::addFlag(Int bridge, const Vector2& position, Int mark, const cPicture& prototype) {
    constexpr Float deep_step = 0.01f;  // the best flag of a bridge lies over the others
    const auto is_same = [&](const sFlag& flag) { return flag.bridge == bridge && flag.mark == mark; };
    if (std::ranges::any_of(m_flags, is_same))
        return;
    auto* shown = new cPicture(prototype);
    static_cast<cState&>(*shown) = cStrategicMap::getInstance()->getFlagState(mark);
    shown->setPosition(position);
    shown->setDeep(prototype.getDeep() + static_cast<Float>(getWorth(mark)) * deep_step);
    shown->setDirty();
    shown->setShown(getWorth(mark) > 0);
    m_flags.push_back({bridge, position, mark, shown});
    if (getWorth(mark) > getWorth(m_mark))
        m_mark = mark;
}

void cStrategicMap::cStartPointInfo::setAvail(Bool available) {
    cState::operator=(available ? m_available : m_unavailable);
    setDirty();
    setEnabled(available);
}

void cStrategicMap::cStartPointInfo::showFog(Bool show) {
    if (m_fog)
        m_fog->setShown(show);
}

void cStrategicMap::cStartPointInfo::showNumber(Bool show) {
    if (m_number)
        m_number->setShown(show);
}

void cStrategicMap::cStartPointInfo::showFlags(Bool show) {
    for (const sFlag& flag : m_flags)
        flag.picture->setShown(show && getWorth(flag.mark) > 0);
}
