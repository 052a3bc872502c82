// How the map of levels comes out of its file, and what it shows of levels that were left.
#include <algorithm>
#include <utility>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Random.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameUI/Strategic/StartPointInfo.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/Game.h"

using namespace Engine;

void cStrategicMap::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    readKey(*xml, u"fog_scale_factor", m_fog_scale_factor);
    readKey(*xml, u"tut_levels_number", m_tut_levels_number);
    readKey(*xml, u"first_number", m_first_number);
    loadChild(*m_main_menu, xml, "MainMenuButton");
    loadChild(*m_caption_picture, xml, "MapCaptionPic");
    loadChild(*m_caption_text, xml, "MapCaptionText");
    loadChild(*m_flag_prototype, xml, "FlagPrototype");
    loadChild(*m_number_prototype, xml, "NumberPrototype");
    m_flag_prototype->hide();
    m_number_prototype->hide();
    for (const auto& [name, state] :
         {std::pair("stateAvail", &m_state_avail), std::pair("stateUnavail", &m_state_unavail)}) {
        loadChild(*state, xml, "NodeButton");
        loadChild(*state, xml, name);
    }
    for (const auto& [name, state] : {std::pair("GoldenFlag", &m_golden_flag), std::pair("SilverFlag", &m_silver_flag),
                                      std::pair("BlueFlag", &m_blue_flag)}) {
        *state = *m_flag_prototype;
        loadChild(*state, xml, name);
    }
    loadFogPrototypes(*xml);
    loadNodes(*xml);
    saveOriginalSizes();
}

void cStrategicMap::loadFogPrototypes(const iXML& xml) {
    iXML* list = nullptr;
    if (!xml.get("FogPrototypes", list))
        throw String("Error load fog protype");
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        auto* fog = new cPicture(this);
        fog->loadXML(tag);
        fog->hide();
        m_fog_prototypes.push_back(fog);
    }
}

void cStrategicMap::loadNodes(const iXML& xml) {
    iXML* list = nullptr;
    if (!xml.get("LevelNodes", list))
        return;
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* settings = nullptr;
        list->get(i, settings);
        m_nodes.push_back(makeNode(xml, *settings, static_cast<Int>(i)));
        loadSavedLevel(*m_nodes.back(), *settings);
    }
}

cStrategicMap::NODE* cStrategicMap::makeNode(const iXML& map, const iXML& settings, Int level) {
    auto* node = new NODE(this);
    loadChild(*node, &map, "NodeButton");
    node->loadLevelSettings(settings);
    node->setLevel(level);
    node->setOnClick(onStartLevel);
    node->setLooks(m_state_avail, m_state_unavail);
    if (!m_fog_prototypes.empty()) {
        const auto count = static_cast<Float>(m_fog_prototypes.size());
        const auto place = static_cast<std::size_t>(count * static_cast<Float>(Engine::random().next()) * 3.05176e-5f);
        node->setFog(*m_fog_prototypes[std::min(place, m_fog_prototypes.size() - 1)]);
    }
    WString number(u" ");
    number.append(formatText(level + 1));
    node->addToTipCaption(number);
    node->createNumber(*m_number_prototype, level + m_first_number);
    node->disable();
    node->show();
    return node;
}

/// The flags of the record, and better ones that the player has won before.
void cStrategicMap::loadSavedLevel(NODE& node, const iXML& settings) {
    const Int level = node.getLevel();
    const sLevelHead head = cGame::readLevelHead(level);
    for (std::size_t i = 0; i < head.marks.size(); ++i)
        addFlag(node, settings, static_cast<Int>(i), head.marks[i]);
    for (Int bridge = 0; bridge < cGame::kept_flag_count; ++bridge) {
        if (const Int mark = cGame::getKeptFlag(level, bridge); mark != markNone)
            addFlag(node, settings, bridge, mark);
    }
    if (!cGame::isLevelSaved(level))
        return;
    cGame::openLevel(level);
    node.setPrevLevel(head.previous_level);
}

void cStrategicMap::addFlag(NODE& node, const iXML& settings, Int bridge, Int mark) {
    Vector2 position = node.getPosition();
    WString key(u"flag");
    key.append(formatText(bridge));
    readKey(settings, key.c_str(), position);
    node.addFlag(bridge, position, mark, *m_flag_prototype);
    cGame::keepFlag(node.getLevel(), bridge, mark);
}

void cStrategicMap::updateLevelFlags(Int level) {
    ENGINE_MARK;
    NODE* node = findNode(level);
    if (!node)
        return;
    iXML* xml = cResourceManager::getInstance()->getXML(getDefinitionFile());
    const cResourceRef holder = cResourceRef::adopt(xml);
    iXML* list = nullptr;
    iXML* settings = nullptr;
    if (!xml->get("LevelNodes", list))
        return;
    list->get(static_cast<UInt>(level), settings);
    Int index = 0;
    for (const cBridge* bridge : cUtils::getLevelBridges())
        addFlag(*node, *settings, index++, bridge->getMark(true));
}

void cStrategicMap::saveOriginalSizes() {
    for (cControl* piece : getBackground())
        m_roll.addPicture(*piece);
    for (const NODE* node : m_nodes) {
        if (node->getFog())
            m_roll.addFog(*node->getFog());
    }
}
