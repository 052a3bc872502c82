#include "Engine/input/Input.h"

#include <algorithm>
#include <initializer_list>

#include "Engine/core/CallStack.h"
#include "Engine/core/DeviceFailure.h"
#include "Engine/input/KeyNames.h"
#include "Engine/platform/InputBuffer.h"

namespace Engine {

using Platform::eDeviceResult;
using Platform::joystick_button_offset;
using Platform::mouse_button_offset;
using Platform::sDeviceEvent;

namespace {

constexpr char keyboard_failed[] =
    "m_keyboard->GetDeviceData(sizeof(DIDEVICEOBJECTDATA), m_keyboard_buffer, &event_count, 0)";
constexpr char mouse_failed[] = "m_mouse->GetDeviceData(sizeof(DIDEVICEOBJECTDATA), m_mouse_buffer, &event_count, 0)";
constexpr char joystick_failed[] = "m_joystick->GetDeviceData(m_joystick_buffer, &event_count)";
constexpr char joystick_state_failed[] = "m_joystick->GetDeviceData(joystick_state, &joystick_state)";

/// Changes how a device is shared with other programs, if that is new.
void setExclusive(Platform::iInputDevice* device, Bool& flag, Bool exclusive) {
    if (flag == exclusive)
        return;
    flag = exclusive;
    if (!device)
        return;
    device->unacquire();
    device->setExclusive(exclusive);
    device->acquire();
}

template <class F>
void copyTo(const cHandlerSet<F>& set, std::vector<typename cHandlerSet<F>::sEntry>& list) {
    list.clear();
    set.forEach([&](const auto& entry) { list.push_back(entry); });
}

/// The code of a mouse button's event; the first two buttons trade places when they are swapped.
eControl mouseControl(const sDeviceEvent& event, Bool swapped) {
    UInt button = event.offset - mouse_button_offset;
    if (swapped && button < 2)
        button = 1 - button;
    return ((event.data & sDeviceEvent::pressed) ? Control::mouse_press : Control::mouse_release) + button;
}

}  // namespace

cInput::cInput(Platform::iPlatform& platform)
    : m_platform(platform), m_key_names(makeKeyNames()), m_cursor(platform.getCursor()), m_saved_cursor(m_cursor) {
    ENGINE_MARK;
    m_keyboard = platform.createKeyboard();
    m_mouse = platform.createMouse();
    m_joystick = platform.createJoystick();
}

cInput::~cInput() {
    unacquireDevices();
}

// Bindings ---------------------------------------------------------------------------------------------------------

void cInput::bind(eControl control, fHandler handler, cView* view) {
    if (control < Control::count)
        m_controls[control].add(handler, view);
    noteView(view);
}

void cInput::unbind(eControl control, fHandler handler, cView* view) {
    if (control < Control::count)
        m_controls[control].remove(handler, view);
}

void cInput::unbindControl(eControl control) {
    if (control < Control::count)
        m_controls[control].clear();
}

void cInput::unbindAll() {
    for (auto& set : m_controls)
        set.clear();
}

void cInput::bindKeyboard(fCharHandler handler, cView* view) {
    m_char_handlers.add(handler, view);
    noteView(view);
}

void cInput::unbindKeyboard() {
    m_char_handlers.clear();
}

void cInput::unbindKeyboard(fCharHandler handler, cView* view) {
    m_char_handlers.remove(handler, view);
}

void cInput::bindMouse(fMouseHandler handler, cView* view) {
    m_mouse_handlers.add(handler, view);
    noteView(view);
}

void cInput::unbindMouse(fMouseHandler handler, cView* view) {
    m_mouse_handlers.remove(handler, view);
}

void cInput::bindKey(fKeyHandler handler, cView* view) {
    m_key_handlers.add(handler, view);
    noteView(view);
}

void cInput::unbindKey(fKeyHandler handler, cView* view) {
    m_key_handlers.remove(handler, view);
}

void cInput::unbindKeys() {
    m_key_handlers.clear();
}

void cInput::bindJoystick(fJoystickHandler handler, cView* view) {
    m_joystick_handlers.add(handler, view);
    noteView(view);
}

void cInput::unbindJoystick(fJoystickHandler handler, cView* view) {
    m_joystick_handlers.remove(handler, view);
}

void cInput::noteView(const cView* view) {
    if (view)
        m_bound_views.insert(view->getCreationNumber());
}

void cInput::unbindView(const cView& view) {
    const ULongLong number = view.getCreationNumber();
    if (m_bound_views.erase(number) == 0)
        return;
    for (auto& set : m_controls) {
        if (!set.empty())
            set.removeView(number);
    }
    m_mouse_handlers.removeView(number);
    m_joystick_handlers.removeView(number);
    m_char_handlers.removeView(number);
    m_key_handlers.removeView(number);
}

void cInput::postChar(char16_t character) {
    if (m_char_count < buffer_size)
        m_chars[m_char_count++] = character;
}

void cInput::postKey(UInt virtual_key) {
    if (m_key_count < buffer_size)
        m_keys[m_key_count++] = virtual_key;
}

void cInput::postClick() {
    m_click_posted = true;
}

void cInput::postWheelStop() {
    m_wheel_stop_posted = true;
}

// One frame --------------------------------------------------------------------------------------------------------

void cInput::process() {
    ENGINE_MARK;
    runCharacters();
    runKeys();
    m_calls.clear();
    gatherKeyboard();
    gatherMouse();
    gatherJoystick();
    if (m_click_posted) {
        m_click_posted = false;
        gather(Control::left_press);
        gather(Control::left_release);
    }
    runCallList();
    runWheelStop();
    runMouseState();
    runJoystickState();
    m_keyboard_state_valid = false;
}

void cInput::runCharacters() {
    for (UInt i = 0; i < m_char_count; ++i) {
        copyTo(m_char_handlers, m_char_calls);
        for (const auto& entry : m_char_calls) {
            if (!entry.isGone())
                entry.handler(m_chars[i], entry.view);
        }
    }
    m_char_count = 0;
}

void cInput::runKeys() {
    for (UInt i = 0; i < m_key_count; ++i) {
        copyTo(m_key_handlers, m_key_calls);
        for (const auto& entry : m_key_calls) {
            if (!entry.isGone())
                entry.handler(m_keys[i], entry.view);
        }
    }
    m_key_count = 0;
}

Bool cInput::checkResult(Platform::iInputDevice& device, eDeviceResult result, const char* text) {
    if (result == eDeviceResult::inputLost)
        directXFailed("DIERR_INPUTLOST", text);
    if (result == eDeviceResult::notAcquired)
        device.acquire();
    return result == eDeviceResult::ok || result == eDeviceResult::bufferOverflow;
}

UInt cInput::readEvents(Platform::iInputDevice& device, EVENT_BUFFER& buffer, const char* text) {
    UInt count = buffer_size;
    return checkResult(device, device.getEvents(buffer.data(), count), text) ? count : 0;
}

void cInput::gather(eControl control) {
    m_controls[control].forEach([&](const auto& entry) { m_calls.push_back(entry); });
}

void cInput::gatherAny(eControl control) {
    gather(control);
    gather(Control::any);
}

void cInput::gatherKeyboard() {
    if (!m_keyboard)
        return;
    const UInt count = readEvents(*m_keyboard, m_keyboard_buffer, keyboard_failed);
    for (UInt i = 0; i < count; ++i) {
        const sDeviceEvent& event = m_keyboard_buffer[i];
        if (event.offset < Control::key_press)
            gatherAny(event.offset + ((event.data & sDeviceEvent::pressed) ? Control::key_press : 0));
    }
}

void cInput::gatherMouse() {
    if (!m_mouse)
        return;
    const UInt count = readEvents(*m_mouse, m_mouse_buffer, mouse_failed);
    const Bool swapped = count > 0 && m_platform.areMouseButtonsSwapped();
    for (UInt i = 0; i < count; ++i) {
        const sDeviceEvent& event = m_mouse_buffer[i];
        if (event.offset >= mouse_button_offset && event.offset < mouse_button_offset + 8)
            gatherAny(mouseControl(event, swapped));
    }
}

void cInput::gatherJoystick() {
    if (!m_joystick)
        return;
    const UInt count = readEvents(*m_joystick, m_joystick_buffer, joystick_failed);
    for (UInt i = 0; i < count; ++i) {
        const sDeviceEvent& event = m_joystick_buffer[i];
        if (event.offset < joystick_button_offset || event.offset >= joystick_button_offset + 32)
            continue;
        const UInt button = event.offset - joystick_button_offset;
        gatherAny(((event.data & sDeviceEvent::pressed) ? Control::joystick_press : Control::joystick_release) +
                  button);
    }
}

void cInput::runCallList() {
    for (const auto& call : m_calls) {
        ENGINE_MARK_TEXT("call.handler(call.view)");
        if (!call.isGone())
            call.handler(call.view);
    }
}

void cInput::runWheelStop() {
    if (!m_wheel_stop_posted)
        return;
    m_wheel_stop_posted = false;
    copyTo(m_mouse_handlers, m_mouse_calls);
    for (const auto& entry : m_mouse_calls) {
        if (!entry.isGone())
            entry.handler(Control::mouse_wheel, 0, entry.view);
    }
}

void cInput::runMouseState() {
    Platform::sMouseState state;
    if (!m_mouse || !checkResult(*m_mouse, m_mouse->getState(state), mouse_failed))
        return;
    if (state.x == 0 && state.y == 0 && state.z == 0)
        return;
    copyTo(m_mouse_handlers, m_mouse_calls);
    const std::pair<eControl, Long> axes[] = {
        {Control::mouse_x, state.x}, {Control::mouse_y, state.y}, {Control::mouse_wheel, state.z}};
    for (const auto& entry : m_mouse_calls) {
        for (const auto& [control, value] : axes) {
            if (value != 0 && !entry.isGone())
                entry.handler(control, value, entry.view);
        }
    }
}

void cInput::runJoystickState() {
    Platform::sJoystickState state;
    if (!m_joystick || !checkResult(*m_joystick, m_joystick->getState(state), joystick_state_failed))
        return;
    copyTo(m_joystick_handlers, m_joystick_calls);
    for (const auto& entry : m_joystick_calls) {
        for (UInt i = 0; i < 8; ++i) {
            if (!entry.isGone())
                entry.handler(Control::joystick_axis + i, state.axes[i], entry.view);
        }
        for (UInt i = 0; i < 4; ++i) {
            if (state.hats[i] != -1 && !entry.isGone())
                entry.handler(Control::joystick_hat + i, state.hats[i], entry.view);
        }
    }
}

// State and devices ------------------------------------------------------------------------------------------------

void cInput::getKeyboardStates() {
    std::fill(std::begin(m_keyboard_state), std::end(m_keyboard_state), std::uint8_t{0});
    if (m_keyboard)
        m_keyboard->getState(m_keyboard_state);
    m_keyboard_state_valid = true;
}

Bool cInput::isKeyPresed(eControl key) {
    if (!m_keyboard_state_valid)
        getKeyboardStates();
    return (m_keyboard_state[key % Control::key_press] & 0x80) != 0;
}

String& cInput::getKeyName(eControl key) {
    return m_key_names[key];
}

Bool cInput::isMouseExclusive() const {
    return m_mouse_exclusive;
}

void cInput::exclusiveMouse(Bool exclusive) {
    setExclusive(m_mouse.get(), m_mouse_exclusive, exclusive);
}

Bool cInput::hasJoystick() const {
    return m_joystick != nullptr;
}

Bool cInput::isJoystickExclusive() const {
    return m_joystick_exclusive;
}

void cInput::exclusiveJoystick(Bool exclusive) {
    setExclusive(m_joystick.get(), m_joystick_exclusive, exclusive);
}

void cInput::setCursor(Platform::eCursor cursor) {
    if (cursor == m_cursor)
        return;
    m_cursor = cursor;
    m_platform.setCursor(cursor);
}

void cInput::restoreCursor() {
    m_cursor = m_saved_cursor;
    m_platform.setCursor(m_cursor);
}

Platform::eCursor cInput::getCursor() const {
    return m_cursor;
}

Bool cInput::forEachDevice(void (Platform::iInputDevice::*operation)()) try {
    const std::initializer_list<Platform::iInputDevice*> devices = {m_keyboard.get(), m_mouse.get(), m_joystick.get()};
    for (Platform::iInputDevice* device : devices) {
        if (device)
            (device->*operation)();
    }
    return true;
} catch (...) {
    return false;
}

Bool cInput::acquireDevices() {
    return forEachDevice(&Platform::iInputDevice::acquire);
}

Bool cInput::unacquireDevices() {
    return forEachDevice(&Platform::iInputDevice::unacquire);
}

}  // namespace Engine
