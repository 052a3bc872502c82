#include "Engine/input/Input.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <vector>

#include "Engine/Ui/View.h"
#include "Engine/platform/headless/HeadlessPlatform.h"

namespace Engine {

namespace {

std::vector<String> calls;

template <int N>
void handler(cView*) {
    calls.push_back(std::to_string(N));
}

class Input : public ::testing::Test {
protected:
    Input() : platform("/nowhere/brindle", "/nowhere/"), input(platform) {
        input.acquireDevices();
        calls.clear();
    }

    std::vector<String> process() {
        input.process();
        return std::exchange(calls, {});
    }

    Platform::cHeadlessPlatform platform;
    cInput input;
};

using LIST = std::vector<String>;

}  // namespace

TEST_F(Input, runsPressReleaseAndAnyInTheOrderOfEvents) {
    input.bind(1, handler<1>, nullptr);
    input.bind(257, handler<257>, nullptr);
    input.bind(Control::any, handler<1100>, nullptr);
    platform.pushKey(1, true);
    platform.pushKey(1, false);
    EXPECT_EQ(process(), (LIST{"257", "1100", "1", "1100"}));
    EXPECT_EQ(process(), LIST{});
}

TEST_F(Input, bindsAPairOnceAndUnbindsItAlone) {
    cView a(nullptr);
    cView b(nullptr);
    const auto names = [](cView* view) { calls.push_back(view ? "view" : "none"); };
    input.bind(1, names, &a);
    input.bind(1, names, &a);
    input.bind(1, names, &b);
    input.bind(1, nullptr, &b);
    platform.pushKey(1, false);
    EXPECT_EQ(process().size(), 2u);
    input.unbind(1, names, &a);
    platform.pushKey(1, false);
    EXPECT_EQ(process().size(), 1u);
    input.unbindAll();
    platform.pushKey(1, false);
    EXPECT_EQ(process(), LIST{});
}

TEST_F(Input, runsWhatIsOnTheListEvenIfItIsUnboundInBetween) {
    static cInput* shared;
    shared = &input;
    static const cInput::fHandler second = handler<2>;
    input.bind(
        257, [](cView*) { shared->unbind(257, second, nullptr); }, nullptr);
    input.bind(257, second, nullptr);
    platform.pushKey(1, true);
    EXPECT_EQ(process(), (LIST{"2"}));
    platform.pushKey(1, true);
    EXPECT_EQ(process(), LIST{});
}

TEST_F(Input, forgetsTheBindingsOfAViewThatIsGone) {
    static cView* victim;
    victim = new cView(nullptr);
    input.bind(
        257, [](cView*) { delete victim; }, nullptr);
    input.bind(257, handler<2>, victim);
    platform.pushKey(1, true);
    EXPECT_EQ(process(), LIST{});  // gone before its turn
    input.unbindControl(257);
    platform.pushKey(1, true);
    EXPECT_EQ(process(), LIST{});
}

TEST_F(Input, doesNotTakeAViewThatLiesWhereAnOldOneDidForThatOne) {
    alignas(cView) static std::byte place[sizeof(cView)];
    static cView* view;
    view = new (place) cView(nullptr);
    input.bindMouse(
        [](eControl, Long, cView*) {
            view->~cView();
            view = new (place) cView(nullptr);
        },
        nullptr);
    input.bindMouse([](eControl, Long, cView*) { calls.push_back("old"); }, view);
    platform.getInput().moveMouse(1, 0, 0);
    EXPECT_EQ(process(), LIST{});
    view->~cView();
}

TEST_F(Input, swapsTheFirstTwoButtonsOnlyAndAsksOnlyWithEvents) {
    input.bind(Control::left_press, handler<520>, nullptr);
    input.bind(Control::right_release, handler<513>, nullptr);
    input.bind(522, handler<522>, nullptr);
    process();
    EXPECT_EQ(platform.getSwapQueries(), 0u);
    platform.setMouseButtonsSwapped(true);
    platform.pushMouseButton(1, true);
    platform.pushMouseButton(0, false);
    platform.pushMouseButton(2, true);
    EXPECT_EQ(process(), (LIST{"520", "513", "522"}));
    EXPECT_EQ(platform.getSwapQueries(), 1u);
}

TEST_F(Input, tellsMouseHandlersOfMovementThatHappened) {
    input.bindMouse([](eControl control, Long value,
                       cView*) { calls.push_back(std::to_string(control) + "=" + std::to_string(value)); },
                    nullptr);
    platform.getInput().moveMouse(3, 0, -120);
    platform.getInput().moveMouse(4, 0, 0);
    EXPECT_EQ(process(), (LIST{"528=7", "530=-120"}));
    EXPECT_EQ(process(), LIST{});
    input.postWheelStop();
    EXPECT_EQ(process(), (LIST{"530=0"}));
}

TEST_F(Input, runsPostedClicksAfterTheEventsOfTheFrame) {
    input.bind(Control::left_press, handler<520>, nullptr);
    input.bind(Control::left_release, handler<512>, nullptr);
    input.bind(257, handler<257>, nullptr);
    input.postClick();
    platform.pushKey(1, true);
    EXPECT_EQ(process(), (LIST{"257", "520", "512"}));
}

TEST_F(Input, queuesCharactersAndKeysAndDropsWhatNobodyHears) {
    const auto onChar = [](char16_t c, cView*) { calls.push_back(toNarrow(WString(1, c))); };
    input.postChar(u'x');
    process();
    input.bindKeyboard(onChar, nullptr);
    input.bindKey([](UInt key, cView*) { calls.push_back("key " + std::to_string(key)); }, nullptr);
    EXPECT_EQ(process(), LIST{});  // the x came too early
    input.postKey(13);
    input.postChar(u'a');
    input.postChar(u'ж');
    EXPECT_EQ(process(), (LIST{"a", "ж", "key 13"}));
    for (int i = 0; i < 2000; ++i)
        input.postChar(u'y');
    EXPECT_EQ(process().size(), 1024u);
}

TEST_F(Input, readsTheKeyboardOnceAFrame) {
    platform.pushKey(57, true);
    EXPECT_TRUE(input.isKeyPresed(57));
    platform.pushKey(57, false);
    EXPECT_TRUE(input.isKeyPresed(57));
    process();
    EXPECT_FALSE(input.isKeyPresed(57));
    EXPECT_FALSE(input.isKeyPresed(5000));
}

TEST_F(Input, hearsNothingWithoutTheFocusAndOfNothingFromThatTimeLater) {
    input.bind(257, handler<257>, nullptr);
    platform.setForeground(false);
    input.unacquireDevices();
    platform.pushKey(1, true);
    EXPECT_EQ(process(), LIST{});
    platform.setForeground(true);
    input.acquireDevices();
    EXPECT_EQ(process(), LIST{});
    platform.pushKey(1, true);
    EXPECT_EQ(process(), (LIST{"257"}));
}

TEST_F(Input, knowsTheKeysByName) {
    EXPECT_EQ(input.getKeyName(1), "Esc");
    EXPECT_EQ(input.getKeyName(43), "\\");
    EXPECT_EQ(input.getKeyName(237), "MediaSelect");
    EXPECT_EQ(input.getKeyName(999), "");
}

namespace {

/// A machine whose mouse has been pulled out.
class cMouseless : public Platform::cHeadlessPlatform {
public:
    using cHeadlessPlatform::cHeadlessPlatform;
    std::unique_ptr<Platform::iMouse> createMouse() override { return std::make_unique<cLost>(getInput()); }

private:
    class cLost : public Platform::cBufferedMouse {
    public:
        using cBufferedMouse::cBufferedMouse;
        Platform::eDeviceResult getEvents(Platform::sDeviceEvent*, UInt&) override {
            return Platform::eDeviceResult::inputLost;
        }
    };
};

}  // namespace

TEST(InputFailure, namesTheCallThatALostDeviceFailedIn) {
    cMouseless platform("/nowhere/brindle", "/nowhere/");
    cInput input(platform);
    try {
        input.process();
        FAIL() << "nothing was thrown";
    } catch (const String& text) {
        EXPECT_EQ(text,
                  "Direct3D function call failed\nm_mouse->GetDeviceData(sizeof(DIDEVICEOBJECTDATA), m_mouse_buffer, "
                  "&event_count, 0)\nDIERR_INPUTLOST");
    }
    EXPECT_THROW(std::make_unique<cInput>(platform), const char*);  // one at a time
}

}  // namespace Engine
