#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Tools/simulate/Script.h"
#include "Tools/simulate/Stage.h"

namespace Engine {
class cControl;
}
class cBuilding;
class cMarketTask;

namespace Simulate {

/// Plays the lines of a script with the pointer and the keys, a movement a frame.
class cPlayer {
public:
    /// @param stage   outlives the player
    /// @param script  what lines are told with in failures
    cPlayer(cStage& stage, std::vector<sAction> actions, std::string script);

    void setScrollsFar(bool far) { m_scrolls_far = far; }  ///< always to an end of the map
    /// What is due at that time of the level, before its frame. Throws a String that names the script's line for an
    /// action that can't be understood, or names what does not exist.
    void act(double time);

    const nlohmann::ordered_json& getAnswers() const { return m_answers; }
    const std::vector<std::string>& getLog() const { return m_log; }  ///< what was refused

private:
    using WORDS = std::vector<std::string>;

    void perform(const sAction& action);
    void shoot(const std::string& path);
    static const Engine::cControl* findButton(const std::string& name, const cBuilding* building);
    static const Engine::cControl* findCaravan(const cBuilding* building);
    void click(const WORDS& words);
    void drag(const WORDS& words);
    void buy(const WORDS& words);
    void trade(const WORDS& words);
    void chooseTrade(const cMarketTask& task);
    void pressEscape();
    void query(const WORDS& words);
    void clickMenu(const std::string& file, const std::string& tag);
    void openMenu(const std::string& tag);
    void confirm();
    void goBack();
    void pointAt(const std::function<Engine::Vector2()>& find);
    void pressAndRelease();
    bool bringIntoView(const Engine::Vector2& place);
    void refuse(const std::string& what) { m_log.push_back(what); }

    cStage& m_stage;
    std::vector<sAction> m_actions;
    std::size_t m_next = 0;
    std::string m_script;
    std::deque<std::function<bool()>> m_movements;  ///< one a frame each, until it gives true
    bool m_scrolls_far = false;
    bool m_is_scrolling = false;
    nlohmann::ordered_json m_answers = nlohmann::ordered_json::array();
    std::vector<std::string> m_log;
};

}  // namespace Simulate
