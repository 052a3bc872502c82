#pragma once

#include <memory>

#include "Engine/core/Engine.h"
#include "Engine/core/Logic.h"
#include "Engine/platform/headless/HeadlessPlatform.h"
#include "Tests/Support/TempDirectory.h"

namespace Engine {

/// The engine on a machine without a screen, with a data directory of its own that a test fills.
///
/// Time moves only by frame(): each is 20 ms.
class cHeadlessProgram {
public:
    static constexpr UInt frame_ms = 20;

    cHeadlessProgram() : m_platform(m_directory / "brindle", m_directory / "home/") {
        write("sys/constants.xml", "<main><game app_directory=\"test\" window_title=\"Test\"/></main>");
        write("sys/settings.xml", "<main><graphics width=\"800\" height=\"600\"/></main>");
    }

    /// Into the data directory; before start().
    void write(const String& name, const std::string& text) { m_directory.write("Data/" + name, text); }

    cEngine& start() {
        sContext context;
        context.instance = &m_platform;
        m_engine = std::make_unique<cEngine>(context);
        drainMessages();
        return *m_engine;
    }
    void stop() { m_engine.reset(); }

    /// All waiting messages, then one frame.
    void frame() {
        m_platform.advance(frame_ms);
        drainMessages();
        cLogic::getInstance()->process();
    }
    void frames(UInt count) {
        for (UInt i = 0; i < count; ++i)
            frame();
    }

    void moveCursor(Float x, Float y) { m_platform.moveCursor({x, y}); }
    void press() { m_platform.pushMouseButton(0, true); }
    void release() { m_platform.pushMouseButton(0, false); }
    /// There, a frame for each of coming, pressing and releasing.
    void click(Float x, Float y) {
        moveCursor(x, y);
        frame();
        press();
        frame();
        release();
        frame();
    }

    Platform::cHeadlessPlatform& getPlatform() { return m_platform; }
    const cTempDirectory& getDirectory() const { return m_directory; }

private:
    void drainMessages() {
        Platform::sMessage message;
        while (m_platform.takeMessage(message)) {
            if (message.type != Platform::eMessage::quit)
                m_engine->dispatch(message);
        }
    }

    cTempDirectory m_directory;
    Platform::cHeadlessPlatform m_platform;
    std::unique_ptr<cEngine> m_engine;
};

}  // namespace Engine
