#pragma once

#include <string>

#include "Engine/Ui/Profile.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/buildings/Building.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameLogic/men/tasks/ManWalkTask.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Tests/Support/HeadlessProgram.h"

/// A level of a few points on the headless platform, with definition files that say no more than they must.
///
/// A building's ring is 20 by 12 units, a way point's 10, men walk 50 units a second on roads and half as fast off
/// them.
class cSmallLevel {
public:
    cSmallLevel() {
        Engine::Properties::clear();  // of the level before
        for (Int type = 0; type <= objectDamagedRoad; ++type) {
            if (const char* file = cLevelObject::getDefinitionFile(type))
                m_program.write(file, makeDefinition(type));
        }
        for (const char* effect :
             {"NewProductEffect", "ExplosionEffect", "KillEnemyEffect", "BuildRoadEffect", "MakeUpgradeEffect",
              "DestroyRoadEffect", "BuildFenceEffect", "FlyingNumber", "UpAvailEffect"})
            m_program.write(Engine::String("Effects/") + effect + ".xml", "<e/>");
        m_program.write("GameUI/ControlPanel.xml", "<Panel/>");
        m_program.write("GameLogic/Tip.xml", "<Tip/>");
        m_program.write(
            "GameUI/TacticMap.xml",
            "<Map global_pitch=\"50\" passby_distance=\"12\" push_off_distance=\"8\" BirdsPossibility=\"0\" "
            "CloudsPossibility=\"0\" new_level_effect_time=\"0.1\" new_level_startup_delta=\"0.5\"/>");
    }
    ~cSmallLevel() { m_program.stop(); }

    Engine::cHeadlessProgram& getProgram() { return m_program; }

    /// @param levels  the children of the level file's root
    void prepare(const std::string& levels) {
        m_program.write("LevelMap.lvl", "<LevelMap>" + levels + "</LevelMap>");
        m_program.start();
        m_map = new cTacticMap(nullptr);
    }
    /// Plays level 0 from its file, rolled in.
    void start(const std::string& level) {
        prepare(level);
        Engine::cProfile::getInts()["CurrentLevel"] = 0;
        m_map->initialize(false);
        for (Int i = 0; i < 100 && m_map->isRolling(); ++i)
            m_program.frame();
    }
    void frames(UInt count) { m_program.frames(count); }
    cTacticMap& getMap() { return *m_map; }
    cBuilding* getBuilding(Int point) { return dynamic_cast<cBuilding*>(m_map->getPoint(point).building); }

private:
    static std::string makeDefinition(Int type) {
        std::string text =
            "<Object size=\"40,30\" Enable=\"1\" ellipse_a=\"20\" ellipse_b=\"12\" "
            "arrangement_delta=\"0.6\" speed=\"400\"";
        if (type == objectFriendMan || type == objectEnemyMan)
            text +=
                " speed_by_road=\"50\" cross_country_speed=\"0.5\" speed_with_cargo=\"0.8\" default_capacity=\"1\" "
                "angle=\"-90\"";
        return text + "><TileTemplate size=\"48,26\" ProgressMaxValue=\"48\"/></Object>";
    }

    Engine::cHeadlessProgram m_program;
    cTacticMap* m_map = nullptr;  ///< owned by the view tree
};

/// A start point on point 0 with so many men, for a level's "Buildings".
inline std::string startPoint(const std::string& position, Int men) {
    return "<B Type=\"8\" Position=\"" + position + "\" Capacity=\"50\" PrevLevel=\"-1\" MenAmount=\"" +
           std::to_string(men) + "\" Money=\"20\" Wood=\"3\"><Points><P index=\"0\"/></Points></B>";
}
