#include "Game/GameUI/Strategic/StrategicMap.h"

#include <algorithm>
#include <utility>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Profile.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Log.h"
#include "Engine/graphics/Graphics.h"
#include "Game/GameUI/Strategic/StartPointInfo.h"
#include "Game/GameUI/Tactic/LevelFile.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameMenu.h"
#include "Game/Ui/Screen.h"
#include "Game/Ui/TellPlayer.h"
#include "Game/Ui/YesNoExt.h"

using namespace Engine;

namespace {

cTacticMap& tactic() {
    return *cTacticMap::getInstance();
}

Vector2 getScreen() {
    const cGraphics* graphics = cGraphics::getInstance();
    return {static_cast<Float>(graphics->getWidth()), static_cast<Float>(graphics->getHeight())};
}

}  // namespace

cStrategicMap::cStrategicMap(cView* parent)
    : cBack(parent),
      m_main_menu(new cTextButton(this)),
      m_caption_picture(new cPicture(this)),
      m_caption_text(new cTextLine(this)),
      m_flag_prototype(new cPicture(this)),
      m_number_prototype(new cTextLine(this)) {
    ENGINE_MARK;
    loadView(*this, getDefinitionFile());
    m_main_menu->setOnClick(onMainMenu);
    cGame::openLevel(0);  // also for a player who left before he saw this map
    updateView();
    auto* map = new cTacticMap(parent);
    map->hide();
    map->disable();
    new cGameMenu({[] { tactic().resume(); }, [] { tactic().showMainMenu(); }, [] { tactic().replayLevel(); },
                   [] { tactic().showStrategicMap(); }});
    show();
    enable();
    if (isTheFirstLaunch())
        onEndComics();
}

// What the player has come to ----------------------------------------------------------------------------------------

cStrategicMap::NODE* cStrategicMap::findNode(Int level) const {
    const Bool exists = level >= 0 && level < static_cast<Int>(m_nodes.size());
    return exists ? m_nodes[static_cast<std::size_t>(level)] : nullptr;
}

Bool cStrategicMap::isTheFirstLaunch() {
    const cGame* game = cGame::getInstance();
    const cProfile* profile = cProfile::getInstance();
    if (!profile || !game || game->isNoSave())
        return false;
    const String file = cProfile::getProfilesDir() + profile->getProfileID() + ".xml";
    return !cFileManager::getInstance()->isExist(file) && cProfile::getInts()["started"] < 1;
}

Bool cStrategicMap::isAllLevelsOpened(Int mark, Int count) const {
    for (Int level = 0; level < count; ++level) {
        const NODE* node = findNode(level);
        if (!node || !cGame::isLevelOpen(level) || getWorth(node->getMark()) < getWorth(mark))
            return false;
    }
    return true;
}

cState cStrategicMap::getFlagState(Int mark) const {
    switch (mark) {
        case markSilver:
            return m_silver_flag;
        case markGold:
            return m_golden_flag;
        case markBlue:
            return m_blue_flag;
        default:
            return {};
    }
}

void cStrategicMap::setPreviousLevel(Int current_level, Int prev_level) {
    if (NODE* node = findNode(current_level))
        node->setPrevLevel(prev_level);
}

void cStrategicMap::completeTutorialLevels() {
    ENGINE_MARK;
    for (Int level = 0; level < m_tut_levels_number; ++level)
        cGame::openLevel(level);
    updateView();
    for (const Int product : {16, 1, 21, 11, 26, 27, 17, 12, 22, 2, 23})
        tactic().addProduct(product, 1);
    for (const auto& [first, last] :
         {std::pair(8, 13), std::pair(15, 18), std::pair(20, 30), std::pair(38, 41), std::pair(54, 54)}) {
        for (Int hint = first; hint <= last; ++hint)
            cGame::getProgress().setHintDone(hint);
    }
    if (cGame* game = cGame::getInstance())
        game->saveLevels();
    cGame::openLevel(m_tut_levels_number);
    updateView();
}

// Levels -------------------------------------------------------------------------------------------------------------

/// One that was finished without a golden flag may be played all over for a better one.
void cStrategicMap::onStartLevel(cView* node) {
    ENGINE_MARK;
    constexpr Int choose_a_level = 54;
    const auto* info = static_cast<const cStartPointInfo*>(static_cast<NODE*>(node));
    const Int level = info->getLevel();
    cGame::getProgress().setHintDone(choose_a_level);
    if (getWorth(info->getMark()) < getWorth(markGold) && cGame::readLevelHead(level).completed)
        return getInstance()->ask("replay", level, onReplayConfirmed, onReplayDeclided);
    getInstance()->enterLevel(level, false);
}

void cStrategicMap::enterLevel(Int level, Bool replay) {
    const Int before = cProfile::getInts()["CurrentLevel"];
    const auto go_back = [this, before] {
        cProfile::getInts()["CurrentLevel"] = before;
        String failure = takeFailureLine();
        cLogManager::getInstance()->getLog("levels", true)->printf("%s", failure.c_str());
        comeBack();
        return failure;
    };
    try {
        startLevel(level, replay);
    } catch (const sDamagedRecord&) {
        go_back();
        ask("level_damaged", level, onBeginAnewConfirmed, onBeginAnewDeclided);
    } catch (...) {
        tellPlayer(toWide(go_back()));
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
    NODE* node = findNode(level);
    if (!node)
        return;
    if (!show) {
        node->hide();
        node->showNumber(false);
        return node->showFlags(false);
    }
    const Bool is_open = cGame::isLevelOpen(level) && level < cLevelFile::getLevelCount();
    node->setAvail(is_open);
    node->showFog(!is_open && m_fog_shown);
    node->showFlags(is_open);
    node->showNumber(m_numbers_shown);
    node->show();
}

void cStrategicMap::updateView() {
    for (const NODE* node : m_nodes)
        showLevelButton(node->getLevel(), true);
}

void cStrategicMap::showUI(Bool show) {
    for (const NODE* node : m_nodes)
        showLevelButton(node->getLevel(), show);
    m_main_menu->setShown(show);
    m_caption_picture->setShown(show);
    m_caption_text->setShown(show);
}

void cStrategicMap::onMainMenu(cView*) {
    cGame::leaveForMainMenu();
}

// Questions ----------------------------------------------------------------------------------------------------------

void cStrategicMap::ask(const String& text_id, Int level, ANSWER on_yes, ANSWER on_no) {
    ENGINE_MARK;
    if (m_question)
        return;
    disable();
    m_asked_level = level;
    m_question = new cYesNoExt(this);
    m_question->setText(text_id);
    m_question->setYes(on_yes);
    m_question->setNo(on_no);
    showScreen(*m_question);
}

/// The map takes input again. Gives the level that was asked about.
Int cStrategicMap::closeQuestion() {
    cYesNoExt* question = std::exchange(m_question, nullptr);
    question->disable();
    discard(static_cast<cView*>(question), here());
    enable();
    return std::exchange(m_asked_level, -1);
}

void cStrategicMap::onReplayConfirmed(cView*) {
    getInstance()->enterLevel(getInstance()->closeQuestion(), true);
}

void cStrategicMap::onReplayDeclided(cView*) {
    getInstance()->enterLevel(getInstance()->closeQuestion(), false);
}

void cStrategicMap::onBeginAnewConfirmed(cView*) {
    const Int level = getInstance()->closeQuestion();
    if (cGame* game = cGame::getInstance())
        game->dropSavedLevel(level);
    getInstance()->enterLevel(level, false);
}

void cStrategicMap::onBeginAnewDeclided(cView*) {
    getInstance()->closeQuestion();
}

/// The player has seen how it all begins.
void cStrategicMap::onEndComics() {
    ENGINE_MARK;
    ++cProfile::getInts()["started"];
    cGame::openLevel(0);
    updateView();
    ask("skip_tutorial", -1, onSkipTutorialConfirmed, onSkipTutorialDeclided);
}

void cStrategicMap::onSkipTutorialConfirmed(cView*) {
    getInstance()->closeQuestion();
    getInstance()->completeTutorialLevels();
}

void cStrategicMap::onSkipTutorialDeclided(cView*) {
    getInstance()->closeQuestion();
}

// The roll -----------------------------------------------------------------------------------------------------------

Vector2 cStrategicMap::getEffectCenter(Int level) const {
    const NODE* node = findNode(level);
    return node ? node->getEffectCenter() : getScreen() * 0.5f;
}

void cStrategicMap::setEffectBegin(Int level, Float time, Bool rolls_in) {
    constexpr Float usual_scale = 0.2f;
    const NODE* node = findNode(level);
    showUI(false);
    m_roll.restore();
    m_roll.setEffectBegin(getScreen(), time, getEffectCenter(level), node ? node->getInitialScaleFactor() : usual_scale,
                          m_fog_scale_factor);
    if (!rolls_in)
        m_roll.advance(time);
}

void cStrategicMap::rollEffect(Float dt, Bool increase) {
    m_roll.advance(increase ? dt : -dt);
}

void cStrategicMap::endRoll() {
    m_roll.restore();
    showUI(true);
}
