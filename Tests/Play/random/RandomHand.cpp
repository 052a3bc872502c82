#include "Tests/Play/random/RandomHand.h"

#include <algorithm>
#include <array>

#include "Engine/graphics/Graphics.h"
#include "Game/GameLogic/buildings/Market.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/buildings/Mill.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Tactic/ControlPanel.h"
#include "Game/GameUI/Tactic/MarketMenu.h"
#include "Game/GameUI/Tactic/PanelButtons.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/TradeButton.h"

namespace {

constexpr UInt escape = 1;

cTacticMap& map() {
    return *cTacticMap::getInstance();
}

Vector2 getScreenSize() {
    const auto* graphics = Engine::cGraphics::getInstance();
    return {static_cast<Float>(graphics->getWidth()), static_cast<Float>(graphics->getHeight())};
}

std::vector<const cMarketTask*> getOffers() {
    std::vector<const cMarketTask*> res;
    for (const cBuilding* building : cBuilding::getStorage()) {
        const auto* market = dynamic_cast<const cMarket*>(building);
        if (!market)
            continue;
        for (const cMarketTask* task : market->getTasks()) {
            if (cMarketMenu::getInstance()->findButton(*task))
                res.push_back(task);
        }
    }
    return res;
}

}  // namespace

// Movements ----------------------------------------------------------------------------------------------------------

void cRandomHand::act() {
    if (m_movements.empty())
        chooseGesture();
    if (!m_movements.empty() && m_movements.front()())
        m_movements.pop_front();
}

void cRandomHand::note(std::string what) {
    constexpr std::size_t kept = 12;
    ++m_gestures;
    m_last.push_back(std::move(what));
    if (m_last.size() > kept)
        m_last.pop_front();
}

void cRandomHand::wait(UInt frames) {
    m_movements.push_back([frames]() mutable { return frames == 0 || --frames == 0; });
}

/// Scrolls there if that is far away, as long as it may take, and points there, seen or not.
void cRandomHand::pointAt(const std::function<Vector2()>& find_on_map) {
    constexpr Float edge = 40.0f;
    constexpr UInt most_frames = 300;
    m_movements.push_back([this, find_on_map, left = most_frames]() mutable {
        const Vector2 size = getScreenSize();
        const Float x = map().toScreen(find_on_map()).x;
        const Bool to_left = x < edge && map().getOffset() > 0.0f;
        const Bool to_right = x > size.x - edge && map().getOffset() < map().getSize().x - size.x;
        if (left-- == 0 || !(to_left || to_right))
            return true;
        m_stage.getMachine().move({to_left ? 1.0f : size.x - 1.0f, size.y * 0.5f});
        return false;
    });
    m_movements.push_back([this, find_on_map] {
        m_stage.getMachine().move(map().toScreen(find_on_map()));
        return true;
    });
}

void cRandomHand::pointAtScreen(const Vector2& place) {
    m_movements.push_back([this, place] {
        m_stage.getMachine().move(place);
        return true;
    });
}

void cRandomHand::press(UInt button) {
    m_movements.push_back([this, button] {
        m_stage.getMachine().pushButton(button, true);
        return true;
    });
}

void cRandomHand::release(UInt button) {
    m_movements.push_back([this, button] {
        m_stage.getMachine().pushButton(button, false);
        return true;
    });
}

void cRandomHand::click(UInt button) {
    press(button);
    release(button);
}

void cRandomHand::pressKey(UInt scan_code) {
    for (const bool pressed : {true, false})
        m_movements.push_back([this, scan_code, pressed] {
            m_stage.getMachine().pushKey(scan_code, pressed);
            return true;
        });
}

void cRandomHand::dragTo(const Vector2& from, const Vector2& to) {
    constexpr Int steps = 5;
    pointAtScreen(from);
    press(0);
    for (Int i = 1; i <= steps; ++i)
        pointAtScreen(from + (to - from) * (static_cast<Float>(i) / steps));
    release(0);
}

/// All in one frame, somewhere on the level.
void cRandomHand::flurry() {
    constexpr UInt most_events = 8;
    const Int point = drawPoint();
    pointAt([point] { return map().getPoint(point).pos; });
    const UInt count = 2 + draw(most_events);
    m_movements.push_back([this, count] {
        for (UInt i = 0; i < count; ++i) {
            const UInt event = draw(8);
            m_stage.getMachine().pushButton(event < 2 ? 1 : 0, event % 2 == 0);
        }
        return true;
    });
    release(0);
}

// Choices ------------------------------------------------------------------------------------------------------------

Vector2 cRandomHand::drawPlace() {
    constexpr UInt beyond = 20;  // units outside the screen
    const Vector2 size = getScreenSize();
    const auto along = [this](Float length) {
        return static_cast<Float>(draw(static_cast<UInt>(length) + 2 * beyond)) - static_cast<Float>(beyond);
    };
    const Float x = along(size.x);
    return {x, along(size.y)};
}

Int cRandomHand::drawPoint() {
    return static_cast<Int>(draw(static_cast<UInt>(map().getPointCount())));
}

cBuilding* cRandomHand::drawBuilding() {
    const auto& all = cBuilding::getStorage();
    return all[draw(static_cast<UInt>(all.size()))];
}

void cRandomHand::chooseGesture() {
    if (!m_stage.takesInput())
        return answer();
    const UInt kind = draw(1000);
    if (kind < 300) {
        note("wait");
        wait(draw(kind < 30 ? 10 * m_patience : m_patience));
    } else if (kind < 880) {
        work();
    } else if (kind < 910) {
        note("click anywhere");
        pointAtScreen(drawPlace());
        click();
    } else if (kind < 935) {
        note("drag anywhere");
        const Vector2 from = drawPlace();
        dragTo(from, drawPlace());
    } else if (kind < 965) {
        const UInt men = static_cast<UInt>(map().getMen().size());
        if (men == 0)
            return;
        note("click a man");
        const UInt number = draw(men);
        pointAt([number] { return map().toMap(map().getMen()[number]->getMovablePosition()); });
        click();
    } else if (kind < 977) {
        note("right click");
        pointAtScreen(drawPlace());
        click(1);
    } else if (kind < 983) {
        note("flurry");
        flurry();
    } else if (kind < 991) {
        note("any key");
        pressKey(draw(256));
    } else {
        note("escape");
        pressKey(escape);
    }
}

void cRandomHand::work() {
    switch (draw(9)) {
        case 0:
        case 1: {
            const Int point = drawPoint();
            note("click point " + std::to_string(point));
            pointAt([point] { return map().getPoint(point).pos; });
            return click();
        }
        case 2:
        case 3: {
            const cBuilding* building = drawBuilding();
            const Vector2 place = building->getMapCenter();
            note("click building " + std::to_string(building->getUnderPoint()));
            pointAt([place] { return place; });
            return click();
        }
        case 4:
        case 5:
            return clickButtonOf(drawBuilding()->getUnderPoint(), draw(3) == 0);
        case 6:
            return dragRoad();
        case 7: {
            const sPointInfo& point = map().getPoint(drawPoint());
            if (point.arcs.empty())
                return;
            auto arc = point.arcs.begin();
            std::advance(arc, draw(static_cast<UInt>(point.arcs.size())));
            const Vector2 middle = (point.pos + map().getPoint(arc->first).pos) * 0.5f;
            note("click arc " + std::to_string(point.index) + " - " + std::to_string(arc->first));
            pointAt([middle] { return middle; });
            return click();
        }
        default:
            return buy();
    }
}

/// The unload button of a mill, or the upgrade button.
void cRandomHand::clickButtonOf(Int point, Bool upgrade) {
    const auto* building = dynamic_cast<const cUpgradableBuilding*>(map().getPoint(point).building);
    const auto* mill = dynamic_cast<const cMill*>(building);
    if (!building || (!upgrade && !mill))
        return;
    note((upgrade ? "upgrade " : "unload ") + std::to_string(point));
    const Engine::cControl& button = upgrade ? building->getUpgradeButton() : mill->getUnloadButton();
    const Vector2 place = map().toMap(button.getPosition());
    pointAt([place] { return place; });
    click();
}

void cRandomHand::dragRoad() {
    constexpr Int steps = 4;
    const Int from = drawPoint();
    const Int to = drawPoint();
    note("drag point " + std::to_string(from) + " to " + std::to_string(to));
    pointAt([from] { return map().getPoint(from).pos; });
    press(0);
    for (Int i = 1; i <= steps; ++i)
        m_movements.push_back([this, from, to, i] {
            const Vector2 start = map().getPoint(from).pos;
            const Vector2 way = map().getPoint(to).pos - start;
            m_stage.getMachine().move(map().toScreen(start + way * (static_cast<Float>(i) / steps)));
            return true;
        });
    release(0);
}

void cRandomHand::buy() {
    const cControlPanel& panel = map().getControlPanel();
    const std::array<const cPanelBuyButton*, 3> buttons{&panel.getManButton(), &panel.getIdolButton(),
                                                        &panel.getCatapultButton()};
    const UInt which = draw(static_cast<UInt>(buttons.size()));
    note("buy " + std::to_string(which));
    pointAtScreen(buttons[which]->getPosition());
    click();
}

/// Menus and questions stand in the middle of the screen.
void cRandomHand::answer() {
    if (cMarketMenu::getInstance() && draw(4) != 0)
        return trade();
    constexpr UInt width = 300;
    constexpr UInt height = 440;
    note("answer");
    if (draw(3) == 0)
        return pressKey(escape);
    const Vector2 corner = (getScreenSize() - Vector2(width, height)) * 0.5f;
    const auto x = static_cast<Float>(draw(width));
    pointAtScreen(corner + Vector2(x, static_cast<Float>(draw(height))));
    click();
    wait(2);
}

/// With whatever the market offers.
void cRandomHand::trade() {
    const auto trades = getOffers();
    if (trades.empty())
        return pressKey(escape);
    const auto* button = cMarketMenu::getInstance()->findButton(*trades[draw(static_cast<UInt>(trades.size()))]);
    note("trade " + button->getTask().getId());
    pointAtScreen(button->getPosition());
    click();
    wait(2);
}
