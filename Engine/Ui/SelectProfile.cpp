#include "Engine/Ui/SelectProfile.h"

#include <algorithm>

#include "Engine/Ui/Profile.h"
#include "Engine/Ui/ProfileName.h"
#include "Engine/Ui/YesNo.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/StringManager.h"
#include "Engine/input/Input.h"

namespace Engine {

cSelectProfile::cSelectProfile(cView* parent, Bool can_cancel)
    : cBack(parent),
      m_can_cancel(can_cancel),
      m_logo(new cPicture(this)),
      m_plate(new cPicture(this)),
      m_enter_name(new cTextLine(this)),
      m_name(new cTextBox(this)),
      m_ok(new cTextButton(this)),
      m_exit(new cTextButton(this)),
      m_delete(new cTextButton(this)),
      m_list(new cListBox(this)) {
    ENGINE_MARK;
    m_ok->setOnClick(onOk);
    m_exit->setOnClick(onExit);
    m_delete->setOnClick(onDelete);
    m_list->setOnSelect(onNameSelect);
    loadView(*this, "UI/SelectUser.xml");
    if (!m_can_cancel)
        m_exit->hide();
    if (const cProfile* profile = cProfile::getInstance())
        choose(profile->getName());
    updateList();
    updateButtons();
    hide();
}

void cSelectProfile::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    readKey(*xml, u"StringOK", m_string_ok);
    readKey(*xml, u"StringNew", m_string_new);
    readKey(*xml, u"StringConfirm", m_string_confirm);
    loadChild(*m_logo, xml, "BigLogo");
    loadChild(*m_plate, xml, "PodlogkaPodImia");
    loadChild(*m_enter_name, xml, "EnterNameText");
    loadChild(*m_name, xml, "NameEdit");
    loadChild(*m_ok, xml, "OkButton");
    loadChild(*m_exit, xml, "ExitButton");
    loadChild(*m_delete, xml, "DeleteButton");
    loadChild(*m_list, xml, "UserList");
}

void cSelectProfile::process() {
    cBack::process();
    updateButtons();
}

void cSelectProfile::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::enter_release, onOk, this);
    cInput::getInstance()->bind(Control::esc_release, onExit, this);
}

void cSelectProfile::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::enter_release, onOk, this);
    cInput::getInstance()->unbind(Control::esc_release, onExit, this);
}

// What the field and the list say ----------------------------------------------------------------------------------

Bool cSelectProfile::isNameInsideList(const WString& name) const {
    const cProfile* profile = cProfile::getInstance();
    return profile && profile->hasName(name);
}

/// The name in the field: a chosen one as it is, a typed one without the blanks around it.
WString cSelectProfile::getFieldName() const {
    return m_name->getText() == m_chosen ? m_chosen : trimName(m_name->getText());
}

/// The name in the field was typed, not chosen.
Bool cSelectProfile::isCreating() const {
    return getFieldName() != m_chosen;
}

void cSelectProfile::updateButtons() {
    const WString name = getFieldName();
    const Bool is_known = isNameInsideList(name);
    const cProfile* profile = cProfile::getInstance();
    m_ok->setText(is_known ? m_string_ok : m_string_new);
    m_ok->setEnabled(!name.empty() && !(is_known && isCreating()));
    m_delete->setEnabled(is_known);
    m_exit->setEnabled(profile && !profile->getName().empty());  // someone has to be playing
}

void cSelectProfile::updateList() {
    cProfile::NAME_LIST names;
    if (const cProfile* profile = cProfile::getInstance())
        profile->getNames(names);
    m_list->setStrings(names);
    const auto chosen = std::find(names.begin(), names.end(), m_chosen);
    if (chosen != names.end())  // of many players he is seen
        m_list->setFirstLine(static_cast<UInt>(chosen - names.begin()));
}

void cSelectProfile::choose(const WString& name) {
    m_chosen = name;
    m_name->setText(name);
}

// What the player does ---------------------------------------------------------------------------------------------

void cSelectProfile::onNameSelect(UInt item, cListBox* list) {
    ENGINE_MARK;
    const WString& name = list->getString(item);
    getInstance()->choose(name);
    cProfile::open(name);
}

void cSelectProfile::onOk(cView*) {
    ENGINE_MARK;
    cSelectProfile* self = getInstance();
    const WString name = self->getFieldName();
    if (name.empty() || (self->isNameInsideList(name) && self->isCreating()) || self->m_ended)
        return;
    cProfile::open(name);
    self->end(self->m_on_ok);
}

void cSelectProfile::onExit(cView*) {
    cSelectProfile* self = getInstance();
    const cProfile* profile = cProfile::getInstance();
    if (self->m_can_cancel && profile && !profile->getName().empty() && !self->m_ended)
        self->end(self->m_on_cancel);
}

void cSelectProfile::end(ON_END callback) {
    m_ended = true;
    discardTransparently();
    if (callback)
        callback();
}

void cSelectProfile::onDelete(cView*) {
    ENGINE_MARK;
    cSelectProfile* self = getInstance();
    if (self->m_ended || !self->isNameInsideList(self->getFieldName()))
        return;
    auto* question = new cYesNo(self);
    question->setText(self->m_string_confirm);
    question->setOnYes(onDeleteConfirm);
    question->showTransparently();
}

void cSelectProfile::onDeleteConfirm(cView*) {
    ENGINE_MARK;
    cSelectProfile* self = getInstance();
    cProfile* profile = cProfile::getInstance();
    profile->deleteProfile(self->getFieldName());
    self->choose(profile->getName());
    self->updateList();
    self->updateButtons();
}

}  // namespace Engine
