#include "Tools/simulate/Stage.h"

#include <algorithm>

#include "Engine/Ui/Profile.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/Logic.h"
#include "Engine/core/Random.h"
#include "Game/GameUI/Strategic/StrategicMap.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/Game.h"

using namespace Engine;

namespace Simulate {

namespace {

constexpr int patience = 100000;  ///< frames until something has to have happened

}  // namespace

cStage::cStage(const sSettings& settings, const std::filesystem::path& home) : m_step(settings.step) {
    const std::filesystem::path data = std::filesystem::absolute(settings.data).lexically_normal();
    const std::filesystem::path directory = data.has_filename() ? data : data.parent_path();
    if (!std::filesystem::is_directory(directory))
        throw String(settings.data) + ": there is no such directory";
    m_machine = settings.draw ? makeDrawingMachine(directory, home) : makeHeadlessMachine(directory, home);
    sContext context;
    context.instance = &m_machine->getPlatform();
    m_data_name = directory.filename().string();
    context.data_dir = m_data_name.c_str();
    m_home = home.string();
    context.writable_dir = m_home.c_str();
    context.no_sound = true;
    context.single_instance = false;
    m_engine = std::make_unique<cEngine>(context);
    cLogic::getInstance()->setDrawing(false);
    drainMessages();
    cProfile::setInitHook(cGame::onInitProfile);
    m_strings = std::make_unique<cGameStrings>();
    cProfile::open(toWide(settings.profile));
    cProfile::getInts()["started"] = std::max(cProfile::getInts()["started"], 1);  // nobody is there to be welcomed
    writeProperties(settings);
    new cGame(nullptr, false);
    for (int i = 0; i < patience && !cStrategicMap::getInstance(); ++i)
        frame();
    if (!cStrategicMap::getInstance())
        throw String("the map of levels does not come");
    const Int own_level = std::max(cProfile::getInts()["CurrentLevel"], 0);
    Engine::random().setSeed(settings.seed);
    cStrategicMap::getInstance()->startLevel(settings.level.value_or(own_level), false);
    waitForLevel();
}

cStage::~cStage() {
    cProfile::close();
}

void cStage::writeProperties(const sSettings& settings) {
    for (const auto& [key, value] : settings.properties) {
        const bool is_flag = value == "true" || value == "false" || key.starts_with("LevelOpen");
        const std::string text = value == "true" ? "1" : value == "false" ? "0" : value;
        cProfile::setProperty(is_flag ? "Bool" : "Int", String(key), toWide(text));
    }
}

void cStage::drainMessages() {
    Platform::sMessage message;
    while (m_machine->getPlatform().takeMessage(message)) {
        if (message.type != Platform::eMessage::quit)
            m_engine->dispatch(message);
    }
}

void cStage::frame() {
    m_machine->advance(m_step);
    drainMessages();
    cLogic::getInstance()->process();
}

void cStage::setDrawing(bool drawing) {
    cLogic::getInstance()->setDrawing(drawing);
}

bool cStage::isLevelPlayed() const {
    const cTacticMap* map = cTacticMap::getInstance();
    return map && map->hasLevel() && !map->isRolling();
}

bool cStage::isLevelLeft() const {
    const cTacticMap* map = cTacticMap::getInstance();
    return map && map->hasLevel() && map->isRollingOut() && !map->isToBeReplayed();
}

bool cStage::takesInput() const {
    return isLevelPlayed() && !cTacticMap::getInstance()->isLocked();
}

void cStage::waitForLevel() {
    for (int i = 0; i < patience && !takesInput(); ++i)
        frame();
    if (!takesInput())
        throw String("the level does not come to take input");
}

void cStage::waitForRoll() {
    if (!cTacticMap::getInstance()->isRolling())
        return;
    for (int i = 0; i < patience && cTacticMap::getInstance()->isRolling(); ++i)
        frame();
    frame();
    if (cTacticMap::getInstance()->hasLevel())
        waitForLevel();
}

void cStage::enterLevel(int level) {
    cTacticMap* map = cTacticMap::getInstance();
    if (map && map->hasLevel()) {
        map->showStrategicMap();
        for (int i = 0; i < patience && map->hasLevel(); ++i)
            frame();
        frame();
    }
    cStrategicMap::getInstance()->startLevel(level, false);
    waitForLevel();
}

void cStage::reenter() {
    enterLevel(cProfile::getInts()["CurrentLevel"]);
}

}  // namespace Simulate
