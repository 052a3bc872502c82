#include "Game/CommonUI/TipPanel.h"

#include <algorithm>
#include <utility>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/MultilineText.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/StringManager.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/PriceList.h"
#include "Game/CommonUI/TipWorld.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

// Loading ----------------------------------------------------------------------------------------------------------

template <class T>
T* cTipPanel::addPart(const iXML& xml) {
    T* view = new T(&m_owner);
    view->loadXML(&xml);
    m_parts.push_back({view, Vector3(view->getPosition(), view->getDeep())});
    view->enable();
    view->hide();
    return view;
}

template <class T>
void cTipPanel::addNamed(const iXML& xml, const char* name, T*& part) {
    iXML* tag = nullptr;
    if (xml.get(name, tag))
        part = addPart<T>(*tag);
}

template <class T>
void cTipPanel::addList(const iXML& xml, const char* name) {
    iXML* list = nullptr;
    if (!xml.get(name, list))
        return;
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        addPart<T>(*tag);
    }
}

void cTipPanel::loadXML(const iXML* xml) {
    ENGINE_MARK;
    readKey(*xml, u"WaitTime", m_wait_time);
    readKey(*xml, u"TipsAlphaChangeTime", m_alpha_change_time);
    readKey(*xml, u"Position", m_position);
    readKey(*xml, u"Offset", m_offset);
    addNamed(*xml, "Image", m_background);
    loadLooks(*xml);
    addNamed(*xml, "Cargo", m_cargo);
    addNamed(*xml, "Price", m_price);
    addNamed(*xml, "PriceListExt", m_price_list_ext);
    addNamed(*xml, "CargoText", m_cargo_text);
    addNamed(*xml, "PriceText", m_price_text);
    addList<cTextLine>(*xml, "Texts");
    addList<cPicture>(*xml, "Pics");
    addList<cMultilineText>(*xml, "MultiTexts");
}

/// A side without a look of its own has that of "Image".
void cTipPanel::loadLooks(const iXML& xml) {
    if (!m_background)
        return;
    const char* const names[] = {"UpLeftImage", "UpRightImage", "DownLeftImage", "DownRightImage"};
    for (UInt i = 0; i < 4; ++i) {
        m_looks[i] = *m_background;
        loadChild(m_looks[i], &xml, names[i]);
    }
    takeLook(eScreenSide::upLeft);
}

void cTipPanel::addToCaption(const WString& text) {
    if (!m_cargo_text)
        return;
    const WString caption = cStringManager::getInstance()->getString(m_cargo_text->getText());
    m_cargo_text->setLocalized(false);
    m_cargo_text->setText(caption + text);
}

// Coming and going -------------------------------------------------------------------------------------------------

Bool cTipPanel::canStart() {
    if (!m_file.empty())
        loadView(*this, std::exchange(m_file, String()));
    return !m_suppressed && !(iTipWorld::get() && iTipWorld::get()->isPointedAt(m_owner));
}

void cTipPanel::start() {
    if (m_is_empty)
        return;
    m_wait_left = m_wait_time;
    m_hiding = false;
    updatePosition();
}

void cTipPanel::leave() {
    m_hiding = true;
    m_suppressed = false;
}

void cTipPanel::vanish() {
    m_alpha = 0.0f;
    m_hiding = true;
    for (const sPart& part : m_parts)
        part.view->hide();
}

void cTipPanel::process(Bool is_pointer_inside) {
    ENGINE_MARK;
    if (iTipWorld::get() && iTipWorld::get()->isPointedAt(m_owner))
        m_hiding = true;
    if (!is_pointer_inside)
        m_hiding = true;
    const Float dt = cTimer::getInstance()->getRealStep();
    if (!m_hiding && m_wait_left > 0.0f) {
        m_wait_left = std::max(m_wait_left - dt, 0.0f);
        return;
    }
    if (m_alpha >= 1.0f && !m_hiding) {
        updatePosition();
        return;
    }
    if (m_alpha <= 0.0f && m_hiding)
        return;
    const Float way = m_alpha_change_time > 0.0f ? dt / m_alpha_change_time : 1.0f;
    m_alpha += m_hiding ? -way : way;
    applyAlpha();
}

void cTipPanel::applyAlpha() {
    m_alpha = std::clamp(m_alpha, 0.0f, 1.0f);
    for (const sPart& part : m_parts) {
        part.view->setAlpha(m_alpha);
        const Bool visible = m_alpha > 0.0f && !part.left_out;
        if (visible && !part.view->isShow())
            part.view->show();
        else if (!visible && part.view->isShow())
            part.view->hide();
    }
}

void cTipPanel::leaveOut(const cControl* view, Bool left_out) {
    for (sPart& part : m_parts) {
        if (part.view == view)
            part.left_out = left_out;
    }
}

void cTipPanel::takeLook(eScreenSide side) {
    m_look = side;
    if (!m_background)
        return;
    m_background->cState::operator=(m_looks[static_cast<UInt>(side)]);
    m_background->setDirty();
}

void cTipPanel::updatePosition() {
    const Vector2 anchor = m_anchor->getPosition() + m_position;
    const eScreenSide side = getRoomySide(anchor);
    if (side != m_look)
        takeLook(side);
    const Vector2 place = anchor + getSideDirection(side) * m_offset;
    for (const sPart& part : m_parts) {
        part.view->setPosition(place + Vector2(part.offset));
        part.view->setDeep(part.offset.z);
    }
}

// What it tells ----------------------------------------------------------------------------------------------------

void cTipPanel::updateTipData(iExtendedInfoTip* source) {
    ENGINE_MARK;
    m_covered = true;
    leaveLackMode();
    if (!source)
        return;

    sInfoTip info;
    source->updateInfoTipCargo(info);
    updateTipCargo(info);
    const Bool has_cargo = tellHalf(m_cargo_text, m_cargo, info);

    info = {};
    source->updateInfoTipPrice(info);
    updateTipPrice(info);
    const Bool has_price = tellHalf(m_price_text, m_price, info);
    m_is_empty = !has_cargo && !has_price;
    if (m_is_empty)
        m_hiding = true;
}

/// A half that tells nothing is left out, with the men that its list may still hold. False for such a one.
Bool cTipPanel::tellHalf(cTextLine* caption, const cPriceList* list, const sInfoTip& info) {
    const Bool is_told = !info.text.empty() || info.men >= 0 || info.use_products ||
                         std::any_of(info.cargo.begin(), info.cargo.end(), [](Int amount) { return amount != 0; });
    if (caption && !info.text.empty())
        caption->setText(info.text);
    leaveOut(caption, !is_told);
    leaveOut(list, !is_told);
    return is_told;
}

void cTipPanel::updateTipCargo(const sInfoTip& info) {
    fillList(m_cargo, info);
}

void cTipPanel::updateTipPrice(const sInfoTip& info) {
    fillProducts(info);
    fillList(m_price, info);
}

void cTipPanel::fillList(cPriceList* list, const sInfoTip& info) {
    if (!list || list->getCount() == 0)
        return;
    const iTipWorld* world = info.compare_global ? iTipWorld::get() : nullptr;
    const std::array<Int, 5> compare = world ? world->getStock() : info.cargo;
    const UInt last = list->getCount() - 1;
    for (UInt i = 0; i < std::min<UInt>(last, 5); ++i) {
        list->setValue(i, info.cargo[i]);
        list->setCompare(i, compare[i]);
        m_covered = m_covered && info.cargo[i] <= compare[i];
    }
    if (info.men != -1) {
        const Int free_men = world ? world->getFreeMen() : info.men;
        list->setValue(last, info.men);
        list->setCompare(last, free_men);
        m_covered = m_covered && info.men <= free_men;
    }
    list->setShowOnlyIcons(info.only_icons);
    list->setShowWithPlus(info.show_plus);
    list->setBase(info.position);
    list->updateView();
}

void cTipPanel::fillProducts(const sInfoTip& info) {
    if (info.use_products)
        m_covered = false;
    if (!m_price_list_ext)
        return;
    const UInt count = m_price_list_ext->getCount();
    for (UInt i = 0; i < count; ++i)
        m_price_list_ext->setValue(i, 0);
    if (info.use_products) {
        for (const Int product : info.products) {
            if (product >= 0 && static_cast<UInt>(product) < count)
                m_price_list_ext->setValue(static_cast<UInt>(product), 1);
        }
        m_price_list_ext->setShowOnlyIcons(true);
        m_price_list_ext->setBase(info.position);
    }
    m_price_list_ext->updateView();
}

// What is lacking --------------------------------------------------------------------------------------------------

void cTipPanel::clicked() {
    if (!m_lack_mode && !m_hiding && m_wait_left <= 0.0f && m_alpha >= 1.0f)
        objectClicked();
}

void cTipPanel::objectClicked() {
    ENGINE_MARK;
    if (m_covered) {
        m_hiding = true;
        return;
    }
    m_lack_mode = true;
    if (m_price_text) {
        m_price_caption = m_price_text->getText();
        m_price_text->setText(cGameStrings::getInstance()->getString("not_enough"));
    }
    leaveOut(m_cargo_text, true);
    leaveOut(m_price_text, false);
    const Bool is_price_short = showLack(m_price);
    if (!is_price_short)
        showLack(m_cargo);
    leaveOut(m_price, !is_price_short);
    leaveOut(m_cargo, is_price_short);
    applyAlpha();
    updatePosition();
}

/// An owner without a caption of its own has the file's again.
void cTipPanel::leaveLackMode() {
    if (m_lack_mode && m_price_text)
        m_price_text->setText(m_price_caption);
    m_lack_mode = false;
    for (sPart& part : m_parts)
        part.left_out = false;
}

/// Turns each amount into what is missing of it. False if nothing is.
Bool cTipPanel::showLack(cPriceList* list) {
    if (!list)
        return false;
    Bool is_short = false;
    for (UInt i = 0; i < list->getCount(); ++i) {
        if (list->getValue(i) <= 0)
            continue;
        const Int missing = std::max(list->getValue(i) - list->getCompare(i), 0);
        list->setValue(i, missing);
        list->setCompare(i, 0);
        is_short = is_short || missing > 0;
    }
    list->updateView();
    return is_short;
}
