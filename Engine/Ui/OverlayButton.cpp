#include "Engine/Ui/OverlayButton.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"

namespace Engine {

namespace {

constexpr Float overlay_height = 0.001f;  ///< deep of the overlay above that of its button
// Multiplying darkens under the half-clear pixels of a picture's edge, so these are left out.
constexpr UInt overlay_render_type = renderMultiplyBlend | renderAlpha160;
constexpr DXColor default_overlay_color{189 / 255.0f, 189 / 255.0f, 1.0f, 189 / 255.0f};  // 0xBDBDBDFF

}  // namespace

cOverlayButton::cOverlayButton(cView* parent) : cAnimButton(parent), m_overlay(new cPicture(this)) {
    m_overlay->setColor(default_overlay_color);
    m_overlay->setRenderType(overlay_render_type);
    m_overlay->setDeep(getDeep() + overlay_height);
}

cOverlayButton::cOverlayButton(const cOverlayButton& other)
    : cAnimButton(other), m_overlay(new cPicture(*other.m_overlay)) {
    m_overlay->setParent(this);
}

void cOverlayButton::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cAnimButton::loadXML(xml);
    DXColor color = m_overlay->getColor();
    readKey(*xml, u"OverlayColor", color);
    m_overlay->setColor(color);
    m_overlay->cState::operator=(*this);  // the same picture with the same run of frames
    m_overlay->setDirty();
    followButton();
}

void cOverlayButton::showed() {
    followButton();
    cAnimButton::showed();
}

void cOverlayButton::process() {
    cAnimButton::process();
    if (m_overlay->isShow())
        followButton();
}

void cOverlayButton::followButton() {
    m_overlay->setPosition(getPosition());
    m_overlay->setSize(getSize());
    m_overlay->setAngle(getAngle());
    m_overlay->setSkew(getSkew());
    m_overlay->setAnimTime(getAnimTime());
    m_overlay->setInverceX(isInverceX());
    m_overlay->setInverceY(isInverceY());
}

void cOverlayButton::setStatePicture(eButtonState state) {
    cAnimButton::setStatePicture(state);
    const Bool lit = state == eButtonState::hovered || state == eButtonState::pressed;
    if (lit == m_overlay->isShow())
        return;
    if (lit) {
        m_overlay->cState::operator=(*this);  // the button may look otherwise than it was loaded
        m_overlay->setDirty();
        followButton();
        m_overlay->show();
    } else {
        m_overlay->hide();
    }
}

}  // namespace Engine
