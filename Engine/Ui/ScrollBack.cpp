#include "Engine/Ui/ScrollBack.h"

#include <algorithm>
#include <cmath>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Logic.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Graphics.h"

namespace Engine {

namespace {

constexpr Float calm_margin = 10.0f;  // units between the zones at the edges and the part that surely brakes

Float getScreenWidth() {
    return static_cast<Float>(cGraphics::getInstance()->getWidth());
}

}  // namespace

cScrollBack::cScrollBack(cView* parent)
    : cBack(parent), m_left_arrow(new cPicture(this)), m_right_arrow(new cPicture(this)) {
}

void cScrollBack::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    readKey(*xml, u"MapWidth", m_map_width);
    readKey(*xml, u"MoveSpeed", m_move_speed);
    readKey(*xml, u"MoveAccel", m_accel);
    readKey(*xml, u"CursorMoveZone", m_zone);
    m_move_speed = std::max(0.0f, m_move_speed);
    m_accel = std::max(0.0f, m_accel);
    loadChild(*m_left_arrow, xml, "MovePicLeft");
    loadChild(*m_right_arrow, xml, "MovePicRight");
    updateArrows();
}

void cScrollBack::process() {
    cBack::process();
    moveProcess();
}

void cScrollBack::registerControl(cControl* item) {
    m_controls.push_back(item);
}

void cScrollBack::unRegisterControl(cControl* item) {
    std::erase(m_controls, item);
}

void cScrollBack::moveProcess() {
    const Float step = cTimer::getInstance()->getStep();
    accelerate(step);
    m_speed = std::clamp(m_speed, -m_move_speed, m_move_speed);
    const Float delta = moveOffset(step * m_speed);
    updateArrows();
    if (delta == 0.0f)
        return;
    for (cControl* item : m_controls)
        item->setPosition(item->getPosition() + Vector2(delta, 0.0f));
}

void cScrollBack::accelerate(Float step) {
    const Float x = cLogic::getInstance()->getCursorPos().x;
    const Float width = getScreenWidth();
    const Bool is_calm = x > m_zone + calm_margin && x < width - (m_zone + calm_margin);
    if (!is_calm && x < m_zone && m_offset > 0.0f)
        m_speed += step * m_accel;
    else if (!is_calm && x > width - m_zone && m_offset < m_map_width - width)
        m_speed -= step * m_accel;
    else
        brake(step);
}

void cScrollBack::brake(Float step) {
    const Float change = std::min(step * m_accel, std::abs(m_speed));
    m_speed -= std::copysign(change, m_speed);
}

Float cScrollBack::moveOffset(Float delta) {
    const Float before = m_offset;
    m_offset = std::clamp(before - delta, 0.0f, std::max(0.0f, m_map_width - getScreenWidth()));
    return before - m_offset;
}

void cScrollBack::hideArrows() {
    m_has_arrows = false;
    updateArrows();
}

void cScrollBack::updateArrows() {
    const Float strength = m_move_speed > 0.0f ? std::abs(m_speed) / m_move_speed : 0.0f;
    updateArrow(*m_left_arrow, m_has_arrows && m_speed > 0.0f, strength);
    updateArrow(*m_right_arrow, m_has_arrows && m_speed < 0.0f, strength);
}

void cScrollBack::updateArrow(cPicture& arrow, Bool shown, Float strength) {
    arrow.setAlpha(strength);
    if (shown == arrow.isShow())
        return;
    if (shown)
        arrow.show();
    else
        arrow.hide();
}

}  // namespace Engine
