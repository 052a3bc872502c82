#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "Engine/platform/Platform.h"

namespace Simulate {

/// The machine that the game runs on, with a clock and a hand that the simulation moves.
class iMachine {
public:
    virtual ~iMachine() = default;
    virtual Engine::Platform::iPlatform& getPlatform() = 0;
    virtual void advance(unsigned milliseconds) = 0;
    // Logical coordinates; button 0 is the left one, 1 the right one.
    virtual void move(const Engine::Vector2& place) = 0;
    virtual void pushButton(unsigned button, bool pressed) = 0;
    virtual void pushKey(unsigned scan_code, bool pressed) = 0;
    /// Leaves what was drawn last in a file. Throws a String on a machine that doesn't draw.
    virtual void shoot(const std::string& path) = 0;
};

/// @param data  the data directory; home the writable one
std::unique_ptr<iMachine> makeHeadlessMachine(const std::filesystem::path& data, const std::filesystem::path& home);
std::unique_ptr<iMachine> makeDrawingMachine(const std::filesystem::path& data, const std::filesystem::path& home);

}  // namespace Simulate
