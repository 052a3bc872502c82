#include "Engine/platform/sdl/SdlInput.h"

#include <algorithm>

#include "Engine/platform/sdl/KeyCodes.h"

namespace Engine::Platform {

namespace {

constexpr Long wheel_notch = 120;

/// Left, right and middle come first; SDL counts the middle button before the right one.
UInt mouseButton(UInt sdl_button) {
    switch (sdl_button) {
        case SDL_BUTTON_LEFT:
            return 0;
        case SDL_BUTTON_RIGHT:
            return 1;
        case SDL_BUTTON_MIDDLE:
            return 2;
        default:
            return sdl_button - 1;
    }
}

/// Hundredths of a degree clockwise from up.
Long hatAngle(Uint8 hat) {
    switch (hat) {
        case SDL_HAT_UP:
            return 0;
        case SDL_HAT_RIGHTUP:
            return 4500;
        case SDL_HAT_RIGHT:
            return 9000;
        case SDL_HAT_RIGHTDOWN:
            return 13500;
        case SDL_HAT_DOWN:
            return 18000;
        case SDL_HAT_LEFTDOWN:
            return 22500;
        case SDL_HAT_LEFT:
            return 27000;
        case SDL_HAT_LEFTUP:
            return 31500;
        default:
            return -1;
    }
}

}  // namespace

void cSdlMouse::setExclusive(Bool exclusive) {
    SDL_SetRelativeMouseMode(exclusive ? SDL_TRUE : SDL_FALSE);
}

cSdlJoystick::~cSdlJoystick() {
    SDL_JoystickClose(m_stick);
}

eDeviceResult cSdlJoystick::getState(sJoystickState& state) {
    if (!m_hub.joystick.isAcquired())
        return eDeviceResult::notAcquired;
    if (!SDL_JoystickGetAttached(m_stick))
        return eDeviceResult::failed;  // unplugged: left out
    const int axes = std::min(SDL_JoystickNumAxes(m_stick), 8);
    for (int i = 0; i < axes; ++i)
        state.axes[i] = SDL_JoystickGetAxis(m_stick, i);
    const int hats = std::min(SDL_JoystickNumHats(m_stick), 4);
    for (int i = 0; i < hats; ++i)
        state.hats[i] = hatAngle(SDL_JoystickGetHat(m_stick, i));
    return eDeviceResult::ok;
}

void trackInput(sInputHub& hub, const SDL_Event& event) {
    switch (event.type) {
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            if (!event.key.repeat)
                hub.pushKey(toScanCode(event.key.keysym.scancode), event.type == SDL_KEYDOWN);
            break;
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            hub.pushMouseButton(mouseButton(event.button.button), event.type == SDL_MOUSEBUTTONDOWN);
            break;
        case SDL_MOUSEMOTION:
            hub.moveMouse(event.motion.xrel, event.motion.yrel, 0);
            break;
        case SDL_MOUSEWHEEL:
            hub.moveMouse(0, 0, event.wheel.y * wheel_notch);
            break;
        case SDL_JOYBUTTONDOWN:
        case SDL_JOYBUTTONUP:
            if (event.jbutton.button < 32)
                hub.joystick.push(joystick_button_offset + event.jbutton.button, event.type == SDL_JOYBUTTONDOWN);
            break;
        case SDL_WINDOWEVENT:
            // A pointer that leaves the window moves too: what it lay on has to hear of it.
            if (event.window.event == SDL_WINDOWEVENT_LEAVE)
                hub.moveMouse(1, 0, 0);
            break;
        default:
            break;
    }
}

}  // namespace Engine::Platform
