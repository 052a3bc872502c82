#include "Game/GameUI/Strategic/StrategicMap.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Profile.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Engine.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Log.h"
#include "Engine/graphics/Graphics.h"
#include "Game/GameUI/Tactic/LevelFile.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameMenu.h"

using namespace Engine;

namespace {

constexpr char definition_file[] = "GameUI/Strategic/StrategicMap.xml";

cTacticMap& tactic() {
    return *cTacticMap::getInstance();
}

}  // namespace

void cStrategicMap::cStartPointInfo::loadLevelSettings(const iXML* xml) {
    Vector2 position = getPosition();
    readKey(*xml, u"position", position);
    setPosition(position);
    m_effect_center = position;
    readKey(*xml, u"effect_center", m_effect_center);
}

cStrategicMap::cStrategicMap(cView* parent)
    : cBack(parent), m_main_menu(new cTextButton(this)), m_node_prototype(new cStartPointInfo(this)) {
    ENGINE_MARK;
    loadView(*this, definition_file);
    m_main_menu->setOnClick(onMainMenu);
    cGame::openLevel(0);
    updateView();
    auto* map = new cTacticMap(parent);
    map->hide();
    map->disable();
    new cGameMenu({[] { tactic().resume(); }, [] { tactic().showMainMenu(); }, [] { tactic().replayLevel(); },
                   [] { tactic().showStrategicMap(); }});
}

void cStrategicMap::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_main_menu, xml, "MainMenuButton");
    loadChild(*m_node_prototype, xml, "NodeButton");
    m_node_prototype->hide();
    m_node_prototype->disable();
    for (const auto& [name, state] :
         {std::pair("stateAvail", &m_state_avail), std::pair("stateUnavail", &m_state_unavail)}) {
        *state = *m_node_prototype;
        loadChild(*state, xml, name);
    }
    loadNodes(*xml);
}

void cStrategicMap::loadNodes(const iXML& xml) {
    iXML* list = nullptr;
    if (!xml.get("LevelNodes", list))
        return;
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        auto* node = new cStartPointInfo(*m_node_prototype);
        node->loadLevelSettings(tag);
        node->setLevel(static_cast<Int>(i));
        node->setOnClick(onStartLevel);
        m_nodes.push_back(node);
    }
}

cStrategicMap::cStartPointInfo* cStrategicMap::findNode(Int level) const {
    const Bool exists = level >= 0 && level < static_cast<Int>(m_nodes.size());
    return exists ? m_nodes[static_cast<std::size_t>(level)] : nullptr;
}

// Levels -------------------------------------------------------------------------------------------------------------

void cStrategicMap::onStartLevel(cView* node) {
    getInstance()->enterLevel(static_cast<cStartPointInfo*>(node)->getLevel(), false);
}

void cStrategicMap::enterLevel(Int level, Bool replay) {
    const Int before = cProfile::getInts()["CurrentLevel"];
    try {
        startLevel(level, replay);
    } catch (...) {
        const String& failure = currentFailure();
        cProfile::getInts()["CurrentLevel"] = before;
        cLogManager::getInstance()->getLog("levels", true)->printf("%s", failure.c_str());
        const WString told = toWide(failure.substr(0, failure.find('\n')));
        cEngine::getInstance()->getInstancePlatform()->showMessageBox(u"Error", told);
        callStackText().clear();
        comeBack();
    }
}

void cStrategicMap::comeBack() {
    endRoll();
    updateView();
    show();
    enable();
}

void cStrategicMap::startLevel(Int level, Bool replay) {
    ENGINE_MARK;
    cGame::openLevel(level);
    cProfile::getInts()["CurrentLevel"] = level;
    disable();
    tactic().initialize(replay);
}

void cStrategicMap::showLevelButton(Int level, Bool show) {
    cStartPointInfo* node = findNode(level);
    if (!node)
        return;
    if (!show)
        return node->hide();
    const Bool is_open = cGame::isLevelOpen(level) && level < cLevelFile::getLevelCount();
    node->cState::operator=(is_open ? m_state_avail : m_state_unavail);
    node->setDirty();
    node->setEnabled(is_open);
    node->show();
}

void cStrategicMap::updateView() {
    for (const cStartPointInfo* node : m_nodes)
        showLevelButton(node->getLevel(), true);
}

void cStrategicMap::showUI(Bool show) {
    for (const cStartPointInfo* node : m_nodes)
        showLevelButton(node->getLevel(), show);
    show ? m_main_menu->show() : m_main_menu->hide();
}

void cStrategicMap::updateLevelFlags(Int) {
}

void cStrategicMap::setPreviousLevel(Int current_level, Int prev_level) {
    if (cStartPointInfo* node = findNode(current_level))
        node->setPrevLevel(prev_level);
}

void cStrategicMap::onMainMenu(cView*) {
    cGame::leaveForMainMenu();
}

// The roll -----------------------------------------------------------------------------------------------------------

Vector2 cStrategicMap::getEffectCenter(Int level) const {
    if (const cStartPointInfo* node = findNode(level))
        return node->getEffectCenter();
    const cGraphics* graphics = cGraphics::getInstance();
    return Vector2(static_cast<Float>(graphics->getWidth()), static_cast<Float>(graphics->getHeight())) * 0.5f;
}

void cStrategicMap::setEffectBegin(Int, Float) {
    showUI(false);
}

void cStrategicMap::rollEffect(Float, Bool) {
}

void cStrategicMap::endRoll() {
    showUI(true);
}
