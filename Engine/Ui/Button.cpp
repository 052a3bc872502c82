#include "Engine/Ui/Button.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"

namespace Engine {

namespace {

cResourceRef readTexture(const iXML& xml, const char16_t* key, const cResourceRef& otherwise) {
    String name;
    readKey(xml, key, name);
    return name.empty() ? otherwise : cResourceRef::adopt(cResourceManager::getInstance()->getTexture(name));
}

}  // namespace

void cButton::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cButtonPrototype::loadXML(xml);
    m_normal = cResourceRef(getTexture());
    m_pressed = readTexture(*xml, u"texture_pressed", m_normal);
    m_hovered = readTexture(*xml, u"texture_hover", m_normal);
    m_disabled = readTexture(*xml, u"texture_disabled", m_normal);
    setStatePicture(getState());
}

void cButton::setStatePicture(eButtonState state) {
    if (const cResourceRef& texture = getStateTexture(state))
        setTexture(texture.get());
}

const cResourceRef& cButton::getStateTexture(eButtonState state) const {
    switch (state) {
        case eButtonState::disabled:
            return m_disabled;
        case eButtonState::hovered:
            return m_hovered;
        case eButtonState::pressed:
            return m_pressed;
        case eButtonState::normal:
        case eButtonState::none:
            break;
    }
    return m_normal;
}

}  // namespace Engine
