#include "Game/CommonUI/PriceList.h"

#include <algorithm>
#include <array>
#include <limits>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/iXML.h"
#include "Game/CommonUI/IconText.h"

using namespace Engine;

namespace {

constexpr UInt most_places = 6;
using STEPS = std::array<Vector2, most_places>;

/// The way to each place from the one before it, in units of the offset, by the number of items to place.
const STEPS compact_steps[most_places + 1] = {
    {},
    {{{0.0f, 1.0f}}},
    {{{-0.5f, 1.0f}, {1.0f, 0.0f}}},
    {{{-1.0f, 1.0f}, {1.0f, 0.0f}, {1.0f, 0.0f}}},
    {{{-0.5f, 0.5f}, {0.0f, 1.0f}, {1.0f, -1.0f}, {0.0f, 1.0f}}},
    {{{0.0f, 0.0f}, {-0.5f, 1.0f}, {0.0f, 1.0f}, {1.0f, -1.0f}, {0.0f, 1.0f}}},
    {{{0.0f, 0.0f}, {-0.5f, 1.0f}, {0.0f, 1.0f}, {1.0f, -1.0f}, {0.0f, 1.0f}, {-0.5f, 1.0f}}},
};

Vector2 getCompactStep(UInt count, UInt placed) {
    return count <= most_places && placed < most_places ? compact_steps[count][placed] : Vector2(0.0f, 0.0f);
}

}  // namespace

void cPriceList::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cControl::loadXML(xml);
    readKey(*xml, u"DisableTextColor", m_disable_text_color);
    readKey(*xml, u"EnableTextColor", m_enable_text_color);
    readKey(*xml, u"ShowIfZero", m_show_if_zero);
    readKey(*xml, u"ShowWithX", m_show_with_x);
    readKey(*xml, u"ShowWithPlus", m_show_with_plus);
    readKey(*xml, u"ShowOnlyIcons", m_show_only_icons);
    readKey(*xml, u"Offset", m_offset);
    readKey(*xml, u"Base", m_base);
    readKey(*xml, u"Compact", m_compact);
    readKey(*xml, u"cursor_offset", m_cursor_offset);
    iXML* list = nullptr;
    if (!xml->get("List", list))
        return;
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        auto* item = new cIconText(this);
        item->loadXML(tag);
        item->setPosition(getPosition() + item->getPosition());
        item->enable();
        item->hide();
        m_items.push_back({item});
    }
}

void cPriceList::setAlpha(const Float& alpha) {
    cControl::setAlpha(alpha);
    for (const sItem& item : m_items)
        item.view->setAlpha(alpha);
}

const cPriceList::sItem& cPriceList::at(UInt index) const {
    if (index >= m_items.size())
        throw String("cPriceList: no item " + std::to_string(index));
    return m_items[index];
}

void cPriceList::setValue(UInt index, Int value) {
    at(index);
    m_items[index].value = value;
}

Int cPriceList::getValue(UInt index) const {
    return at(index).value;
}

void cPriceList::setCompare(UInt index, Int value) {
    at(index);
    m_items[index].compare = value;
}

Int cPriceList::getCompare(UInt index) const {
    return at(index).compare;
}

const cIconText& cPriceList::getItem(UInt index) const {
    return *at(index).view;
}

void cPriceList::blinkItem(UInt index) {
    at(index).view->blinkIcon();
}

void cPriceList::processItems() {
    for (const sItem& item : m_items)
        item.view->process();
}

// The view ---------------------------------------------------------------------------------------------------------

WString cPriceList::makeText(const sItem& item, Bool with_plus) const {
    WString text;
    if (m_show_with_x)
        text += u"x";
    if (with_plus && item.value > 0)
        text += u"+";
    text += toWide(std::to_string(item.value));
    return text;
}

void cPriceList::showItem(const sItem& item, const WString& text) {
    const Bool is_covered = item.value <= item.compare;
    item.view->setText(text);
    item.view->show();
    item.view->setEnabledState(is_covered);
    DXColor color = is_covered ? m_enable_text_color : m_disable_text_color;
    color.a = getAlpha();
    item.view->setColor(color);
}

void cPriceList::updateView() {
    ENGINE_MARK;
    if (m_compact) {
        compactLayout();
        return;
    }
    for (const sItem& item : m_items) {
        if (isLeftOut(item))
            item.view->hide();
        else
            showItem(item, m_show_only_icons ? WString() : makeText(item, m_show_with_plus));
    }
}

void cPriceList::compactLayout() {
    UInt count = 0;
    LongLong sum = 0;
    for (const sItem& item : m_items) {
        count += isLeftOut(item) ? 0 : 1;
        sum += item.value;
    }
    m_sum =
        static_cast<Int>(std::clamp<LongLong>(sum, std::numeric_limits<Int>::min(), std::numeric_limits<Int>::max()));
    Vector2 position = getPosition() + m_base;
    UInt placed = 0;
    for (const sItem& item : m_items) {
        if (isLeftOut(item)) {
            item.view->hide();
            continue;
        }
        position += getCompactStep(count, placed++) * m_offset;
        item.view->setPosition(position);
        showItem(item, makeText(item, false));
    }
}

void cPriceList::setSmartPosition(const Vector2& _position) {
    m_side = getRoomySide(_position);
    setPosition(_position + getSideDirection(m_side) * m_cursor_offset);
}
