#pragma once

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine::Platform {

struct sRect {
    Int left = 0;
    Int top = 0;
    Int right = 0;
    Int bottom = 0;
};

/// What the engine wants of its window when it is made.
struct sWindowParams {
    WString title;
    Int width = 800;   ///< client area, pixels
    Int height = 600;  ///< client area, pixels
    Bool show_system_cursor = false;
};

/// The program's one window. Everything that happens to it arrives as messages (Platform.h).
class iWindow {
public:
    virtual ~iWindow() = default;

    /// A framed window whose client area has this size, centred on its display.
    virtual void setWindowed(Int width, Int height) = 0;
    /// A window without a frame that covers its display.
    virtual void setFullScreen() = 0;
    virtual void restore() = 0;  ///< from the minimised state, and to the front
    virtual Bool isMinimized() const = 0;
    virtual sRect getClientRect() const = 0;   ///< in display coordinates
    virtual sRect getDisplayRect() const = 0;  ///< of the display that holds the window
    virtual void setTitle(const WString& title) = 0;
};

}  // namespace Engine::Platform
