#include "Game/GameLogic/buildings/BridgeClock.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/ProgressFloatExt.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/buildings/BridgeFlag.h"
#include "Game/GameLogic/men/EnemyMan.h"
#include "Game/GameLogic/men/tasks/EnemyBringsFlag.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

namespace {

/// Of the game's text that names the flag, and of its look.
const char* getFlagId(Int mark) {
    switch (mark) {
        case markGold:
            return "golden_flag";
        case markSilver:
            return "silver_flag";
        default:
            return "blue_flag";
    }
}

}  // namespace

cBridgeClock::cBridgeClock(cBridge& bridge)
    : m_bridge(bridge),
      m_flag(new cBridgeFlag(&bridge)),
      m_time_progress(new cProgressFloatExt(&bridge)),
      m_clock(new cTextLine(&bridge)),
      m_debug_clock(new cTextLine(&bridge)),
      m_flag_man(static_cast<cEnemyMan*>(cLevelObject::create(objectEnemyMan, *cTacticMap::getInstance()))) {
    m_flag_man->setOnClick(nullptr);
}

cBridgeClock::~cBridgeClock() {
    if (!cView::isValid(m_flag_man))
        return;
    m_flag_man->hide();
    m_flag_man->disable();
    discard(static_cast<cView*>(m_flag_man), here());
}

void cBridgeClock::loadXML(const iXML* xml) {
    ENGINE_MARK;
    readKey(*xml, u"flag_entry", m_entry_offset);
    loadChild(*m_flag, xml, "Flag");
    loadChild(*m_time_progress, xml, "TimeProgress");
    loadChild(*m_clock, xml, "Clock");
    loadChild(*m_debug_clock, xml, "DbgClock");
    showClock(false);
}

void cBridgeClock::loadXmlState(const iXML* xml) {
    readKey(*xml, u"GoldTime", m_gold_time);
    readKey(*xml, u"SilverTime", m_silver_time);
}

void cBridgeClock::serialize(iArch& arch) {
    for (Float* time : {&m_gold_time, &m_silver_time, &m_elapsed})
        serializeNumber(arch, *time);
}

// Its course ---------------------------------------------------------------------------------------------------------

void cBridgeClock::begin(const Vector2& far_end) {
    ENGINE_MARK;
    setupFlags();
    m_entry = far_end + m_entry_offset;
    m_place = cTacticMap::getInstance()->toMap(m_flag->getPosition());
    m_flag_man->setPoint(m_bridge.getUnderPoint());
    m_flag_man->setPosition(cTacticMap::getInstance()->toScreen(m_entry));
}

void cBridgeClock::process(Float step) {
    m_elapsed += step;
    m_debug_clock->setText(cBridge::getTime(static_cast<Int>(m_elapsed)));
    if (!m_flag_in_transit)
        updateFlags();
    m_flag->setAnimTime(m_flag->getAnimTime() + step);
}

void cBridgeClock::stop() {
    showClock(false);
}

void cBridgeClock::setupFlags() {
    m_mark = m_elapsed < m_gold_time ? markGold : m_elapsed < getSilverEnd() ? markSilver : markBlue;
    m_flag_in_transit = m_mark == markBlue || m_bridge.isPassed();
    showFlag(m_mark);
    showClock(!m_flag_in_transit);
    if (m_mark == markGold)
        showCountdown(m_gold_time, m_gold_time - m_elapsed);
    else
        showCountdown(m_silver_time, getSilverEnd() - m_elapsed);
}

void cBridgeClock::updateFlags() {
    if (m_elapsed < m_gold_time) {
        showCountdown(m_gold_time, m_gold_time - m_elapsed);
    } else if (m_elapsed >= getSilverEnd()) {
        m_mark = markBlue;
        m_flag_in_transit = true;
        sendFlagMan(cEnemyBringsFlag::bringsBlue, true, false);
    } else if (m_mark == markGold) {
        m_mark = markSilver;
        m_flag->setText(getFlagId(markSilver));
        m_flag_in_transit = true;
        sendFlagMan(cEnemyBringsFlag::bringsSilver, true, false);
    } else {
        showCountdown(m_silver_time, getSilverEnd() - m_elapsed);
    }
}

void cBridgeClock::onSilverFlagBrought() {
    playGameSound("gold_missed");
    showFlag(markSilver);
    showClock(!m_bridge.isPassed());
    m_flag_in_transit = false;
    sendFlagMan(cEnemyBringsFlag::takesGold, false, false);
}

void cBridgeClock::onBlueFlagBrought() {
    playGameSound("silver_missed");
    showClock(false);
    showFlag(markBlue);
    sendFlagMan(cEnemyBringsFlag::bringsSilver, false, true);
}

/// @param comes  from the edge of the map to the flag, or back
void cBridgeClock::sendFlagMan(Int kind, Bool comes, Bool vanish) {
    const Vector2& from = comes ? m_entry : m_place;
    const Vector2& to = comes ? m_place : m_entry;
    m_flag_man->show();
    m_flag_man->setTask(std::make_unique<cEnemyBringsFlag>(&m_bridge, m_flag_man, kind, from, to, vanish));
}

// What is seen of it -------------------------------------------------------------------------------------------------

void cBridgeClock::showFlag(Int mark) {
    const char* id = getFlagId(mark);
    m_flag->setText(id);
    if (const cState* look = m_bridge.findState(id))
        m_flag->setLook(*look);
    m_flag->show();
}

void cBridgeClock::showCountdown(Float range, Float left) {
    m_time_progress->setProgressMaxValue(range);
    m_time_progress->setProgressCurrentValue(left);
    m_time_progress->progressChanged();
    m_clock->setText(cBridge::getTime(static_cast<Int>(left)));
}

void cBridgeClock::showClock(Bool show) {
    m_time_progress->setShown(show);
    m_clock->setShown(show);
}
