#pragma once

#include <memory>

#include "Engine/core/Singleton.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"
#include "Engine/platform/Platform.h"

namespace Engine {

class cConstants;
class cFileManager;
class cGraphics;
class cInput;
class cLogic;
class cResourceManager;
class cSettings;
class cSoundManager;
class cStringManager;
class cTimer;

/// What the entry tells the engine.
struct sContext {
    const char* data_dir = "Data";            ///< name of the data directory beside the executable
    const char* writable_dir = "";            ///< the writable directory; empty: that of the machine and the data
    Platform::iPlatform* instance = nullptr;  ///< the machine below; outlives the engine
    Platform::iWindow* window = nullptr;      ///< a window to use; null: the engine makes one and notes it here
    Bool no_sound = false;                    ///< no sound manager
    Bool single_instance = true;              ///< one running program at a time
};

/// Thrown out of cEngine's constructor when another instance runs already and has been brought to the front.
struct sAlreadyRunning {};

/// Builds and tears down every manager in a fixed order, owns the window and runs the message pump.
///
/// The program is one thread: process() takes messages until there is none, then runs one frame, and returns when it
/// meets the quit message.
class cEngine : public cSingleton<cEngine> {
public:
    using IDLE_CALLBACK = void (*)(void* data);

    /// Throws sAlreadyRunning before any file is opened, and whatever a manager's construction throws; the managers
    /// made until then are taken down in order.
    explicit cEngine(sContext& context);
    virtual ~cEngine();

    virtual void process();
    virtual Platform::iWindow* getWindow() const { return m_window; }
    virtual Platform::iPlatform* getInstancePlatform() const { return m_instance; }

    /// Called after each frame; null for none.
    void setIdleCallback(IDLE_CALLBACK callback, void* data);
    /// The window procedure: what the program does with one message.
    void dispatch(const Platform::sMessage& message);

private:
    void createManagers(sContext& context);
    void createWindow(sContext& context);
    void tearDown();  ///< all views, then the managers in their order

    void onActivate(Bool active);
    void onSysCommand(const Platform::sMessage& message);
    void onMaximize();
    void onAltEnter();

    Platform::iPlatform* m_instance;
    std::unique_ptr<Platform::iWindow> m_own_window;
    Platform::iWindow* m_window = nullptr;
    WString m_window_class;
    IDLE_CALLBACK m_idle_callback = nullptr;
    void* m_idle_callback_data = nullptr;

    std::unique_ptr<cFileManager> m_file_manager;
    std::unique_ptr<cResourceManager> m_resource_manager;
    std::unique_ptr<cConstants> m_constants;
    std::unique_ptr<cSettings> m_settings;
    std::unique_ptr<cGraphics> m_graphics;
    std::unique_ptr<cInput> m_input;
    std::unique_ptr<cTimer> m_timer;
    std::unique_ptr<cSoundManager> m_sound_manager;
    std::unique_ptr<cLogic> m_logic;
    std::unique_ptr<cStringManager> m_string_manager;
};

}  // namespace Engine
