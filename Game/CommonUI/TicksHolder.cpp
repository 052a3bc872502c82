#include "Game/CommonUI/TicksHolder.h"

#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/iXML.h"

using namespace Engine;

namespace {

void discardPicture(cPicture* picture) {
    if (!cView::isValid(picture))  // gone with its parent, at the end of the program
        return;
    picture->hide();
    picture->disable();
    discard(static_cast<cView*>(picture), here());
}

}  // namespace

cTicksHolder::~cTicksHolder() {
    clearAllTicks();
    discardPicture(m_tick_proto);
}

void cTicksHolder::loadXML(const iXML* xml) {
    ENGINE_MARK;
    readKey(*xml, u"tick_offset", m_tick_offset);
    iXML* tag = nullptr;
    if (!xml->get("TickProto", tag))
        return;
    if (!m_tick_proto)
        m_tick_proto = new cPicture(nullptr);
    m_tick_proto->loadXML(tag);
    m_tick_proto->hide();
}

void cTicksHolder::setTicksParent(cView* view) {
    m_ticks_parent = view;
    for (UInt i = getTicksCount(); i-- > 0;) {
        m_ticks[i]->setParent(view);
        if (view)
            placeTick(i);
    }
}

void cTicksHolder::placeTick(UInt index) {
    Vector2 position = m_tick_proto->getPosition() + static_cast<Float>(index) * m_tick_offset;
    Float deep = m_tick_proto->getDeep();
    if (m_ticks_parent && m_ticks_parent->getViewKind() != cView::plainView) {
        const auto* parent = static_cast<const cControl*>(m_ticks_parent);
        position += parent->getPosition();
        deep += parent->getDeep();
    }
    m_ticks[index]->setPosition(position);
    m_ticks[index]->setDeep(deep);
}

void cTicksHolder::showTicks(Bool shown) {
    for (cPicture* tick : m_ticks)
        tick->setShown(shown);
}

void cTicksHolder::addTick() {
    if (!m_tick_proto)
        return;
    m_ticks.push_back(new cPicture(*m_tick_proto));
    m_ticks.back()->setParent(m_ticks_parent);
    placeTick(getTicksCount() - 1);
    m_ticks.back()->show();
}

void cTicksHolder::deleteTick() {
    if (m_ticks.empty())
        return;
    discardPicture(m_ticks.back());
    m_ticks.pop_back();
}

void cTicksHolder::clearAllTicks() {
    while (!m_ticks.empty())
        deleteTick();
}
