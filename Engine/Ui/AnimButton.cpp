#include "Engine/Ui/AnimButton.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"

namespace Engine {

void cAnimButton::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cButtonPrototype::loadXML(xml);
    readKey(*xml, u"frame_normal", m_frame_normal);
    readKey(*xml, u"frame_pressed", m_frame_pressed);
    readKey(*xml, u"frame_hover", m_frame_hover);
    readKey(*xml, u"frame_disabled", m_frame_disabled);
    setPlayAnimation(false);
    setState(isEnabled() ? eButtonState::normal : eButtonState::disabled);
    setStatePicture(getState());  // the frames may be new while the state is not
}

void cAnimButton::setStatePicture(eButtonState state) {
    switch (state) {
        case eButtonState::disabled:
            return setAnimFrame(m_frame_disabled);
        case eButtonState::hovered:
            return setAnimFrame(m_frame_hover);
        case eButtonState::pressed:
            return setAnimFrame(m_frame_pressed);
        case eButtonState::normal:
        case eButtonState::none:
            return setAnimFrame(m_frame_normal);
    }
}

}  // namespace Engine
