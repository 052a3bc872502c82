#pragma once

#include <memory>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"
#include "Engine/platform/InputDevice.h"
#include "Engine/platform/LocalTime.h"
#include "Engine/platform/Window.h"

namespace Engine::Platform {

class iGraphicsDevice;
class iSoundDevice;

enum class eMessage : UInt {
    quit,         ///< ends the pump; posted, never sent by the window itself
    close,        ///< the close box, or the program's own wish to end
    destroy,      ///< the window is gone
    activate,     ///< param: eActivation
    activateApp,  ///< param: 1 when another program gives way to this one, 0 when it takes over
    setCursor,
    nonClientDoubleClick,
    mouseMove,
    keyDown,     ///< param: virtual-key code
    character,   ///< param: UTF-16 unit
    sysCommand,  ///< param: eSysCommand
    sysKeyDown,  ///< a key while Alt is held; param: virtual-key code
    other,
};

enum eActivation : UInt { inactive = 0, active = 1, clickActive = 2 };
enum class eSysCommand : UInt { keyMenu, restore, minimize, maximize, other };

/// The system's pointer: none where the game draws its own.
enum class eCursor : UInt { none, arrow, dragSideways };

/// Virtual-key codes that the engine itself names; letters and digits have their ASCII codes.
enum eVirtualKey : UInt {
    vkBack = 0x08,
    vkTab = 0x09,
    vkReturn = 0x0D,
    vkEscape = 0x1B,
    vkSpace = 0x20,
    vkPrior = 0x21,
    vkNext = 0x22,
    vkEnd = 0x23,
    vkHome = 0x24,
    vkLeft = 0x25,
    vkUp = 0x26,
    vkRight = 0x27,
    vkDown = 0x28,
    vkInsert = 0x2D,
    vkDelete = 0x2E,
    vkF1 = 0x70,
};

struct sMessage {
    eMessage type = eMessage::other;
    UInt param = 0;
};

/// All that the engine asks of the machine below it. Two platforms exist: sdl (a real window) and headless (none).
///
/// Messages are queued and taken one at a time; the engine's window procedure decides about each and hands it to
/// defaultProcedure() where the platform's own behaviour shall follow. Nothing here calls the engine back.
class iPlatform {
public:
    virtual ~iPlatform() = default;

    /// One message without waiting; false if there is none.
    virtual Bool takeMessage(sMessage& message) = 0;
    virtual void postMessage(const sMessage& message) = 0;
    /// What the platform does with a message that the program leaves to it: a close destroys the window (which posts
    /// destroy), system commands minimise and restore it.
    virtual void defaultProcedure(const sMessage& message) = 0;

    /// Makes this process the one holder of the name. False if another process holds it already; that one's window is
    /// then restored and brought to the front.
    virtual Bool claimInstance(const String& name) = 0;

    virtual UInt getMilliseconds() = 0;  ///< monotonic, wraps at 32 bits
    virtual void sleep(UInt milliseconds) = 0;
    virtual sLocalTime getLocalTime() = 0;

    /// Shows a box with the exclamation icon and waits until it is closed.
    virtual void showMessageBox(const WString& title, const WString& text) = 0;

    virtual String getExecutablePath() = 0;     ///< absolute; empty if it is not known
    virtual String getWritableDirectory() = 0;  ///< per user, with a trailing "/"; the program adds its own name

    virtual std::unique_ptr<iWindow> createWindow(const sWindowParams& params) = 0;
    virtual Vector2 getCursorPos() = 0;  ///< display coordinates
    virtual void setCursor(eCursor cursor) = 0;
    virtual eCursor getCursor() const = 0;

    /// Null where there is no such device.
    virtual std::unique_ptr<iKeyboard> createKeyboard() = 0;
    virtual std::unique_ptr<iMouse> createMouse() = 0;
    virtual std::unique_ptr<iJoystick> createJoystick() = 0;
    virtual Bool areMouseButtonsSwapped() = 0;

    /// @param window  of this platform; outlives the device. Failures throw a String.
    virtual std::unique_ptr<iGraphicsDevice> createGraphicsDevice(iWindow& window) = 0;
    /// Null where there is no sound; whether there is any, its init() tells.
    virtual std::unique_ptr<iSoundDevice> createSoundDevice() = 0;
};

}  // namespace Engine::Platform
