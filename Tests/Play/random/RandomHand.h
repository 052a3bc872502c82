#pragma once

#include <deque>
#include <functional>
#include <random>
#include <string>

#include "Game/Types.h"
#include "Tools/simulate/Stage.h"

class cBuilding;

/// A hand that does to a level whatever comes to its mind, sensible or not: it clicks, drags, buys, calls off, opens
/// menus, and waits for what comes of it. The same seed makes it do the same.
class cRandomHand {
public:
    /// @param stage  outlives the hand
    cRandomHand(Simulate::cStage& stage, UInt seed) : m_stage(stage), m_chance(seed), m_patience(5u << seed % 8) {}

    void act();  ///< before each frame
    /// What it was about before the level went away is of no account any more.
    void forget() { m_movements.clear(); }
    UInt getGestures() const { return m_gestures; }                    ///< so many so far
    const std::deque<std::string>& getLast() const { return m_last; }  ///< the last ones, in words

private:
    /// Gives true once it is done; asked once a frame.
    using fMovement = std::function<bool()>;

    UInt draw(UInt below) { return static_cast<UInt>(m_chance()) % below; }
    Vector2 drawPlace();
    Int drawPoint();
    cBuilding* drawBuilding();
    void note(std::string what);
    void chooseGesture();
    void answer();  ///< to whatever lies over the level
    void work();    ///< clicks on what may bring the level forward

    void pointAt(const std::function<Vector2()>& find_on_map);
    void pointAtScreen(const Vector2& place);
    void press(UInt button);
    void release(UInt button);
    void click(UInt button = 0);
    void clickButtonOf(Int point, Bool upgrade);
    void pressKey(UInt scan_code);
    void dragTo(const Vector2& from, const Vector2& to);
    void dragRoad();
    void buy();
    void trade();  ///< in a market's window
    void flurry();
    void wait(UInt frames);

    Simulate::cStage& m_stage;
    std::mt19937 m_chance;
    UInt m_patience;  ///< frames that it waits at most, as a rule
    std::deque<fMovement> m_movements;
    UInt m_gestures = 0;
    std::deque<std::string> m_last;
};
