#pragma once

#include <vector>

#include "Engine/platform/InputDevice.h"

namespace Engine::Platform {

/// Offsets of the first button in the events of a mouse (8 buttons) and of a joystick (32 buttons).
constexpr UInt mouse_button_offset = 12;
constexpr UInt joystick_button_offset = 48;

/// The buffered events of one device, filled by a platform and drained by the engine once a frame.
/// Nothing is kept while the device is not acquired; what comes when 1024 events are waiting is lost.
class cEventBuffer {
public:
    void setAcquired(Bool acquired);
    Bool isAcquired() const { return m_acquired; }
    void push(UInt offset, Bool pressed);
    eDeviceResult take(sDeviceEvent* events, UInt& count);

private:
    static constexpr std::size_t capacity = 1024;

    std::vector<sDeviceEvent> m_events;
    Bool m_acquired = false;
    Bool m_overflow = false;
};

/// What a platform writes and its devices read. Owned by the platform, outlives the devices.
struct sInputHub {
    cEventBuffer keyboard;
    cEventBuffer mouse;
    cEventBuffer joystick;
    Bool foreground = true;  ///< false while another program has the focus: devices can't be acquired then
    std::uint8_t keys[256] = {};
    sMouseState mouse_movement;  ///< since the engine's last reading
    sJoystickState joystick_state;

    void acquire(cEventBuffer& buffer) const;
    /// @param code  scan code, 1 to 237
    void pushKey(UInt code, Bool pressed);
    /// @param button  0 left, 1 right, 2 middle, to 7
    void pushMouseButton(UInt button, Bool pressed);
    void moveMouse(Long x, Long y, Long wheel);
};

class cBufferedKeyboard : public iKeyboard {
public:
    explicit cBufferedKeyboard(sInputHub& hub) : m_hub(hub) {}
    void acquire() override;
    void unacquire() override { m_hub.keyboard.setAcquired(false); }
    void setExclusive(Bool) override {}
    eDeviceResult getEvents(sDeviceEvent* events, UInt& count) override { return m_hub.keyboard.take(events, count); }
    eDeviceResult getState(std::uint8_t (&keys)[256]) override;

private:
    sInputHub& m_hub;
};

class cBufferedMouse : public iMouse {
public:
    explicit cBufferedMouse(sInputHub& hub) : m_hub(hub) {}
    void acquire() override;
    void unacquire() override { m_hub.mouse.setAcquired(false); }
    void setExclusive(Bool) override {}
    eDeviceResult getEvents(sDeviceEvent* events, UInt& count) override { return m_hub.mouse.take(events, count); }
    eDeviceResult getState(sMouseState& state) override;

private:
    sInputHub& m_hub;
};

class cBufferedJoystick : public iJoystick {
public:
    explicit cBufferedJoystick(sInputHub& hub) : m_hub(hub) {}
    void acquire() override { m_hub.acquire(m_hub.joystick); }
    void unacquire() override { m_hub.joystick.setAcquired(false); }
    void setExclusive(Bool) override {}
    eDeviceResult getEvents(sDeviceEvent* events, UInt& count) override { return m_hub.joystick.take(events, count); }
    eDeviceResult getState(sJoystickState& state) override;

protected:
    sInputHub& m_hub;
};

}  // namespace Engine::Platform
