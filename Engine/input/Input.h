#pragma once

#include <array>
#include <map>
#include <memory>
#include <unordered_set>
#include <vector>

#include "Engine/core/Singleton.h"
#include "Engine/core/String.h"
#include "Engine/input/ControlCodes.h"
#include "Engine/input/HandlerSet.h"
#include "Engine/platform/Platform.h"

namespace Engine {

/// The one way to react to a key or button: handlers bound to control codes, each with its view.
///
/// Handlers run only inside process(), once a frame, before any view's process(). They may bind, unbind, create and
/// discard views: what an event has put on the call list runs even if it is unbound in between, unless its view is
/// gone. A device that is missing or fails is left out and nothing else changes.
class cInput : public cSingleton<cInput> {
public:
    using fHandler = void (*)(cView* view);
    using fMouseHandler = void (*)(eControl control, Long value, cView* view);
    using fJoystickHandler = void (*)(eControl control, Long value, cView* view);
    using fCharHandler = void (*)(char16_t character, cView* view);
    using fKeyHandler = void (*)(UInt virtual_key, cView* view);

    /// @param platform  outlives the object
    explicit cInput(Platform::iPlatform& platform);
    virtual ~cInput();

    virtual void bind(eControl control, fHandler handler, cView* view);  ///< a null handler is ignored
    virtual void unbind(eControl control, fHandler handler, cView* view);
    virtual void unbindControl(eControl control);  ///< empties that control's set
    virtual void unbindAll();                      ///< empties all control sets
    virtual void bindKeyboard(fCharHandler handler, cView* view);
    virtual void unbindKeyboard();
    virtual void unbindKeyboard(fCharHandler handler, cView* view);
    virtual void bindMouse(fMouseHandler handler, cView* view);
    virtual void unbindMouse(fMouseHandler handler, cView* view);
    virtual void bindKey(fKeyHandler handler, cView* view);
    virtual void unbindKey(fKeyHandler handler, cView* view);
    virtual void unbindKeys();
    virtual void bindJoystick(fJoystickHandler handler, cView* view);
    virtual void unbindJoystick(fJoystickHandler handler, cView* view);
    virtual void postChar(char16_t character);  ///< dropped when 1024 are waiting
    virtual void postKey(UInt virtual_key);     ///< dropped when 1024 are waiting
    virtual void postClick();                   ///< the next process() runs the left button's press and release
    virtual void postWheelStop();               ///< the next process() tells mouse handlers of a wheel movement of 0
    virtual void process();
    /// Is the key down now? The keyboard is read once a frame at most.
    virtual Bool isKeyPresed(eControl key);
    /// By scan code; an unknown one gets an empty name.
    virtual String& getKeyName(eControl key);
    virtual Bool isMouseExclusive() const;
    virtual void exclusiveMouse(Bool exclusive);
    virtual Bool hasJoystick() const;
    virtual void setCursor(Platform::eCursor cursor);
    virtual void restoreCursor();  ///< the one that was current at construction
    virtual Platform::eCursor getCursor() const;
    virtual Bool isJoystickExclusive() const;
    virtual void exclusiveJoystick(Bool exclusive);

    /// With the window's activation. True unless a device failed with an exception.
    Bool acquireDevices();
    Bool unacquireDevices();
    /// Forgets every binding of a view that goes away.
    void unbindView(const cView& view);

private:
    static constexpr UInt buffer_size = 1024;
    using EVENT_BUFFER = std::array<Platform::sDeviceEvent, buffer_size>;

    Bool forEachDevice(void (Platform::iInputDevice::*operation)());
    void runCharacters();
    void runKeys();
    void gatherKeyboard();
    void noteView(const cView* view);
    void gatherMouse();
    void gatherJoystick();
    void gather(eControl control);
    void gatherAny(eControl control);
    void runCallList();
    void runWheelStop();
    void runMouseState();
    void runJoystickState();
    void getKeyboardStates();
    /// Number of events read; a device that is not acquired is acquired. A lost one fails with the text.
    UInt readEvents(Platform::iInputDevice& device, EVENT_BUFFER& buffer, const char* text);
    Bool checkResult(Platform::iInputDevice& device, Platform::eDeviceResult result, const char* text);

    Platform::iPlatform& m_platform;
    std::unique_ptr<Platform::iKeyboard> m_keyboard;
    std::unique_ptr<Platform::iMouse> m_mouse;
    std::unique_ptr<Platform::iJoystick> m_joystick;
    EVENT_BUFFER m_keyboard_buffer;
    EVENT_BUFFER m_mouse_buffer;
    EVENT_BUFFER m_joystick_buffer;

    std::unordered_set<ULongLong> m_bound_views;  ///< living ones that anything was ever bound with
    std::array<cHandlerSet<fHandler>, Control::count> m_controls;
    cHandlerSet<fMouseHandler> m_mouse_handlers;
    cHandlerSet<fJoystickHandler> m_joystick_handlers;
    cHandlerSet<fCharHandler> m_char_handlers;
    cHandlerSet<fKeyHandler> m_key_handlers;

    std::array<char16_t, buffer_size> m_chars;
    UInt m_char_count = 0;
    std::array<UInt, buffer_size> m_keys;
    UInt m_key_count = 0;
    std::uint8_t m_keyboard_state[256] = {};
    Bool m_keyboard_state_valid = false;  ///< taken in this frame
    std::map<eControl, String> m_key_names;
    Bool m_mouse_exclusive = false;
    Bool m_joystick_exclusive = false;
    Platform::eCursor m_cursor;
    Platform::eCursor m_saved_cursor;
    Bool m_click_posted = false;
    Bool m_wheel_stop_posted = false;

    // Lists of one process(), kept so that a steady frame allocates nothing.
    std::vector<cHandlerSet<fHandler>::sEntry> m_calls;
    std::vector<cHandlerSet<fMouseHandler>::sEntry> m_mouse_calls;
    std::vector<cHandlerSet<fJoystickHandler>::sEntry> m_joystick_calls;
    std::vector<cHandlerSet<fCharHandler>::sEntry> m_char_calls;
    std::vector<cHandlerSet<fKeyHandler>::sEntry> m_key_calls;
};

}  // namespace Engine
