#include "Tools/simulate/Trace.h"

#include <algorithm>
#include <cmath>
#include <iomanip>

#include "Engine/graphics/Graphics.h"

namespace Simulate {

cTrace::cTrace(std::unique_ptr<iMachine> machine, const std::string& path)
    : m_machine(std::move(machine)), m_file(path) {
    if (!m_file)
        throw Engine::String(path) + ": can't be written";
}

void cTrace::advance(unsigned milliseconds) {
    m_time += milliseconds;
    m_machine->advance(milliseconds);
}

/// Goes to whole places of the screen, as a pointer does.
void cTrace::move(const Engine::Vector2& place) {
    const auto within = [](float x, Engine::UInt size) {
        return std::clamp(std::round(x), 0.0f, static_cast<float>(size) - 1.0f);
    };
    const auto* screen = Engine::cGraphics::getInstance();
    const Engine::Vector2 whole(within(place.x, screen->getWidth()), within(place.y, screen->getHeight()));
    const std::string action =
        "move " + std::to_string(std::lround(whole.x)) + " " + std::to_string(std::lround(whole.y));
    if (action != m_last_move)
        write(action);
    m_last_move = action;
    m_machine->move(whole);
}

void cTrace::pushButton(unsigned button, bool pressed) {
    write(std::string(pressed ? "press " : "release ") + (button == 0 ? "left" : "right"));
    m_machine->pushButton(button, pressed);
}

void cTrace::pushKey(unsigned scan_code, bool pressed) {
    write("key " + std::to_string(scan_code) + (pressed ? " press" : " release"));
    m_machine->pushKey(scan_code, pressed);
}

void cTrace::write(const std::string& action) {
    m_file << std::fixed << std::setprecision(3) << m_time / 1000.0 << ' ' << action << '\n';
}

}  // namespace Simulate
