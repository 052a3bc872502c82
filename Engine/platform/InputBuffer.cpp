#include "Engine/platform/InputBuffer.h"

#include <algorithm>
#include <utility>

namespace Engine::Platform {

void cEventBuffer::setAcquired(Bool acquired) {
    if (m_acquired == acquired)
        return;
    m_acquired = acquired;
    m_events.clear();
    m_overflow = false;
}

void cEventBuffer::push(UInt offset, Bool pressed) {
    if (!m_acquired)
        return;
    if (m_events.size() >= capacity) {
        m_overflow = true;
        return;
    }
    m_events.push_back({offset, pressed ? sDeviceEvent::pressed : 0});
}

eDeviceResult cEventBuffer::take(sDeviceEvent* events, UInt& count) {
    if (!m_acquired) {
        count = 0;
        return eDeviceResult::notAcquired;
    }
    count = std::min(count, static_cast<UInt>(m_events.size()));
    std::copy_n(m_events.begin(), count, events);
    m_events.erase(m_events.begin(), m_events.begin() + static_cast<std::ptrdiff_t>(count));
    return std::exchange(m_overflow, false) ? eDeviceResult::bufferOverflow : eDeviceResult::ok;
}

void sInputHub::acquire(cEventBuffer& buffer) const {
    if (foreground)
        buffer.setAcquired(true);
}

void sInputHub::pushKey(UInt code, Bool pressed) {
    if (code == 0 || code >= std::size(keys))
        return;
    keys[code] = pressed ? 0x80 : 0;
    keyboard.push(code, pressed);
}

void sInputHub::pushMouseButton(UInt button, Bool pressed) {
    if (button < 8)
        mouse.push(mouse_button_offset + button, pressed);
}

void sInputHub::moveMouse(Long x, Long y, Long wheel) {
    mouse_movement.x += x;
    mouse_movement.y += y;
    mouse_movement.z += wheel;
}

void cBufferedKeyboard::acquire() {
    if (m_hub.keyboard.isAcquired())
        return;
    std::fill(std::begin(m_hub.keys), std::end(m_hub.keys), std::uint8_t{0});
    m_hub.acquire(m_hub.keyboard);
}

eDeviceResult cBufferedKeyboard::getState(std::uint8_t (&keys)[256]) {
    if (!m_hub.keyboard.isAcquired())
        return eDeviceResult::notAcquired;
    std::copy(std::begin(m_hub.keys), std::end(m_hub.keys), std::begin(keys));
    return eDeviceResult::ok;
}

void cBufferedMouse::acquire() {
    if (m_hub.mouse.isAcquired())
        return;
    m_hub.mouse_movement = {};
    m_hub.acquire(m_hub.mouse);
}

eDeviceResult cBufferedMouse::getState(sMouseState& state) {
    if (!m_hub.mouse.isAcquired())
        return eDeviceResult::notAcquired;
    state = std::exchange(m_hub.mouse_movement, {});
    return eDeviceResult::ok;
}

eDeviceResult cBufferedJoystick::getState(sJoystickState& state) {
    if (!m_hub.joystick.isAcquired())
        return eDeviceResult::notAcquired;
    state = m_hub.joystick_state;
    return eDeviceResult::ok;
}

}  // namespace Engine::Platform
