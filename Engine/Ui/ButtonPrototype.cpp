#include "Engine/Ui/ButtonPrototype.h"

#include <algorithm>

#include "Engine/Sound/SoundManager.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Logic.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/input/Input.h"

namespace Engine {

namespace {

void readSound(const iXML& tag, const char16_t* key, cResourceRef& sound) {
    cResourceManager& resources = *cResourceManager::getInstance();
    const String name = toNarrow(tag[key]);
    if (!name.empty() && resources.canLoad(eResourceType::sound))
        sound = cResourceRef::adopt(resources.getSound(name));
}

/// Which of count cells a place from 0 to 1 falls into; the first one for a place that is no number.
std::size_t cellAt(Float place, std::size_t count) {
    return place > 0.0f ? std::min(static_cast<std::size_t>(place * static_cast<Float>(count)), count - 1) : 0;
}

const Vector2& cursor() {
    return cLogic::getInstance()->getCursorPos();
}

}  // namespace

cButtonPrototype::~cButtonPrototype() {
    leaveDeepHover();
}

void cButtonPrototype::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cPicture::loadXML(xml);
    readKey(*xml, u"IsDeepProcessing", m_is_deep_processing);
    readKey(*xml, u"SoundOnUnclick", m_sound_on_unclick);

    String mask_name;
    readKey(*xml, u"texture_mask", mask_name);
    if (!mask_name.empty())
        loadMask(mask_name);

    iXML* sounds = nullptr;
    if (xml->get("Sounds", sounds)) {
        readSound(*sounds, u"Click", m_click_sound);
        readSound(*sounds, u"Hover", m_hover_sound);
    }
}

void cButtonPrototype::loadMask(const String& path) {
    VECTOR_VECTOR_BOOL mask;
    cGraphics::getInstance()->getMask(path, mask);
    setMask(std::move(mask));
}

void cButtonPrototype::setMask(VECTOR_VECTOR_BOOL mask) {
    m_mask = std::move(mask);
    m_has_mask = !m_mask.empty() && !m_mask.front().empty();
}

void cButtonPrototype::enabled() {
    cPicture::enabled();
    cInput* input = cInput::getInstance();
    input->bind(Control::left_press, onPressControl, this);
    input->bind(Control::left_release, onReleaseControl, this);
    input->bindMouse(onMouseMove, this);
    mouseMoved();
    if (!pointInRect(cursor()))
        setState(eButtonState::normal);
}

void cButtonPrototype::disabled() {
    cPicture::disabled();
    if (m_is_deep_processing)
        leaveDeepHover();
    if (cInput* input = cInput::getInstance()) {
        input->unbind(Control::left_press, onPressControl, this);
        input->unbind(Control::left_release, onReleaseControl, this);
        input->unbindMouse(onMouseMove, this);
    }
    setState(eButtonState::disabled);
}

void cButtonPrototype::setState(eButtonState state) {
    if (state == m_state)
        return;
    setStatePicture(state);
    m_state = state;
}

// Hit test ---------------------------------------------------------------------------------------------------------

Bool cButtonPrototype::pointInRect(const Vector2& point) const {
    if (!isPointInside(point))
        return false;
    if (!m_has_mask)
        return true;
    // The mask covers the control, whatever size that is drawn at.
    const Vector2 place = (toLocal(point) + getSize() * 0.5f) / getSize();
    return m_mask[cellAt(place.x, m_mask.size())][cellAt(place.y, m_mask.front().size())];
}

// What the mouse does ----------------------------------------------------------------------------------------------

void cButtonPrototype::onPressControl(cView* view) {
    auto* button = static_cast<cButtonPrototype*>(view);
    if (!button->pointInRect(cursor()))
        return;
    if (!button->m_is_deep_processing)
        return button->clicked();
    if (m_deep_hovered != button)
        button->mouseMoved();  // it may have let go of a pointer that has rested on it since
    if (m_deep_hovered == button)
        m_deep_action = eDeepAction::click;
}

void cButtonPrototype::onReleaseControl(cView* view) {
    auto* button = static_cast<cButtonPrototype*>(view);
    if (button->m_state == eButtonState::pressed)
        button->unclicked();
}

void cButtonPrototype::onMouseMove(eControl, Long, cView* view) {
    static_cast<cButtonPrototype*>(view)->mouseMoved();
}

void cButtonPrototype::mouseMoved() {
    if (pointInRect(cursor())) {
        if (m_state == eButtonState::pressed || m_state == eButtonState::hovered)
            return;
        if (m_is_deep_processing)
            hoverDeep();
        else
            hovered();
        return;
    }
    if (m_state == eButtonState::hovered)
        unhovered();
    leaveDeepHover();
}

void cButtonPrototype::hoverDeep() {
    if (m_deep_hovered && !m_deep_hovered->pointInRect(cursor()))
        m_deep_hovered->mouseMoved();  // the pointer has left it, and it has not been told yet
    if (m_deep_hovered && m_deep_hovered->getDeep() >= getDeep())
        return;
    if (m_deep_hovered)
        m_deep_hovered->unhovered();
    m_deep_hovered = this;
    m_deep_action = eDeepAction::hover;
}

void cButtonPrototype::leaveDeepHover() {
    if (m_deep_hovered == this)
        m_deep_hovered = nullptr;
}

void cButtonPrototype::process() {
    cPicture::process();
    if (!m_is_deep_processing || m_deep_hovered != this)
        return;
    const eDeepAction action = m_deep_action;
    m_deep_action = eDeepAction::none;
    if (action == eDeepAction::hover)
        hovered();
    else if (action == eDeepAction::click)
        clicked();
}

// Reactions --------------------------------------------------------------------------------------------------------

void cButtonPrototype::playSound(const cResourceRef& sound) const {
    cSoundManager* manager = cSoundManager::getInstance();
    if (m_sound_enabled && sound && manager)
        manager->playOnce(sound.get());
}

void cButtonPrototype::hovered() {
    if (isLocked())
        return;
    ENGINE_MARK;
    setState(eButtonState::hovered);
    if (m_on_hover)
        m_on_hover(this);
    if (m_state == eButtonState::hovered)
        playSound(m_hover_sound);
}

void cButtonPrototype::unhovered() {
    if (isLocked())
        return;
    ENGINE_MARK;
    if (m_is_deep_processing)
        leaveDeepHover();
    setState(eButtonState::normal);
    if (m_on_unhover)
        m_on_unhover(this);
}

void cButtonPrototype::clicked() {
    if (isLocked())
        return;
    ENGINE_MARK;
    if (!m_sound_on_unclick)
        playSound(m_click_sound);
    if (!isEnabled()) {
        setState(eButtonState::disabled);
        return;
    }
    setState(eButtonState::pressed);
    if (m_on_unhover)
        m_on_unhover(this);
    if (m_on_press)
        m_on_press(this);
}

void cButtonPrototype::unclicked() {
    if (isLocked())
        return;
    ENGINE_MARK;
    if (m_sound_on_unclick)
        playSound(m_click_sound);
    if (!pointInRect(cursor())) {
        unhovered();
        return;
    }
    setState(eButtonState::hovered);
    if (m_on_hover)
        m_on_hover(this);
    if (m_on_click)
        m_on_click(this);
}

}  // namespace Engine
