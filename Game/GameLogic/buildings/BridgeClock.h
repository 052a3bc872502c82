#pragma once

#include "Game/GameLogic/Mark.h"
#include "Game/Types.h"

namespace Engine {
class cTextLine;
class iArch;
class iXML;
}  // namespace Engine
class cBridge;
class cBridgeFlag;
class cEnemyMan;
class cProgressFloatExt;

/// The clock of a way out, and the flag that flies there.
///
/// It runs from the level's beginning until the bridge is passed. By it the flag goes from gold to silver to blue: a
/// man of the enemy's carries the worse one in from the edge of the map and takes the better one away; while he is on
/// his way the flag is not looked after.
class cBridgeClock {
public:
    /// What is seen of it become children of the bridge, which outlives it; the man stands beside the bridge.
    explicit cBridgeClock(cBridge& bridge);
    ~cBridgeClock();
    cBridgeClock(const cBridgeClock&) = delete;
    cBridgeClock& operator=(const cBridgeClock&) = delete;

    /// The key "flag_entry" (where a flag is carried in, units from the far end of the bridge) and the child tags
    /// "Flag" (cBridgeFlag), "TimeProgress" (cProgressFloatExt), "Clock", "DbgClock" (cTextLine each).
    void loadXML(const Engine::iXML* xml);
    /// "GoldTime", "SilverTime" (seconds).
    void loadXmlState(const Engine::iXML* xml);
    void serialize(Engine::iArch& arch);  ///< both times, and how long it has run

    /// Shows the flag that the time is good for, and has the man wait where one is carried in.
    /// @param far_end  of the bridge, on the map
    void begin(const Vector2& far_end);
    void process(Float step);  ///< one frame of a bridge that is not passed yet; seconds
    void stop();               ///< nothing counts down any more; the flag stays

    Int getMark() const { return m_mark; }  ///< the flag held now, an eMark
    Float getElapsed() const { return m_elapsed; }

    void onSilverFlagBrought();
    void onBlueFlagBrought();

private:
    void setupFlags();
    void updateFlags();
    Float getSilverEnd() const { return m_gold_time + m_silver_time; }
    void showFlag(Int mark);
    void showCountdown(Float range, Float left);
    void showClock(Bool show);
    void sendFlagMan(Int kind, Bool comes, Bool vanish);

    cBridge& m_bridge;
    Float m_gold_time = 0.0f;    ///< seconds in which the gold flag holds
    Float m_silver_time = 0.0f;  ///< further seconds in which the silver flag holds
    Float m_elapsed = 0.0f;      ///< seconds since the level began
    Int m_mark = markNone;
    Bool m_flag_in_transit = false;
    Vector2 m_entry_offset{0.0f, 0.0f};
    Vector2 m_entry{0.0f, 0.0f};  ///< on the map
    Vector2 m_place{0.0f, 0.0f};  ///< the flag's, on the map

    // Children of the bridge
    cBridgeFlag* m_flag;
    cProgressFloatExt* m_time_progress;
    Engine::cTextLine* m_clock;
    Engine::cTextLine* m_debug_clock;
    cEnemyMan* m_flag_man;  ///< beside the bridge; it ends with this
};
