#pragma once

#include <memory>
#include <string>

#include "Engine/core/Engine.h"
#include "Game/Ui/GameStrings.h"
#include "Tools/simulate/Machine.h"
#include "Tools/simulate/Settings.h"

namespace Simulate {

/// The very game, from the engine to the level, on a machine that is moved frame by frame.
class cStage {
public:
    /// Starts the game and enters the level, up to the first frame in which it takes input.
    /// Throws what starting and loading throw, and a String for a level that never takes input.
    cStage(const sSettings& settings, const std::filesystem::path& home);
    ~cStage();
    cStage(const cStage&) = delete;
    cStage& operator=(const cStage&) = delete;

    iMachine& getMachine() { return *m_machine; }
    // For a machine that wraps the one of the beginning.
    std::unique_ptr<iMachine> takeMachine() { return std::move(m_machine); }
    void setMachine(std::unique_ptr<iMachine> machine) { m_machine = std::move(machine); }
    void frame();
    void setDrawing(bool drawing);  ///< of the frames to come, on a machine that can; they are not drawn before
    /// Frames until the level takes input; they count for nobody.
    void waitForLevel();
    void waitForRoll();  ///< out of the level, and into the next one if there is one
    /// Enters that level as it was left, out of the one that is played or from the map of levels.
    void enterLevel(int level);
    void reenter();              ///< leaves the level for the map of levels and enters it again, as it was left
    bool isLevelPlayed() const;  ///< it has not been left, though a menu may lie over it
    bool isLevelLeft() const;    ///< it rolls out, for good and not for a replay; all of it is still there
    bool takesInput() const;

private:
    void drainMessages();
    void writeProperties(const sSettings& settings);

    unsigned m_step;
    std::string m_data_name;  ///< of the data directory
    std::string m_home;       ///< the writable directory
    std::unique_ptr<iMachine> m_machine;
    std::unique_ptr<Engine::cEngine> m_engine;
    std::unique_ptr<cGameStrings> m_strings;
};

}  // namespace Simulate
