#pragma once

#include "Engine/core/Types.h"

namespace Engine::Platform {

/// One buffered change of a device.
///
/// Keyboard: offset is the scan code (1 to 237). Mouse: 12 to 19 are the buttons. Joystick: 48 to 79 are the buttons.
struct sDeviceEvent {
    static constexpr UInt pressed = 0x80;

    UInt offset = 0;
    UInt data = 0;  ///< bit 0x80 set on press
};

enum class eDeviceResult {
    ok,
    bufferOverflow,  ///< like ok, but earlier events were lost
    notAcquired,     ///< the device has to be acquired first
    inputLost,       ///< the device went away
    failed,          ///< any other failure: the device is skipped for the frame
};

struct sMouseState {
    Long x = 0;  ///< relative movement since the last reading, pixels
    Long y = 0;
    Long z = 0;  ///< wheel, 120 a notch
};

struct sJoystickState {
    Long axes[8] = {};                ///< X, Y, Z, Rx, Ry, Rz, slider 0, slider 1; -32768 to 32768
    Long hats[4] = {-1, -1, -1, -1};  ///< hundredths of a degree clockwise from up, -1 when centred
};

/// What the engine asks of a keyboard, mouse or joystick: buffered events and the state of this moment.
/// A device gives nothing until it is acquired, which the window's activation does.
class iInputDevice {
public:
    virtual ~iInputDevice() = default;

    virtual void acquire() = 0;
    virtual void unacquire() = 0;
    virtual void setExclusive(Bool exclusive) = 0;
    /// Moves at most count events, oldest first, to events; count becomes their number.
    virtual eDeviceResult getEvents(sDeviceEvent* events, UInt& count) = 0;
};

class iKeyboard : public iInputDevice {
public:
    /// One byte per scan code, top bit set while the key is down.
    virtual eDeviceResult getState(std::uint8_t (&keys)[256]) = 0;
};

class iMouse : public iInputDevice {
public:
    virtual eDeviceResult getState(sMouseState& state) = 0;
};

class iJoystick : public iInputDevice {
public:
    virtual eDeviceResult getState(sJoystickState& state) = 0;
};

}  // namespace Engine::Platform
