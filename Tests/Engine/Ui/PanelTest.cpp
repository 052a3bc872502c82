#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "Engine/Ui/AlphaBack.h"
#include "Engine/Ui/ListBox.h"
#include "Engine/Ui/ProgressFloat.h"
#include "Engine/Ui/ScrollBack.h"
#include "Engine/Ui/ScrollBox.h"
#include "Engine/Ui/YesNo.h"
#include "Engine/core/MemoryFile.h"
#include "Engine/core/XML.h"
#include "Tests/Support/HeadlessProgram.h"

namespace Engine {

namespace {

std::vector<String> events;

std::vector<String> take() {
    return std::exchange(events, {});
}

class Panel : public ::testing::Test {
protected:
    Panel() { events.clear(); }

    template <class T>
    static void load(T& view, const std::string& text) {
        cMemoryFile file(std::vector<char>(text.begin(), text.end()));
        const cXML xml(&file);
        view.loadXML(&xml);
    }

    void click(Float x, Float y) { program.click(x, y); }

    cHeadlessProgram program;
};

class cTestPanel : public cAlphaBack {
public:
    using cAlphaBack::cAlphaBack;
    void alphaShowed() override { events.push_back("showed"); }
    void alphaHided() override { events.push_back("hid"); }
    Float getChildAlpha() { return static_cast<cControl*>(getChildren().first())->getAlpha(); }
};

constexpr const char* fading_panel =
    R"(<p Visible="1" Enable="1" ShowTime="0.2" HideTime="0.4"><Background><b Visible="1"/></Background></p>)";

}  // namespace

// Fades of 0.2 s up and 0.4 s down; a frame is 0.02 s.
TEST_F(Panel, turnsItsFadeRoundWithoutAJump) {
    program.start();
    auto* panel = new cTestPanel(nullptr);
    load(*panel, fading_panel);
    panel->alphaShow();
    EXPECT_EQ(panel->getChildAlpha(), 0.0f);
    program.frames(5);
    EXPECT_NEAR(panel->getChildAlpha(), 0.5f, 0.001f);
    panel->alphaHide();
    program.frame();
    EXPECT_NEAR(panel->getChildAlpha(), 0.45f, 0.001f);
    panel->alphaShow();
    program.frame();
    EXPECT_NEAR(panel->getChildAlpha(), 0.55f, 0.001f);
    program.frames(5);
    EXPECT_EQ(panel->getChildAlpha(), 1.0f);
    EXPECT_EQ(take(), (std::vector<String>{"showed"}));
    panel->alphaHide();
    program.frames(21);
    EXPECT_EQ(panel->getChildAlpha(), 0.0f);
    EXPECT_EQ(take(), (std::vector<String>{"hid"}));
}

TEST_F(Panel, forgetsItsFadeWhenHiddenAndGoesAfterItsLast) {
    program.start();
    auto* panel = new cTestPanel(nullptr);
    load(*panel, fading_panel);
    panel->alphaShow();
    program.frame();
    panel->hide();
    EXPECT_EQ(panel->getMode(), cAlphaBack::idle);
    panel->alphaShow();
    panel->alphaDiscard();
    program.frames(25);
    EXPECT_FALSE(cView::isValid(panel));
    EXPECT_EQ(take(), (std::vector<String>{}));
}

// A bar 100 x 20 about (200, 100).
TEST_F(Panel, progressCutsOffWhatIsMissing) {
    program.start();
    auto* marker = new cPicture(nullptr);
    const auto bar = [&](const std::string& side, Float value) {
        auto* view = new cProgressFloat(nullptr);
        load(*view, R"(<p position="200 100" size="100 20" ProgressMaxValue="4" Side=")" + side + R"("/>)");
        view->setMarker(marker);
        view->setProgressCurrentValue(value);
        return view->getSprite();
    };
    EXPECT_FLOAT_EQ(bar("1", 1.0f).corners[1].x, 175.0f);
    EXPECT_FLOAT_EQ(bar("1", 1.0f).u1, 0.25f);
    EXPECT_EQ(marker->getPosition(), Vector2(175.0f, 100.0f));
    EXPECT_FLOAT_EQ(bar("0", 1.0f).corners[2].x, 225.0f);
    EXPECT_FLOAT_EQ(bar("2", 2.0f).corners[0].y, 100.0f);
    EXPECT_FLOAT_EQ(bar("3", 2.0f).v1, 0.5f);
    EXPECT_FLOAT_EQ(bar("1", 9.0f).corners[3].x, 250.0f);
    EXPECT_FLOAT_EQ(bar("1", -3.0f).corners[3].x, 150.0f);
}

// A bar from 100 to 300 for the values 10 to 20.
TEST_F(Panel, sliderReachesExactlyItsEnds) {
    program.start();
    auto* box = new cScrollBox(nullptr);
    load(*box, R"(<s Visible="1" Enable="1" position="200 100" size="200 10" Min="10" Max="20" Value="15">
        <Slider Visible="1" Enable="1" size="10 10"/></s>)");
    box->setOnChange([](cScrollBox*, Float value) { events.push_back("value " + std::to_string(value)); });
    box->setOnDrag([](cScrollBox*, Bool dragging) { events.push_back(dragging ? "drag" : "drop"); });
    program.moveCursor(250.0f, 100.0f);
    program.frame();
    EXPECT_EQ(box->getValue(), 15.0f);
    program.press();
    program.frame();
    EXPECT_FLOAT_EQ(box->getValue(), 17.5f);
    EXPECT_EQ(take(), (std::vector<String>{"drag", "value 17.500000"}));
    program.moveCursor(300.0f, 400.0f);
    program.frame();
    EXPECT_EQ(box->getValue(), 20.0f);
    program.moveCursor(0.0f, 100.0f);
    program.frame();
    EXPECT_EQ(box->getValue(), 10.0f);
    take();
    program.release();
    program.frame();
    program.moveCursor(200.0f, 100.0f);
    program.frame();
    EXPECT_EQ(box->getValue(), 10.0f);
    EXPECT_EQ(take(), (std::vector<String>{"drop"}));
}

// A map of 1000 units on a screen of 800: the offset goes from 0 to 200.
TEST_F(Panel, scrollsToItsEndsAndBrakesToAStandstill) {
    program.start();
    auto* map = new cScrollBack(nullptr);
    load(*map, R"(<m Visible="1" Enable="1" MapWidth="1000" MoveSpeed="200" MoveAccel="900" CursorMoveZone="50"/>)");
    auto* house = new cControl(nullptr);
    map->registerControl(house);
    program.moveCursor(5.0f, 300.0f);
    program.frames(5);
    EXPECT_EQ(map->getSpeed(), 0.0f);  // at the left end already
    program.moveCursor(795.0f, 300.0f);
    program.frames(20);
    EXPECT_EQ(map->getSpeed(), -200.0f);
    program.moveCursor(400.0f, 300.0f);
    for (UInt i = 0; i < 20; ++i) {
        program.frame();
        EXPECT_LE(map->getSpeed(), 0.0f);
    }
    EXPECT_EQ(map->getSpeed(), 0.0f);
    program.moveCursor(795.0f, 300.0f);
    program.frames(100);
    EXPECT_EQ(map->getOffset(), 200.0f);
    EXPECT_NEAR(house->getPosition().x, -200.0f, 0.01f);
}

// Rows of 20 units in a box of 50: two are seen. Items are 100 x 20.
TEST_F(Panel, listShowsWhatFitsAndTellsWhatIsClicked) {
    program.start();
    auto* list = new cListBox(nullptr);
    load(*list, R"(<l Visible="1" Enable="1" Interlinear="20" TopLeft="100 100" BottomRight="200 150">
        <UpButton position="300 100" size="10 10"/><DownButton position="300 150" size="10 10"/>
        <Button size="100 20"/></l>)");
    list->setOnSelect([](UInt item, cListBox* self) { events.push_back(toNarrow(self->getString(item))); });
    list->setStrings({u"a"});
    program.frame();
    list->setFirstLine(7);
    EXPECT_EQ(list->getFirstLine(), 0u);
    click(300.0f, 150.0f);  // nothing to scroll: no button
    EXPECT_EQ(list->getFirstLine(), 0u);

    list->setStrings({u"a", u"b", u"c", u"d"});
    click(150.0f, 112.0f);
    click(300.0f, 150.0f);
    EXPECT_EQ(list->getFirstLine(), 1u);
    click(150.0f, 112.0f);
    EXPECT_EQ(take(), (std::vector<String>{"a", "b"}));
    EXPECT_FALSE(list->getItem(0).isShow());
    EXPECT_FALSE(list->getItem(3).isShow());
    list->setFirstLine(4000000000u);
    EXPECT_EQ(list->getFirstLine(), 2u);
    click(300.0f, 150.0f);
    EXPECT_EQ(list->getFirstLine(), 2u);
    click(300.0f, 100.0f);
    EXPECT_EQ(list->getFirstLine(), 1u);
    list->setStrings({});
    program.frame();
    EXPECT_EQ(list->getFirstLine(), 0u);
}

TEST_F(Panel, questionHoldsItsOwnerUntilItIsAnswered) {
    program.write("UI/YesNo.xml", R"(<y Visible="1" Enable="1" TranparencySpeed="10">
        <YesButton Visible="1" Enable="1" position="100 100" size="50 50"/>
        <NoButton Visible="1" Enable="1" position="200 100" size="50 50"/></y>)");
    program.start();
    auto* owner = new cView(nullptr);
    owner->show();
    owner->enable();
    const auto ask = [&] {
        auto* question = new cYesNo(owner);
        question->setOnYes([](cView*) { events.push_back("yes"); });
        question->setOnNo([](cView*) { events.push_back("no"); });
        question->showTransparently();
        program.frames(10);
        return question;
    };
    const cYesNo* first = ask();
    EXPECT_TRUE(owner->isLocked());
    EXPECT_FALSE(owner->isEnabled());
    click(200.0f, 100.0f);
    program.frames(20);
    EXPECT_FALSE(cView::isValid(first));
    EXPECT_FALSE(owner->isLocked());
    EXPECT_TRUE(owner->isEnabled());
    ask();
    click(100.0f, 100.0f);
    program.frames(20);
    EXPECT_EQ(take(), (std::vector<String>{"no", "yes"}));

    ask();
    delete owner;  // nobody is left to be told
    click(100.0f, 100.0f);
    program.frames(20);
    EXPECT_EQ(take(), (std::vector<String>{}));
}

namespace {

/// Three letters side by side on a line.
class cThreeLetters : public cControl {
public:
    explicit cThreeLetters(cView* parent)
        : cControl(parent), m_letters{new cLetter(this), new cLetter(this), new cLetter(this)} {}
    const std::array<cLetter*, 3>& getLetters() const { return m_letters; }

private:
    std::array<cLetter*, 3> m_letters;
};

}  // namespace

// Up to 3 units from the line at 100 units a second: two frames there, two back.
TEST_F(Panel, lettersOfAPressedButtonJumpApartAndComeToRestOnTheLine) {
    program.start();
    auto* text = new cBtnText<cThreeLetters>(nullptr);
    load(*text, R"(<t Visible="1" Enable="1" position="10 100.3" Offset="3" Speed="100"/>)");
    const auto heights = [&] {
        std::vector<Float> res;
        for (const cLetter* letter : text->getLetters())
            res.push_back(letter->getPosition().y);
        return res;
    };
    for (cLetter* letter : text->getLetters())
        letter->setPosition(text->getPosition());
    const Float line = text->getPosition().y;
    EXPECT_EQ(heights(), std::vector<Float>(3, line));
    text->setState(eButtonState::pressed);
    program.frame();
    EXPECT_FLOAT_EQ(heights()[0], line + 2.0f);
    EXPECT_FLOAT_EQ(heights()[1], line - 2.0f);
    program.frames(3);
    EXPECT_EQ(heights(), (std::vector<Float>{line + 3.0f, line - 3.0f, line + 3.0f}));
    text->setState(eButtonState::hovered);
    program.frames(4);
    EXPECT_EQ(heights(), std::vector<Float>(3, line));
}

TEST_F(Panel, textOfAButtonStandsInItsMiddleAndGoesAlong) {
    program.start();
    auto* button = new cTextButton(nullptr);
    load(*button, R"(<b position="100 50" size="80 20"><Text position="7 7"/></b>)");
    EXPECT_EQ(button->getTextView().getPosition(), Vector2(100.0f, 50.0f));
    button->setPosition({110.0f, 60.0f});
    EXPECT_EQ(button->getTextView().getPosition(), Vector2(110.0f, 60.0f));
    button->setAlpha(0.5f);  // as a panel does that fades
    EXPECT_EQ(button->getTextView().getAlpha(), 0.5f);
}

}  // namespace Engine
