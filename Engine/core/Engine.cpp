#include "Engine/core/Engine.h"

#include "Engine/Sound/SoundManager.h"
#include "Engine/Ui/Font.h"
#include "Engine/Ui/View.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Constants.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Log.h"
#include "Engine/core/Logic.h"
#include "Engine/core/Random.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/Settings.h"
#include "Engine/core/StringManager.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/input/Input.h"

namespace Engine {

using Platform::eMessage;
using Platform::eSysCommand;
using Platform::sMessage;

namespace {

/// The name by which instances of the program know each other: "brindle_" and the executable's file name.
WString makeClassName(const String& executable) {
    const std::size_t slash = executable.rfind('/');
    const Bool has_name = slash != String::npos && slash + 1 < executable.size();
    return toWide(toLower("Brindle_" + (has_name ? executable.substr(slash + 1) : std::string())));
}

/// The directory of the executable, with its trailing separator, and the data directory's name behind it.
String makeRoot(const String& executable, const char* data_dir) {
    return executable.substr(0, executable.rfind('/') + 1) + data_dir;
}

}  // namespace

cEngine::cEngine(sContext& context) : m_instance(context.instance) {
    ENGINE_MARK;
    m_window_class = makeClassName(m_instance->getExecutablePath());
    if (context.single_instance && !m_instance->claimInstance(toNarrow(m_window_class)))
        throw sAlreadyRunning{};
    cLogManager::getInstance()->setClock([this] { return m_instance->getLocalTime(); });
    setErrorHooks({[this] { m_instance->postMessage({eMessage::quit, 0}); }, [this] { process(); }});
    try {
        createManagers(context);
    } catch (...) {
        tearDown();
        throw;
    }
}

void cEngine::createManagers(sContext& context) {
    const String root = makeRoot(m_instance->getExecutablePath(), context.data_dir);
    random().setSeed(m_instance->getMilliseconds());
    m_file_manager =
        std::make_unique<cFileManager>(root, "pack", m_instance->getWritableDirectory(), context.writable_dir);
    m_resource_manager = std::make_unique<cResourceManager>();
    m_resource_manager->registerLoader(
        eResourceType::font, [](const String& name) { return std::make_unique<cFont>(name); }, true);
    m_constants = std::make_unique<cConstants>();
    m_constants->load("sys/constants.xml");
    m_settings = std::make_unique<cSettings>();
    m_settings->load("sys/settings.xml");
    if (!context.window)
        createWindow(context);
    m_window = context.window;
    m_graphics = std::make_unique<cGraphics>(*m_instance, *m_window);
    m_input = std::make_unique<cInput>(*m_instance);
    m_timer = std::make_unique<cTimer>(*m_instance);
    if (!context.no_sound)
        m_sound_manager = std::make_unique<cSoundManager>(*m_instance);
    m_logic = std::make_unique<cLogic>(*m_instance);
    m_string_manager = std::make_unique<cStringManager>();
}

void cEngine::createWindow(sContext& context) {
    ENGINE_MARK;
    Platform::sWindowParams params;
    m_constants->getProperty("game", "window_title", params.title);
    if (params.title.empty())
        params.title = m_window_class;
    m_settings->getProperty("graphics", "width", params.width);
    m_settings->getProperty("graphics", "height", params.height);
    m_settings->getProperty("graphics", "ShowSysCursor", params.show_system_cursor);
    m_own_window = m_instance->createWindow(params);
    m_instance->setCursor(params.show_system_cursor ? Platform::eCursor::arrow : Platform::eCursor::none);
    context.window = m_own_window.get();
}

cEngine::~cEngine() {
    tearDown();
}

void cEngine::tearDown() {
    setErrorHooks({});
    cLogManager::getInstance()->setClock({});
    cView::destroyAll();
    m_logic.reset();
    m_string_manager.reset();
    m_sound_manager.reset();
    m_timer.reset();
    m_input.reset();
    m_graphics.reset();
    m_settings.reset();
    m_constants.reset();
    m_resource_manager.reset();
    m_file_manager.reset();
    m_own_window.reset();
}

void cEngine::setIdleCallback(IDLE_CALLBACK callback, void* data) {
    m_idle_callback = callback;
    m_idle_callback_data = data;
}

void cEngine::process() {
    ENGINE_MARK;
    for (;;) {
        sMessage message;
        if (m_instance->takeMessage(message)) {
            if (message.type == eMessage::quit)
                return;
            dispatch(message);
            continue;
        }
        m_logic->process();
        if (m_idle_callback)
            m_idle_callback(m_idle_callback_data);
    }
}

// The window procedure ---------------------------------------------------------------------------------------------

void cEngine::dispatch(const sMessage& message) {
    ENGINE_MARK;
    switch (message.type) {
        case eMessage::destroy:
            m_instance->postMessage({eMessage::quit, 0});
            return;
        case eMessage::activate:
            onActivate(message.param != Platform::inactive);
            return;
        case eMessage::activateApp:
            onActivate(message.param == 1);
            m_instance->defaultProcedure(message);
            return;
        case eMessage::setCursor:
        case eMessage::nonClientDoubleClick:
        case eMessage::mouseMove:
            return;
        case eMessage::keyDown:
            if (m_input)
                m_input->postKey(message.param);
            return;
        case eMessage::character:
            if (m_input)
                m_input->postChar(static_cast<char16_t>(message.param));
            return;
        case eMessage::sysCommand:
            onSysCommand(message);
            return;
        case eMessage::sysKeyDown:
            if (message.param == Platform::vkReturn)
                onAltEnter();
            m_instance->defaultProcedure(message);
            return;
        case eMessage::quit:
        case eMessage::close:
        case eMessage::other:
            m_instance->defaultProcedure(message);
            return;
    }
}

void cEngine::onActivate(Bool active) {
    if (m_input) {
        if (active)
            m_input->acquireDevices();
        else
            m_input->unacquireDevices();
    }
    if (m_logic)
        m_logic->setInactive(!active);
    if (m_sound_manager)
        m_sound_manager->setPause(!active);
}

void cEngine::onSysCommand(const sMessage& message) {
    switch (static_cast<eSysCommand>(message.param)) {
        case eSysCommand::keyMenu:
            return;  // Alt opens no menu
        case eSysCommand::maximize:
            onMaximize();
            return;
        case eSysCommand::restore:
            if (m_logic)
                m_logic->setMinimized(false);
            break;
        case eSysCommand::minimize:
            if (m_logic)
                m_logic->setMinimized(true);
            break;
        case eSysCommand::other:
            break;
    }
    m_instance->defaultProcedure(message);
}

void cEngine::onMaximize() {
    if (m_window && m_window->isMinimized())
        dispatch({eMessage::sysCommand, static_cast<UInt>(eSysCommand::restore)});
    if (m_logic)
        m_logic->setMinimized(false);
    if (!m_settings || !m_graphics)
        return;
    Bool only_windowed = false;
    Bool fullscreen = false;
    m_constants->getProperty("graphics", "only_windowed", only_windowed);
    m_settings->getProperty("graphics", "fullscreen", fullscreen);
    if (only_windowed || fullscreen)
        return;
    m_settings->setProperty("graphics", "fullscreen", true);
    m_graphics->setResetPending(true);
}

void cEngine::onAltEnter() {
    if (!m_settings || !m_graphics)
        return;
    Bool only_windowed = false;
    Bool fullscreen = false;
    m_constants->getProperty("graphics", "only_windowed", only_windowed);
    m_settings->getProperty("graphics", "fullscreen", fullscreen);
    if (only_windowed && !fullscreen)
        return;
    m_settings->setProperty("graphics", "fullscreen", only_windowed ? false : !fullscreen);
    m_graphics->setResetPending(true);
}

}  // namespace Engine
