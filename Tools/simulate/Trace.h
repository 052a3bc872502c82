#pragma once

#include <fstream>
#include <memory>
#include <string>

#include "Tools/simulate/Machine.h"

namespace Simulate {

/// A machine whose hand is watched: what it does is written down as a script of move, press, release and key alone,
/// which plays the same and can be played by any other hand.
class cTrace : public iMachine {
public:
    /// Time is 0 now. Throws "<path>: can't be written".
    cTrace(std::unique_ptr<iMachine> machine, const std::string& path);

    Engine::Platform::iPlatform& getPlatform() override { return m_machine->getPlatform(); }
    void advance(unsigned milliseconds) override;
    void move(const Engine::Vector2& place) override;
    void pushButton(unsigned button, bool pressed) override;
    void pushKey(unsigned scan_code, bool pressed) override;
    void shoot(const std::string& path) override { m_machine->shoot(path); }

private:
    void write(const std::string& action);

    std::unique_ptr<iMachine> m_machine;
    std::ofstream m_file;
    unsigned m_time = 0;      ///< milliseconds
    std::string m_last_move;  ///< a pointer that rests is not written
};

}  // namespace Simulate
