#pragma once

#include <SDL.h>

#include "Engine/platform/InputBuffer.h"

namespace Engine::Platform {

class cSdlMouse : public cBufferedMouse {
public:
    using cBufferedMouse::cBufferedMouse;
    void setExclusive(Bool exclusive) override;
};

/// The first joystick that is there when the engine starts.
class cSdlJoystick : public cBufferedJoystick {
public:
    /// @param stick  an open one; closed by this object
    cSdlJoystick(sInputHub& hub, SDL_Joystick* stick) : cBufferedJoystick(hub), m_stick(stick) {}
    ~cSdlJoystick() override;
    eDeviceResult getState(sJoystickState& state) override;

private:
    SDL_Joystick* m_stick;
};

/// Lets the hub follow one event of the window system; events of other kinds are left alone.
void trackInput(sInputHub& hub, const SDL_Event& event);

}  // namespace Engine::Platform
