#include "Tools/simulate/Player.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/core/iXML.h"
#include "Engine/graphics/Graphics.h"
#include "Game/GameLogic/Barrier.h"
#include "Game/GameLogic/buildings/Bridge.h"
#include "Game/GameLogic/buildings/Caravan.h"
#include "Game/GameLogic/buildings/Market.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Tactic/ControlPanel.h"
#include "Game/GameUI/Tactic/MarketMenu.h"
#include "Game/GameUI/Tactic/PanelButtons.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/TradeButton.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameMenu.h"

using namespace Engine;

namespace Simulate {

namespace {

constexpr Int frames_to_open = 5;  ///< that a window takes at most
constexpr Float edge = 60.0f;      ///< units from the screen's sides in which nothing is clicked

cTacticMap& map() {
    return *cTacticMap::getInstance();
}

Int toInt(const std::string& word) {
    std::size_t used = 0;
    Int res = 0;
    try {
        res = std::stoi(word, &used);
    } catch (const std::exception&) {
        used = 0;
    }
    if (used == 0 || used != word.size())
        throw String("\"") + word + "\" is no whole number";
    return res;
}

Float toFloat(const std::string& word) {
    std::size_t used = 0;
    Float res = 0.0f;
    try {
        res = std::stof(word, &used);
    } catch (const std::exception&) {
        used = 0;
    }
    if (used == 0 || used != word.size() || !std::isfinite(res))
        throw String("\"") + word + "\" is no number";
    return res;
}

Int toPoint(const std::string& word) {
    const Int res = toInt(word);
    if (!map().hasPoint(res))
        throw String("there is no point ") + word;
    return res;
}

void requireCount(const std::vector<std::string>& words, std::size_t count) {
    if (words.size() != count)
        throw String("\"") + words[0] + "\" takes " + std::to_string(count - 1) + " words";
}

/// Which of a type, by their first points.
cBuilding* findBuilding(Int type, Int number) {
    std::vector<cBuilding*> found;
    for (cBuilding* building : cBuilding::getStorage()) {
        if (building->getType() == type)
            found.push_back(building);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const cBuilding* a, const cBuilding* b) { return a->getUnderPoint() < b->getUnderPoint(); });
    if (number < 0 || number >= static_cast<Int>(found.size()))
        throw String("there is no building ") + std::to_string(number) + " of type " + std::to_string(type);
    return found[static_cast<std::size_t>(number)];
}

}  // namespace

cPlayer::cPlayer(cStage& stage, std::vector<sAction> actions, std::string script)
    : m_stage(stage), m_actions(std::move(actions)), m_script(std::move(script)) {
}

void cPlayer::act(double time) {
    constexpr double rounding = 1e-6;
    while (m_movements.empty() && m_next < m_actions.size() && m_actions[m_next].time <= time + rounding) {
        const sAction& action = m_actions[m_next++];
        try {
            perform(action);
        } catch (const std::string& failure) {
            throw String(m_script) + ", line " + std::to_string(action.line) + ": " + failure;
        }
    }
    if (!m_movements.empty() && m_movements.front()())
        m_movements.pop_front();
}

void cPlayer::perform(const sAction& action) {
    const WORDS& words = action.words;
    const std::string& what = words[0];
    if (what == "click")
        return click(words);
    if (what == "drag")
        return drag(words);
    if (what == "query")
        return query(words);
    if (what == "move") {
        requireCount(words, 3);
        return m_stage.getMachine().move({toFloat(words[1]), toFloat(words[2])});
    }
    if (what == "press" || what == "release") {
        requireCount(words, 2);
        if (words[1] != "left" && words[1] != "right")
            throw String("there is no button \"") + words[1] + "\"";
        return m_stage.getMachine().pushButton(words[1] == "left" ? 0 : 1, what == "press");
    }
    if (what == "key") {
        requireCount(words, 3);
        constexpr Int scan_codes = 256;
        const Int code = toInt(words[1]);
        if (code < 0 || code >= scan_codes || (words[2] != "press" && words[2] != "release"))
            throw String("there is no such key, or it is neither pressed nor released");
        return m_stage.getMachine().pushKey(static_cast<unsigned>(code), words[2] == "press");
    }
    if (what == "save") {
        map().saveBinLevel();
        return cGame::getInstance()->saveLevels();
    }
    if (what == "load") {
        map().saveBinLevel();
        return m_stage.reenter();
    }
    if (what == "replay")
        return openMenu("ReplayButton");
    if (what == "map")
        return openMenu("MapButton");
    if (what == "shot") {
        requireCount(words, 2);
        return shoot(words[1]);
    }
    if (what == "goback")
        return goBack();
    if (what == "buy")
        return buy(words);
    if (what == "trade")
        return trade(words);
    throw String("there is no action \"") + what + "\"";
}

/// The one frame whose picture is wanted is drawn.
void cPlayer::shoot(const std::string& path) {
    m_movements.push_back([this] {
        m_stage.setDrawing(true);
        return true;
    });
    m_movements.push_back([this, path] {
        m_stage.setDrawing(false);
        m_stage.getMachine().shoot(path);
        return true;
    });
}

// Movements ----------------------------------------------------------------------------------------------------------

/// One frame of scrolling towards a place of the map. True once it can be clicked.
bool cPlayer::bringIntoView(const Vector2& place) {
    const auto width = static_cast<Float>(cGraphics::getInstance()->getWidth());
    const auto height = static_cast<Float>(cGraphics::getInstance()->getHeight());
    const Float x = map().toScreen(place).x;
    const Float last = std::max(0.0f, map().getSize().x - width);
    const bool to_left = x < edge && map().getOffset() > 0.0f;
    const bool to_right = x > width - edge && map().getOffset() < last;
    if (to_left || to_right) {
        m_stage.getMachine().move({to_left ? 1.0f : width - 1.0f, height * 0.5f});
        m_is_scrolling = true;
        return false;
    }
    if (m_is_scrolling && m_scrolls_far && map().getOffset() > 0.0f && map().getOffset() < last)
        return false;
    m_is_scrolling = false;
    m_stage.getMachine().move({width * 0.5f, height * 0.5f});
    return map().getSpeed() == 0.0f;
}

void cPlayer::pointAt(const std::function<Vector2()>& find) {
    m_movements.push_back([this, find] { return bringIntoView(find()); });
    m_movements.push_back([this, find] {
        m_stage.getMachine().move(map().toScreen(find()));
        return true;
    });
}

void cPlayer::pressAndRelease() {
    for (const bool pressed : {true, false})
        m_movements.push_back([this, pressed] {
            m_stage.getMachine().pushButton(0, pressed);
            return true;
        });
}

/// The unload button of a mill, the upgrade button of a building.
const cControl* cPlayer::findButton(const std::string& name, const cBuilding* building) {
    if (name == "upgrade") {
        if (const auto* upgradable = dynamic_cast<const cUpgradableBuilding*>(building))
            return &upgradable->getUpgradeButton();
    } else if (const auto* mill = dynamic_cast<const cMill*>(building)) {
        return &mill->getUnloadButton();
    }
    throw String("it has no button ") + name;
}

const cControl* cPlayer::findCaravan(const cBuilding* building) {
    if (const auto* bridge = dynamic_cast<const cBridge*>(building))
        return &bridge->getCaravan();
    throw String("it has no caravan to click");
}

void cPlayer::click(const WORDS& words) {
    if (words.size() == 3 && words[1] == "point") {
        const Int point = toPoint(words[2]);
        pointAt([point] { return map().getPoint(point).pos; });
    } else if (words.size() == 4 && words[1] == "building") {
        const cBuilding* building = findBuilding(toInt(words[2]), toInt(words[3]));
        pointAt([building] { return building->getMapCenter(); });
    } else if (words.size() == 4 && words[1] == "arc") {
        const Int a = toPoint(words[2]);
        const Int b = toPoint(words[3]);
        if (map().getPoint(a).getArcType(b) == -1)
            throw String("there is no arc ") + words[2] + " - " + words[3];
        pointAt([a, b] { return (map().getPoint(a).pos + map().getPoint(b).pos) * 0.5f; });
    } else if (words.size() == 3 && words[1] == "man") {
        const Int number = toInt(words[2]);
        if (number < 0 || number >= static_cast<Int>(map().getMen().size()))
            throw String("there is no man ") + words[2];
        const cFriendMan* man = map().getMen()[static_cast<std::size_t>(number)];
        pointAt([man] { return map().toMap(man->getMovablePosition()); });
    } else if (words.size() == 4 && (words[1] == "unload" || words[1] == "upgrade")) {
        const cControl* button = findButton(words[1], findBuilding(toInt(words[2]), toInt(words[3])));
        if (!button->isShow())
            return refuse("click " + words[1] + ": the button is not shown");
        pointAt([button] { return map().toMap(button->getPosition()); });
    } else if (words.size() == 4 && words[1] == "caravan") {
        const cControl* caravan = findCaravan(findBuilding(toInt(words[2]), toInt(words[3])));
        if (!caravan->isShow())
            return refuse("click caravan: it is not there");
        pointAt([caravan] { return map().toMap(caravan->getPosition()); });
    } else {
        throw String("there is nothing to click that is called so");
    }
    pressAndRelease();
}

void cPlayer::drag(const WORDS& words) {
    requireCount(words, 5);
    if (words[1] != "point" || words[3] != "point")
        throw String("only points are dragged from and to");
    const Int from = toPoint(words[2]);
    const Int to = toPoint(words[4]);
    pointAt([from] { return map().getPoint(from).pos; });
    m_movements.push_back([this] {
        m_stage.getMachine().pushButton(0, true);
        return true;
    });
    constexpr int steps = 5;
    for (int i = 1; i <= steps; ++i)
        m_movements.push_back([this, from, to, i] {
            const Vector2 way = map().getPoint(to).pos - map().getPoint(from).pos;
            const Vector2 place = map().getPoint(from).pos + way * (static_cast<Float>(i) / steps);
            m_stage.getMachine().move(map().toScreen(place));
            return true;
        });
    m_movements.push_back([this] {
        m_stage.getMachine().pushButton(0, false);
        return true;
    });
}

void cPlayer::buy(const WORDS& words) {
    requireCount(words, 2);
    const cControlPanel& panel = map().getControlPanel();
    const std::map<std::string, const cPanelBuyButton*> buttons{
        {"man", &panel.getManButton()}, {"idol", &panel.getIdolButton()}, {"catapult", &panel.getCatapultButton()}};
    const auto found = buttons.find(words[1]);
    if (found == buttons.end())
        throw String("\"") + words[1] + "\" can't be bought";
    const cPanelBuyButton* button = found->second;
    if (map().isLocked() || !button->isShown())
        return refuse("buy " + words[1] + ": there is no such button now");
    if (!button->canBeBought())
        return refuse("buy " + words[1] + ": not possible now");
    m_movements.push_back([this, button] {
        m_stage.getMachine().move(button->getPosition());
        return true;
    });
    pressAndRelease();
}

void cPlayer::trade(const WORDS& words) {
    requireCount(words, 4);
    const auto* market = dynamic_cast<const cMarket*>(findBuilding(toInt(words[1]), toInt(words[2])));
    if (!market)
        throw String("a building of type ") + words[1] + " is no market";
    const Int index = toInt(words[3]);
    const auto& tasks = market->getTasks();
    const auto task =
        std::find_if(tasks.begin(), tasks.end(), [index](const auto* one) { return one->getIndex() == index; });
    if (task == tasks.end())
        throw String("that market has no trade with the index ") + words[3];
    if (map().isLocked() || !market->isPlayerConnected())
        return refuse("trade: the market can't be opened now");
    pointAt([market] { return market->getMapCenter(); });
    pressAndRelease();
    m_movements.push_back([this, task = *task, left = frames_to_open]() mutable {
        if (cMarketMenu::getInstance())
            chooseTrade(*task);
        else if (left-- > 0)
            return false;
        else
            refuse("trade: something lies over the market");
        return true;
    });
}

/// In the window that is coming into sight.
void cPlayer::chooseTrade(const cMarketTask& task) {
    m_movements.push_back([] { return cMarketMenu::getInstance()->getTransparencyMode() == cView::noFade; });
    const cTutuorialShopButton* button = cMarketMenu::getInstance()->findButton(task);
    if (button && task.isAllowed()) {
        m_movements.push_back([this, button] {
            m_stage.getMachine().move(button->getPosition());
            return true;
        });
        return pressAndRelease();
    }
    refuse(String("trade: \"") + task.getId() + (button ? "\" can't be had now" : "\" is not on offer"));
    pressEscape();
}

/// The middle of a button, as its screen's file places it.
void cPlayer::clickMenu(const std::string& file, const std::string& tag) {
    m_movements.push_back([this, file, tag] {
        iXML* document = cResourceManager::getInstance()->getXML(String(file));
        const cResourceRef holder = cResourceRef::adopt(document);
        iXML* child = nullptr;
        Vector2 place(0.0f, 0.0f);
        if (!document->get(String(tag), child) || !readKey(*child, u"position", place))
            throw String(file) + ": there is no place of \"" + tag + "\"";
        m_stage.getMachine().move(place);
        return true;
    });
    pressAndRelease();
}

void cPlayer::pressEscape() {
    constexpr unsigned escape = 1;
    for (const bool pressed : {true, false})
        m_movements.push_back([this, pressed] {
            m_stage.getMachine().pushKey(escape, pressed);
            return true;
        });
}

void cPlayer::openMenu(const std::string& tag) {
    if (map().isLocked())
        return refuse(tag + ": the level takes no input");
    pressEscape();
    m_movements.push_back([] { return cGameMenu::getInstance()->isShown(); });
    clickMenu("UI/GameMenu.xml", tag);
    confirm();
}

/// Says yes to the question that was just asked.
void cPlayer::confirm() {
    m_movements.push_back([] { return true; });
    clickMenu("UI/YesNo.xml", "YesButton");
}

/// Over the start point, as a player's hand would.
void cPlayer::goBack() {
    const cStartPoint* start = map().getStartPoint();
    if (map().isLocked() || start->getPrevLevel() < 0)
        return refuse(map().isLocked() ? "goback: the level takes no input" : "goback: there is no level before");
    pointAt([start] { return start->getMapCenter() - Vector2(0.0f, start->getHeightOffset()); });
    pressAndRelease();
    m_movements.push_back([] { return true; });
    m_movements.push_back([this] {
        if (map().isLocked())
            confirm();
        else
            refuse("goback: something lies over the start point");
        return true;
    });
}

// Questions ----------------------------------------------------------------------------------------------------------

void cPlayer::query(const WORDS& words) {
    const auto answer = [this](const PATH_HOLDER& path, Float length) {
        nlohmann::ordered_json res;
        res["path"] = path;
        res["length"] = path.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(length);
        m_answers.push_back(std::move(res));
    };
    PATH_HOLDER path;
    const std::string kind = words.size() > 1 ? words[1] : "";
    if (kind == "path" && words.size() >= 5) {
        sWalkRules rules{toFloat(words[4]), false, false, false};
        for (std::size_t i = 5; i < words.size(); ++i) {
            if (words[i] == "player")
                rules.for_player = true;
            else if (words[i] == "gates")
                rules.use_gates = true;
            else if (words[i] == "idols")
                rules.avoid_idols = true;
            else
                throw String("a path has no rule \"") + words[i] + "\"";
        }
        map().getBestPath(toPoint(words[2]), toPoint(words[3]), path, rules.cross_country, rules.for_player,
                          rules.use_gates, rules.avoid_idols);
        return answer(path, map().getPathLength(path));
    }
    if (kind == "roadplan" && words.size() == 3) {
        map().getBestPathForRoadPlan(toPoint(words[2]), path);
        return answer(path, map().getPathLength(path));
    }
    if (kind == "draggedroad" && words.size() == 4) {
        map().getBestPathForDraggedRoad(toPoint(words[2]), toPoint(words[3]), path);
        return answer(path, map().getPathLength(path));
    }
    if (kind == "shippath" && words.size() == 3) {
        map().getShipPath(toPoint(words[2]), path);
        Float length = 0.0f;
        for (std::size_t i = 1; i < path.size(); ++i)
            length += map().getPoint(path[i - 1]).arcs.at(path[i]).length;
        return answer(path, length);
    }
    if (kind == "freepoint" && words.size() == 3) {
        m_answers.push_back({{"point", map().getNearestFreePoint(toPoint(words[2]))}});
        return;
    }
    throw String("there is no such query");
}

}  // namespace Simulate
