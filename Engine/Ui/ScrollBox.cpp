#include "Engine/Ui/ScrollBox.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Logic.h"
#include "Engine/input/Input.h"

namespace Engine {

cScrollBox::cScrollBox(cView* parent) : cPicture(parent), m_slider(new cSlider(this)) {
}

void cScrollBox::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cPicture::loadXML(xml);
    readKey(*xml, u"Layout", m_layout);
    readKey(*xml, u"Min", m_min);
    readKey(*xml, u"Max", m_max);
    m_max = std::max(m_min, m_max);
    loadChild(*m_slider, xml, "Slider");
    Float value = m_value;
    readKey(*xml, u"Value", value);
    setValue(value);
}

void cScrollBox::showed() {
    cPicture::showed();
    if (!isEnabled())  // the knob may never have been told
        m_slider->setState(eButtonState::disabled);
}

void cScrollBox::enabled() {
    cPicture::enabled();
    cInput::getInstance()->bind(Control::left_press, onPress, this);
    cInput::getInstance()->bind(Control::left_release, onRelease, this);
}

void cScrollBox::disabled() {
    cPicture::disabled();
    cInput::getInstance()->unbind(Control::left_press, onPress, this);
    cInput::getInstance()->unbind(Control::left_release, onRelease, this);
    setMoving(false);
}

void cScrollBox::onPress(cView* view) {
    auto* self = static_cast<cScrollBox*>(view);
    const Vector2& cursor = cLogic::getInstance()->getCursorPos();
    if (!self->isLocked() && (self->isPointInside(cursor) || self->m_slider->pointInRect(cursor)))
        self->setMoving(true);
}

void cScrollBox::onRelease(cView* view) {
    static_cast<cScrollBox*>(view)->setMoving(false);
}

void cScrollBox::setMoving(Bool moving) {
    if (moving == m_moving)
        return;
    m_moving = moving;
    if (m_on_drag)
        m_on_drag(this, moving);
}

void cScrollBox::process() {
    cPicture::process();
    if (!m_moving)
        return;
    const Float value = getCursorValue();
    if (value == m_value)
        return;
    setValue(value);
    if (m_on_change)
        m_on_change(this, value);
}

/// The value at the cursor's place along the bar; at the bar's ends and beyond exactly the range's ends.
Float cScrollBox::getCursorValue() const {
    const int axis = m_layout == vertical ? 1 : 0;
    const Float length = getSize()[axis];
    const Float place = cLogic::getInstance()->getCursorPos()[axis] - getPosition()[axis] + length * 0.5f;
    if (place <= 0.0f)
        return m_min;
    if (place >= length)
        return m_max;
    return m_min + (m_max - m_min) * (place / length);
}

void cScrollBox::setValue(Float value) {
    m_value = std::max(m_min, std::min(value, m_max));
    placeSlider();
}

void cScrollBox::placeSlider() {
    const int axis = m_layout == vertical ? 1 : 0;
    const Float part = m_max > m_min ? (m_value - m_min) / (m_max - m_min) : 0.0f;
    Vector2 position = getPosition();
    position[axis] += (part - 0.5f) * getSize()[axis];
    m_slider->setPosition(position);
}

}  // namespace Engine
