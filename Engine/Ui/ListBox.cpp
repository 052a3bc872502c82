#include "Engine/Ui/ListBox.h"

#include <algorithm>

#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"

namespace Engine {

namespace {

void setSeen(cView& view, Bool seen) {
    if (!seen)
        return view.hide();
    view.show();
    view.enable();
}

}  // namespace

cListBox::cListBox(cView* parent)
    : cView(parent), m_prototype(new cTextButton(this)), m_up(new cAnimButton(this)), m_down(new cAnimButton(this)) {
    m_up->setOnClick(onUp);
    m_down->setOnClick(onDown);
}

void cListBox::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cView::loadXML(xml);
    readKey(*xml, u"Interlinear", m_interlinear);
    readKey(*xml, u"MaxRows", m_max_rows);
    readKey(*xml, u"TopLeft", m_top_left);
    readKey(*xml, u"BottomRight", m_bottom_right);
    loadChild(*m_up, xml, "UpButton");
    loadChild(*m_down, xml, "DownButton");
    loadChild(*m_prototype, xml, "Button");
    m_prototype->getTextView().setLocalized(false);  // what is listed is names
    m_prototype->hide();
    m_prototype->disable();
    loadStrings(*xml);
    updateList();
}

void cListBox::loadStrings(const iXML& xml) {
    iXML* list = nullptr;
    if (!xml.get("Strings", list))
        return;
    UInt count = list->getTagCount();
    UInt wanted = count;
    readKey(*list, u"Count", wanted);
    count = std::min(count, wanted);
    for (UInt i = 0; i < count; ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        addItem((*tag)[u"String"]);
    }
}

void cListBox::setStrings(const std::vector<WString>& strings) {
    for (cTextButton* item : m_items) {
        item->hide();
        discard(item, here());
    }
    m_items.clear();
    for (const WString& text : strings)
        addItem(text);
    updateList();
}

void cListBox::addItem(const WString& text) {
    auto* item = new cTextButton(*m_prototype);
    item->setText(text);
    item->setOnClick(onItem);
    m_items.push_back(item);
}

void cListBox::setFirstLine(UInt line) {
    m_first_line = line;
    updateList();
}

UInt cListBox::countRows() const {
    if (!(m_interlinear > 0.0f))
        return 0;
    const Float rows = std::clamp((m_bottom_right.y - m_top_left.y) / m_interlinear, 0.0f, 1000.0f);
    return m_max_rows > 0 ? std::min(static_cast<UInt>(rows), m_max_rows) : static_cast<UInt>(rows);
}

void cListBox::updateList() {
    const UInt rows = countRows();
    const UInt count = getCount();
    m_first_line = std::min(m_first_line, count > rows ? count - rows : 0);
    const UInt end = std::min(m_first_line + rows, count);
    const Float middle = (m_top_left.x + m_bottom_right.x) * 0.5f;
    Float y = m_top_left.y + m_interlinear * 0.5f;
    for (UInt i = 0; i < count; ++i) {
        const Bool seen = i >= m_first_line && i < end;
        if (seen) {
            m_items[i]->setPosition({middle, y});
            y += m_interlinear;
        }
        setSeen(*m_items[i], seen);
    }
    setSeen(*m_down, end < count);
    setSeen(*m_up, m_first_line > 0);
}

void cListBox::onItem(cView* view) {
    auto* list = static_cast<cListBox*>(view->getParent());
    const auto found = std::find(list->m_items.begin(), list->m_items.end(), view);
    if (found != list->m_items.end() && list->m_on_select)
        list->m_on_select(static_cast<UInt>(found - list->m_items.begin()), list);
}

void cListBox::onUp(cView* view) {
    auto* list = static_cast<cListBox*>(view->getParent());
    if (list->m_first_line > 0)
        list->setFirstLine(list->m_first_line - 1);
}

void cListBox::onDown(cView* view) {
    auto* list = static_cast<cListBox*>(view->getParent());
    list->setFirstLine(list->m_first_line + 1);
}

}  // namespace Engine
