#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "Engine/platform/InputBuffer.h"
#include "Engine/platform/Platform.h"
#include "Engine/platform/SoundDevice.h"

namespace Engine::Platform {

/// A machine without screen, sound or hands: its owner moves the clock, the pointer and the keys.
///
/// The whole program runs on it. Pictures are counted, not drawn; the window is of the size asked for, at (0, 0) of a
/// display whose size can be set. Time stands still but for advance() and sleep().
class cHeadlessPlatform : public iPlatform {
public:
    /// @param executable          path that the program believes to be its own; "Data" is looked for beside it
    /// @param writable_directory  with a trailing "/"
    cHeadlessPlatform(String executable, String writable_directory);
    ~cHeadlessPlatform() override;

    // What the owner does.
    void advance(UInt milliseconds) { m_now += milliseconds; }
    void setDisplaySize(Int width, Int height);
    void setLocalTime(const sLocalTime& time) { m_local_time = time; }
    void setMouseButtonsSwapped(Bool swapped) { m_buttons_swapped = swapped; }
    void setInstanceTaken(Bool taken) { m_instance_taken = taken; }
    /// Display coordinates, as a player's hand would move it.
    void moveCursor(const Vector2& position);
    void pushKey(UInt scan_code, Bool pressed) { m_input.pushKey(scan_code, pressed); }
    void pushMouseButton(UInt button, Bool pressed) { m_input.pushMouseButton(button, pressed); }
    sInputHub& getInput() { return m_input; }
    /// Gives or takes the focus, as a switch to another program would.
    void setForeground(Bool foreground);
    /// Runs each time the message queue is found empty, before the frame that follows.
    void setOnIdle(std::function<void()> on_idle) { m_on_idle = std::move(on_idle); }
    /// The texts of the message boxes shown so far.
    const std::vector<WString>& getMessageBoxes() const { return m_message_boxes; }
    void setSoundDevice(std::unique_ptr<iSoundDevice> device);  ///< the one that the program is given
    /// How often reading of the swapped-buttons setting was asked for.
    UInt getSwapQueries() const { return m_swap_queries; }

    Bool takeMessage(sMessage& message) override;
    void postMessage(const sMessage& message) override { m_messages.push_back(message); }
    void defaultProcedure(const sMessage& message) override;
    Bool claimInstance(const String&) override { return !m_instance_taken; }
    UInt getMilliseconds() override { return m_now; }
    void sleep(UInt milliseconds) override { advance(milliseconds); }
    sLocalTime getLocalTime() override { return m_local_time; }
    void showMessageBox(const WString&, const WString& text) override { m_message_boxes.push_back(text); }
    String getExecutablePath() override { return m_executable; }
    String getWritableDirectory() override { return m_writable_directory; }
    std::unique_ptr<iWindow> createWindow(const sWindowParams& params) override;
    Vector2 getCursorPos() override { return m_cursor_pos; }
    void setCursor(eCursor cursor) override { m_cursor = cursor; }
    eCursor getCursor() const override { return m_cursor; }
    std::unique_ptr<iKeyboard> createKeyboard() override;
    std::unique_ptr<iMouse> createMouse() override;
    std::unique_ptr<iJoystick> createJoystick() override { return nullptr; }
    Bool areMouseButtonsSwapped() override;
    std::unique_ptr<iGraphicsDevice> createGraphicsDevice(iWindow& window) override;
    /// Silence, unless the owner has given a device.
    std::unique_ptr<iSoundDevice> createSoundDevice() override { return std::move(m_sound_device); }

private:
    class cWindow;

    std::unique_ptr<iSoundDevice> m_sound_device;
    String m_executable;
    String m_writable_directory;
    std::deque<sMessage> m_messages;
    std::function<void()> m_on_idle;
    Bool m_idle_done = false;
    sInputHub m_input;
    UInt m_now = 0;
    sLocalTime m_local_time{2020, 1, 1, 0, 0, 0};
    sRect m_display{0, 0, 1920, 1080};
    Vector2 m_cursor_pos{-1.0f, -1.0f};
    eCursor m_cursor = eCursor::arrow;
    Bool m_buttons_swapped = false;
    UInt m_swap_queries = 0;
    Bool m_instance_taken = false;
    Bool m_closed = false;
    std::vector<WString> m_message_boxes;
};

}  // namespace Engine::Platform
