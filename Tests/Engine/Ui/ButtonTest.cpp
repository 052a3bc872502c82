#include "Engine/Ui/ButtonPrototype.h"

#include <gtest/gtest.h>

#include <vector>

#include "Engine/Ui/CheckButton.h"
#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/OverlayButton.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/MemoryFile.h"
#include "Engine/core/XML.h"
#include "Tests/Support/HeadlessProgram.h"

namespace Engine {

namespace {

std::vector<String> events;

/// 100 x 100 units about its place; tells what happens to it.
class cTestButton : public cButtonPrototype {
public:
    cTestButton(cView* parent, const String& name, Vector2 position, Float deep = 0.0f)
        : cButtonPrototype(parent), m_name(name) {
        setPosition(position);
        setSize({100.0f, 100.0f});
        setDeep(deep);
        setOnClick([](cView* view) { note(view, "click"); });
        setOnPress([](cView* view) { note(view, "press"); });
        setOnHover([](cView* view) { note(view, "hover"); });
        setOnUnhover([](cView* view) { note(view, "unhover"); });
    }

    using cButtonPrototype::setMask;

private:
    static void note(cView* view, const char* what) {
        events.push_back(static_cast<cTestButton*>(view)->m_name + " " + what);
    }

    String m_name;
};

class Button : public ::testing::Test {
protected:
    Button() {
        program.start();
        events.clear();
    }

    cTestButton* add(const String& name, Vector2 position, Float deep = 0.0f, Bool deep_processing = false) {
        auto* button = new cTestButton(nullptr, name, position, deep);
        button->setDeepProcessing(deep_processing);
        button->show();
        button->enable();
        return button;
    }

    std::vector<String> take() { return std::exchange(events, {}); }

    cHeadlessProgram program;
};

using LIST = std::vector<String>;

}  // namespace

TEST_F(Button, goesThroughHoverPressAndClick) {
    cTestButton* button = add("b", {100.0f, 100.0f});
    EXPECT_EQ(button->getState(), eButtonState::normal);
    program.moveCursor(120.0f, 120.0f);
    program.frame();
    EXPECT_EQ(button->getState(), eButtonState::hovered);
    program.press();
    program.frame();
    EXPECT_EQ(button->getState(), eButtonState::pressed);
    program.release();
    program.frame();
    EXPECT_EQ(button->getState(), eButtonState::hovered);
    program.moveCursor(300.0f, 300.0f);
    program.frame();
    EXPECT_EQ(button->getState(), eButtonState::normal);
    EXPECT_EQ(take(), (LIST{"b hover", "b unhover", "b press", "b hover", "b click", "b unhover"}));
}

TEST_F(Button, pressReleasedOutsideIsNoClick) {
    cTestButton* button = add("b", {100.0f, 100.0f});
    program.moveCursor(100.0f, 100.0f);
    program.frame();
    program.press();
    program.frame();
    take();
    program.moveCursor(300.0f, 300.0f);
    program.frame();
    EXPECT_EQ(button->getState(), eButtonState::pressed);
    program.release();
    program.frame();
    EXPECT_EQ(button->getState(), eButtonState::normal);
    EXPECT_EQ(take(), (LIST{"b unhover"}));
}

TEST_F(Button, thatLetGoOfThePointerIsPressedByOneThatHasNotMovedSince) {
    cTestButton* button = add("b", {100.0f, 100.0f}, 0.0f, true);
    program.moveCursor(100.0f, 100.0f);
    program.frames(2);
    button->unhovered();
    take();
    program.press();
    program.frames(2);
    program.release();
    program.frames(2);
    EXPECT_EQ(take(), (LIST{"b unhover", "b press", "b hover", "b click"}));
}

TEST_F(Button, enabledUnderTheCursorIsHoveredAtOnceAndDisabledHearsNothing) {
    program.moveCursor(100.0f, 100.0f);
    program.frame();
    cTestButton* button = add("b", {100.0f, 100.0f});
    EXPECT_EQ(button->getState(), eButtonState::hovered);
    button->disable();
    EXPECT_EQ(button->getState(), eButtonState::disabled);
    take();
    program.press();
    program.release();
    program.frame();
    EXPECT_EQ(take(), LIST{});
}

TEST_F(Button, lockedKeepsListeningButDoesNothing) {
    cTestButton* button = add("b", {100.0f, 100.0f});
    button->lock();
    program.moveCursor(100.0f, 100.0f);
    program.press();
    program.frame();
    EXPECT_EQ(take(), LIST{});
    EXPECT_EQ(button->getState(), eButtonState::normal);
    button->unlock();
    program.press();
    program.frame();
    EXPECT_EQ(take(), (LIST{"b unhover", "b press"}));
}

// Two overlap at (140, 100); the higher one has the hover to itself.
TEST_F(Button, amongOverlappingDeepOnesOnlyTheHighestIsHoveredAndClicked) {
    add("low", {100.0f, 100.0f}, 1.0f, true);
    cTestButton* high = add("high", {180.0f, 100.0f}, 2.0f, true);
    program.moveCursor(140.0f, 100.0f);
    program.frame();
    EXPECT_EQ(take(), (LIST{"low unhover", "high hover"}));  // the low one was asked first, and had to give way
    program.press();
    program.frame();
    program.release();
    program.frame();
    EXPECT_EQ(take(), (LIST{"high unhover", "high press", "high hover", "high click"}));

    discard(high, here());
    program.frame();
    program.moveCursor(141.0f, 100.0f);
    program.frame();
    const LIST after = take();
    EXPECT_EQ(after.back(), "low hover");
}

TEST_F(Button, ofEqualDeepKeepsTheFirstHolder) {
    add("left", {100.0f, 100.0f}, 1.0f, true);
    add("right", {180.0f, 100.0f}, 1.0f, true);
    program.moveCursor(110.0f, 100.0f);
    program.frame();
    program.moveCursor(140.0f, 100.0f);
    program.frame();
    EXPECT_EQ(take(), (LIST{"left hover"}));
}

TEST_F(Button, ofEqualDeepTakesOverFromOneThatThePointerHasLeft) {
    add("left", {100.0f, 100.0f}, 1.0f, true);
    add("right", {300.0f, 100.0f}, 1.0f, true);
    program.moveCursor(300.0f, 100.0f);
    program.frame();
    program.moveCursor(100.0f, 100.0f);  // the left one is asked first
    program.frame();
    EXPECT_EQ(take(), (LIST{"right hover", "right unhover", "left hover"}));
}

TEST_F(Button, maskDecidesWithinTheRectangle) {
    cTestButton* button = add("b", {100.0f, 100.0f});
    // Two columns of four rows: only the lower half of the right column counts.
    button->setMask({{false, false, false, false}, {false, false, true, true}});
    EXPECT_TRUE(button->pointInRect({125.0f, 125.0f}));
    EXPECT_TRUE(button->pointInRect({150.0f, 150.0f}));
    EXPECT_FALSE(button->pointInRect({125.0f, 99.0f}));
    EXPECT_FALSE(button->pointInRect({99.0f, 125.0f}));
    button->setAngle(3.1415927f);
    EXPECT_TRUE(button->pointInRect({75.0f, 75.0f}));
    EXPECT_FALSE(button->pointInRect({125.0f, 125.0f}));
}

TEST_F(Button, ofNoSizeHasNothingButTheCornerOfItsMask) {
    cTestButton* button = add("b", {100.0f, 100.0f});
    button->setSize({0.0f, 0.0f});
    button->setMask({{true, false}, {false, false}});
    EXPECT_TRUE(button->pointInRect({100.0f, 100.0f}));
    EXPECT_FALSE(button->pointInRect({101.0f, 100.0f}));
}

TEST_F(Button, keepsThePictureThatItWasGivenWhereAStateHasNone) {
    iXML* resource = cResourceManager::getInstance()->getXML("sys/settings.xml");  // any resource will do
    const auto holder = cResourceRef::adopt(resource);
    auto* button = new cButton(nullptr);
    button->setTexture(resource);
    button->show();
    button->enable();
    EXPECT_EQ(button->getState(), eButtonState::hovered);  // 1 x 1 about the cursor
    EXPECT_EQ(button->getTexture(), resource);
}

TEST_F(Button, discardedByItsOwnClickFinishesTheFrame) {
    auto* screen = new cView(nullptr);
    screen->show();
    screen->enable();
    auto* button = new cTestButton(screen, "b", {100.0f, 100.0f});
    button->show();
    button->enable();
    button->setOnClick([](cView* view) { discard(view->getParent(), here()); });
    program.moveCursor(100.0f, 100.0f);
    program.press();
    program.frame();
    program.release();
    program.frame();
    EXPECT_FALSE(cView::isValid(button));
    program.press();
    program.frame();
}

TEST_F(Button, checkButtonTurnsItsTickWithEachClickButNotWithOneTakenBack) {
    auto* check = new cCheckButton(nullptr);
    check->setSize({100.0f, 100.0f});
    check->show();
    check->enable();
    static int last;
    last = -1;
    check->setOnCheck([](cView*, Bool checked) { last = checked; });
    const auto click = [&](Float release_x) {
        program.moveCursor(10.0f, 10.0f);
        program.press();
        program.frame();
        program.moveCursor(release_x, 10.0f);
        program.release();
        program.frame();
    };
    click(10.0f);
    EXPECT_TRUE(check->isChecked());
    EXPECT_EQ(last, 1);
    click(500.0f);
    EXPECT_TRUE(check->isChecked());
    click(10.0f);
    EXPECT_EQ(last, 0);
    check->setOnClick([](cView* view) { view->lock(); });  // as a screen does that opens a dialog
    click(10.0f);
    EXPECT_EQ(last, 1);
}

TEST_F(Button, overlayLightsUpUnderTheCursorAndFollowsItsButton) {
    auto* button = new cOverlayButton(nullptr);
    button->setSize({100.0f, 100.0f});
    button->setPosition({400.0f, 400.0f});
    button->show();
    button->enable();
    program.frame();
    const auto drawn = [] {
        std::vector<Vector2> places;
        UI::getDrawSet().walk([&](cControl* control) { places.push_back(control->getPosition()); });
        return places;
    };
    EXPECT_EQ(drawn().size(), 1u);
    button->setPosition({200.0f, 200.0f});
    program.moveCursor(200.0f, 200.0f);
    program.frame();
    EXPECT_EQ(drawn(), (std::vector<Vector2>{{200.0f, 200.0f}, {200.0f, 200.0f}}));
}

TEST_F(Button, withSoundsIsSilentWhereThereIsNoSound) {
    const String text = "<b><Sounds Click=\"sounds/click.ogg\" Hover=\"sounds/hover.ogg\"/></b>";
    cMemoryFile file(std::vector<char>(text.begin(), text.end()));
    const cXML xml(&file);
    cTestButton* button = add("b", {100.0f, 100.0f});
    button->loadXML(&xml);  // does not ask for files that nothing could play
    button->show();
    button->enable();
    program.moveCursor(100.0f, 100.0f);
    program.press();
    program.frame();
    EXPECT_EQ(button->getState(), eButtonState::pressed);
}

}  // namespace Engine
