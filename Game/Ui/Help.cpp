#include "Game/Ui/Help.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/input/Input.h"
#include "Game/Ui/GameMenu.h"

using namespace Engine;

namespace {

/// One child control for each tag of a list.
template <class T>
void loadList(cView* parent, const iXML* xml, const String& name) {
    iXML* list = nullptr;
    if (!xml->get(name, list))
        return;
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        (new T(parent))->loadXML(tag);
    }
}

}  // namespace

cHelp::cHelp(cView* _parent, UInt)
    : cBack(_parent), m_ok(new cTextButton(this)), m_next(new cTextButton(this)), m_prev(new cTextButton(this)) {
    ENGINE_MARK;
    m_ok->setOnClick(onOk);
    m_next->setOnClick(onNext);
    m_prev->setOnClick(onPrev);
    loadView(*this, "UI/Help.xml");
    hide();
}

void cHelp::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_ok, xml, "OkButton");
    loadChild(*m_next, xml, "NextButton");
    loadChild(*m_prev, xml, "PrevButton");
    iXML* pages = nullptr;
    xml->get("Pages", pages);
    for (UInt i = 0; pages && i < pages->getTagCount(); ++i) {
        iXML* tag = nullptr;
        pages->get(i, tag);
        loadPage(tag);
    }
    m_prev->hide();
    if (m_pages.size() < 2)
        m_next->hide();
    if (!m_pages.empty())
        turnTo(0);
}

void cHelp::loadPage(const iXML* xml) {
    ENGINE_MARK;
    auto* page = new sPage(this);
    page->loadXML(xml);
    page->hide();
    loadList<cPicture>(page, xml, "Pictures");
    loadList<cTextLine>(page, xml, "Texts");
    m_pages.push_back(page);
}

void cHelp::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onOk, this);
}

void cHelp::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::esc_release, onOk, this);
}

void cHelp::turnTo(std::size_t page) {
    m_pages[m_page]->hide();
    m_page = page;
    m_pages[m_page]->show();
    m_pages[m_page]->enable();
}

void cHelp::onNext(cView*) {
    cHelp& self = *getInstance();
    if (self.m_page + 1 >= self.m_pages.size())
        return;
    self.turnTo(self.m_page + 1);
    if (self.m_page + 1 == self.m_pages.size())
        self.m_next->hide();
    self.m_prev->show();
    self.m_prev->enable();
}

void cHelp::onPrev(cView*) {
    cHelp& self = *getInstance();
    if (self.m_page == 0)
        return;
    self.turnTo(self.m_page - 1);
    if (self.m_page == 0)
        self.m_prev->hide();
    self.m_next->show();
    self.m_next->enable();
}

void cHelp::onOk(cView*) {
    getInstance()->discardTransparently();
    if (cGameMenu* menu = cGameMenu::getInstance())
        menu->showTransparently();
}
