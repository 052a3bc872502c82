#include "Engine/core/Engine.h"

#include <gtest/gtest.h>

#include <vector>

#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/Settings.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/input/Input.h"
#include "Engine/platform/headless/HeadlessGraphicsDevice.h"
#include "Tests/Support/HeadlessProgram.h"

namespace Engine {

namespace {

using Platform::eMessage;
using Platform::eSysCommand;

std::vector<String> steps;

class cWitness : public cPicture {
public:
    using cPicture::cPicture;
    void process() override { steps.push_back("process"); }
    void absoluteProcess() override { steps.push_back("absolute"); }
    void makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const override {
        steps.push_back("draw");
        cPicture::makeSprite(sprite, frame, alpha);
    }
    ~cWitness() override { steps.push_back("delete"); }
};

class EngineFrame : public ::testing::Test {
protected:
    void start(const std::string& constants = "") {
        if (!constants.empty())
            program.write("sys/constants.xml", constants);
        engine = &program.start();
        steps.clear();
    }

    void send(eMessage type, UInt param) { engine->dispatch({type, param}); }
    void send(eSysCommand command) { send(eMessage::sysCommand, static_cast<UInt>(command)); }
    UInt pictures() const {
        auto& device = cGraphics::getInstance()->getDevice();
        return static_cast<Platform::cHeadlessGraphicsDevice&>(device).getCounters().pictures;
    }
    Bool isFullScreen() const {
        Bool fullscreen = false;
        cSettings::getInstance()->getProperty("graphics", "fullscreen", fullscreen);
        return fullscreen;
    }
    /// Gives whether a device reset is now asked for, and takes the request back.
    Bool takeReset() const {
        const Bool pending = cGraphics::getInstance()->isResetPending();
        cGraphics::getInstance()->setResetPending(false);
        return pending;
    }
    std::vector<String> frame() {
        program.frame();
        return std::exchange(steps, {});
    }

    cHeadlessProgram program;
    cEngine* engine = nullptr;
};

using LIST = std::vector<String>;

}  // namespace

TEST_F(EngineFrame, goesThroughItsStepsInOrder) {
    start();
    auto* view = new cWitness(nullptr);
    view->show();
    view->enable();
    view->absoluteEnable();
    cInput::getInstance()->bind(
        Control::left_press,
        [](cView* bound) {
            steps.push_back("input");
            discard(bound, here());
        },
        view);
    program.press();
    EXPECT_EQ(frame(), (LIST{"input", "absolute", "process", "draw", "delete"}));
    EXPECT_EQ(frame(), LIST{});
}

TEST_F(EngineFrame, drawsButDoesNotProcessWithoutTheFocus) {
    start();
    auto* view = new cWitness(nullptr);
    view->show();
    view->enable();
    frame();
    program.getPlatform().setForeground(false);
    const UInt before = pictures();
    const UInt clock = program.getPlatform().getMilliseconds();
    EXPECT_EQ(frame(), LIST{});
    EXPECT_EQ(pictures(), before + 1);
    EXPECT_EQ(program.getPlatform().getMilliseconds(), clock + cHeadlessProgram::frame_ms + 50);
    program.getPlatform().setForeground(true);
    EXPECT_EQ(frame(), (LIST{"process"}));
}

TEST_F(EngineFrame, onlyDeletesWhileMinimised) {
    start();
    auto* view = new cWitness(nullptr);
    view->show();
    view->enable();
    frame();
    send(eSysCommand::minimize);
    const UInt before = pictures();
    EXPECT_EQ(frame(), LIST{});
    discard(view, here());
    EXPECT_EQ(frame(), (LIST{"delete"}));
    EXPECT_EQ(pictures(), before);
    send(eSysCommand::restore);
    frame();
    EXPECT_GT(pictures(), before);
}

TEST_F(EngineFrame, changesBetweenWindowAndFullScreen) {
    start();
    send(eMessage::sysKeyDown, Platform::vkReturn);
    EXPECT_TRUE(isFullScreen());
    EXPECT_TRUE(takeReset());
    send(eSysCommand::maximize);  // is full already
    EXPECT_FALSE(takeReset());
    send(eMessage::sysKeyDown, Platform::vkReturn);
    EXPECT_FALSE(isFullScreen());
    takeReset();
    send(eMessage::sysKeyDown, Platform::vkSpace);
    EXPECT_FALSE(takeReset());
    send(eSysCommand::maximize);
    EXPECT_TRUE(isFullScreen());
    EXPECT_TRUE(takeReset());
}

TEST_F(EngineFrame, staysInItsWindowWhereTheDataSaysSo) {
    start("<m><game app_directory=\"test\"/><graphics only_windowed=\"1\"/></m>");
    send(eMessage::sysKeyDown, Platform::vkReturn);
    send(eSysCommand::maximize);
    EXPECT_FALSE(isFullScreen());
    EXPECT_FALSE(takeReset());
    cSettings::getInstance()->setProperty("graphics", "fullscreen", true);
    send(eMessage::sysKeyDown, Platform::vkReturn);  // the way out of a setting from elsewhere
    EXPECT_FALSE(isFullScreen());
    EXPECT_TRUE(takeReset());
}

TEST_F(EngineFrame, queuesCharactersAndKeysForTheirHandlers) {
    start();
    static std::vector<UInt> heard;
    heard.clear();
    cInput::getInstance()->bindKeyboard([](char16_t c, cView*) { heard.push_back(c); }, nullptr);
    cInput::getInstance()->bindKey([](UInt key, cView*) { heard.push_back(key); }, nullptr);
    send(eMessage::character, u'ю');
    send(eMessage::keyDown, Platform::vkHome);
    frame();
    EXPECT_EQ(heard, (std::vector<UInt>{u'ю', Platform::vkHome}));
}

TEST_F(EngineFrame, pumpEndsWhenTheWindowIsClosed) {
    start();
    int idle = 0;
    engine->setIdleCallback(
        [](void* count) {
            if (++*static_cast<int*>(count) == 3)
                cLogic::getInstance()->exit();
        },
        &idle);
    engine->process();
    EXPECT_EQ(idle, 3);
}

TEST_F(EngineFrame, secondInstanceEndsBeforeAnyFileIsOpened) {
    cHeadlessProgram second;
    second.getPlatform().setInstanceTaken(true);
    std::filesystem::remove_all(std::string(second.getDirectory() / "Data"));
    EXPECT_THROW(second.start(), sAlreadyRunning);
    EXPECT_FALSE(second.getDirectory().has("home"));
}

TEST_F(EngineFrame, keepsWhatWasSetForTheNextStart) {
    start();
    send(eMessage::sysKeyDown, Platform::vkReturn);
    frame();
    program.stop();
    EXPECT_TRUE(program.getDirectory().has("home/test/sys/settings.xml"));
    start();
    EXPECT_TRUE(isFullScreen());
    EXPECT_TRUE(cGraphics::getInstance()->getParameters().fullscreen);
}

}  // namespace Engine
