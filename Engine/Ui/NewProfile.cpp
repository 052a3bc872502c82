#include "Engine/Ui/NewProfile.h"

#include "Engine/Ui/Profile.h"
#include "Engine/Ui/ProfileName.h"
#include "Engine/core/CallStack.h"
#include "Engine/input/Input.h"

namespace Engine {

cNewProfile::cNewProfile()
    : cBack(nullptr), m_plate(new cPicture(this)), m_name(new cTextBox(this)), m_ok(new cTextButton(this)) {
    ENGINE_MARK;
    m_ok->setOnClick(onOk);
    loadView(*this, "UI/NewUser.xml");
    updateButton();
    hide();
}

void cNewProfile::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_plate, xml, "PodlogkaPodImia");
    loadChild(*m_name, xml, "NameEdit");
    loadChild(*m_ok, xml, "OkButton");
    addControls<cTextLine>(*xml, "Texts");
}

void cNewProfile::process() {
    cBack::process();
    updateButton();
}

void cNewProfile::updateButton() {
    m_ok->setEnabled(!trimName(m_name->getText()).empty());
}

void cNewProfile::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::enter_release, onOk, this);
}

void cNewProfile::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::enter_release, onOk, this);
}

void cNewProfile::onOk(cView*) {
    ENGINE_MARK;
    cNewProfile* self = getInstance();
    const WString name = trimName(self->m_name->getText());
    if (name.empty() || self->m_ended)
        return;
    self->m_ended = true;
    cProfile::open(name);
    self->discardTransparently();
    if (self->m_on_ok)
        self->m_on_ok();
}

}  // namespace Engine
