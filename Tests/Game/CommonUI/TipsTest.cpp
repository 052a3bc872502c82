#include "Game/CommonUI/Tips.h"

#include <gtest/gtest.h>

#include <optional>

#include "Engine/Ui/Button.h"
#include "Engine/Ui/TextLine.h"
#include "Game/CommonUI/IconText.h"
#include "Game/CommonUI/PriceList.h"
#include "Game/CommonUI/TipWorld.h"
#include "Game/Ui/GameStrings.h"
#include "Tests/Support/HeadlessProgram.h"

using namespace Engine;

namespace {

/// A button of 40 x 20 at (600, 100) that tells its tip about itself.
class cTalkingButton : public cTips<cButton>, public iExtendedInfoTip {
public:
    using cTips::cTips;
    void updateInfoTipCargo(sInfoTip& info) override { info = cargo; }
    void updateInfoTipPrice(sInfoTip& info) override { info = price; }
    Bool says(const WString& text) {
        Bool found = false;
        getChildren().walk([&](cView* child) {
            const auto* line = dynamic_cast<cTextLine*>(child);
            found = found || (line && line->isShow() && line->getText() == text);
        });
        return found;
    }
    Int countLists() {
        Int shown = 0;
        getChildren().walk([&](cView* child) { shown += dynamic_cast<cPriceList*>(child) && child->isShow() ? 1 : 0; });
        return shown;
    }

    sInfoTip cargo;
    sInfoTip price;
};

class cWorld : public iTipWorld {
public:
    std::array<Int, 5> getStock() const override { return stock; }
    Int getFreeMen() const override { return free_men; }
    Bool isPointedAt(const cView&) const override { return pointed; }

    std::array<Int, 5> stock{};
    Int free_men = 0;
    Bool pointed = false;
};

constexpr char items[] =
    "<List><i><Icon/></i><i><Icon/></i><i><Icon/></i><i><Icon/></i><i><Icon/></i><men><Icon/></men></List>";

class Tips : public ::testing::Test {
protected:
    Tips() {
        program.write("GameStrings.xml", "<g><Strings><s id=\"not_enough\" value=\"Not enough:\"/></Strings></g>");
        program.write("YesNoStrings.xml", "<g/>");
        program.write("button.xml", std::string("<b Visible=\"1\" Enable=\"1\" position=\"600,100\" size=\"40,20\">"
                                                "<Tip WaitTime=\"0.5\" TipsAlphaChangeTime=\"0.2\" Position=\"1,2\" "
                                                "Offset=\"30,50\">"
                                                "<Image position=\"0,0\" size=\"90,60\" deep=\"300\"/>"
                                                "<Pics><p position=\"3,4\" deep=\"310\"/></Pics>"
                                                "<Cargo>") +
                                        items + "</Cargo><Price>" + items +
                                        "</Price><CargoText/><PriceText String=\"Price:\"/></Tip></b>");
        program.start();
        strings.emplace();
        iTipWorld::set(nullptr);
        leave();
        program.frame();
    }
    ~Tips() override { iTipWorld::set(nullptr); }

    template <class T>
    T* make() {
        auto* view = new T(nullptr);
        loadView(*view, "button.xml");
        return view;
    }
    void seconds(Float time) { program.frames(static_cast<UInt>(time / 0.02f + 0.5f)); }
    void hover() { program.moveCursor(600, 100); }
    void leave() { program.moveCursor(10, 500); }
    void click() {
        program.press();
        program.frame();
        program.release();
        program.frame();
    }

    cHeadlessProgram program;
    std::optional<cGameStrings> strings;
    cWorld world;
};

}  // namespace

TEST_F(Tips, fadesInAfterTheWaitAndOutWhenThePointerGoes) {
    auto* button = make<cTips<cButton>>();
    hover();
    seconds(0.5f);
    EXPECT_EQ(button->getTip().getAlpha(), 0.0f);
    seconds(0.12f);
    EXPECT_GT(button->getTip().getAlpha(), 0.3f);
    EXPECT_LT(button->getTip().getAlpha(), 0.8f);
    seconds(0.2f);
    EXPECT_EQ(button->getTip().getAlpha(), 1.0f);
    leave();
    seconds(0.1f);
    EXPECT_LT(button->getTip().getAlpha(), 0.8f);
    seconds(0.2f);
    EXPECT_EQ(button->getTip().getAlpha(), 0.0f);
}

TEST_F(Tips, aHoverThatEndsDuringTheWaitShowsNothing) {
    auto* button = make<cTips<cButton>>();
    hover();
    seconds(0.4f);
    leave();
    seconds(1.0f);
    EXPECT_EQ(button->getTip().getAlpha(), 0.0f);
}

TEST_F(Tips, aPictureLooksForThePointerItself) {
    auto* picture = make<cTips<cPicture>>();
    hover();
    seconds(0.8f);
    EXPECT_EQ(picture->getTip().getAlpha(), 1.0f);
    picture->disable();
    EXPECT_EQ(picture->getTip().getAlpha(), 0.0f);
}

TEST_F(Tips, staysAwayWhilePointedAtOrSuppressed) {
    auto* button = make<cTips<cButton>>();
    iTipWorld::set(&world);
    world.pointed = true;
    hover();
    seconds(1.0f);
    EXPECT_EQ(button->getTip().getAlpha(), 0.0f);
    world.pointed = false;
    leave();
    program.frame();
    button->setTipSuppressed(true);
    hover();
    seconds(1.0f);
    EXPECT_EQ(button->getTip().getAlpha(), 0.0f);
    leave();
    program.frame();
    hover();  // the going has lifted it
    seconds(1.0f);
    EXPECT_EQ(button->getTip().getAlpha(), 1.0f);
}

TEST_F(Tips, aClickOnAFullTipSendsItAwayOrTellsWhatIsLacking) {
    auto* button = make<cTalkingButton>();
    iTipWorld::set(&world);
    world.stock = {10, 0, 0, 0, 0};
    button->price.cargo = {7, 0, 0, 0, 0};
    button->price.compare_global = true;
    hover();
    seconds(0.6f);
    click();  // during the fade: nothing
    EXPECT_FALSE(button->getTip().isInLackMode());
    seconds(0.5f);
    EXPECT_EQ(button->getTip().getAlpha(), 1.0f);
    EXPECT_TRUE(button->getTip().isCovered());
    click();
    seconds(0.5f);
    EXPECT_EQ(button->getTip().getAlpha(), 0.0f);

    leave();
    program.frame();
    world.stock = {4, 0, 0, 0, 0};
    hover();
    seconds(1.0f);
    EXPECT_FALSE(button->getTip().isCovered());
    click();
    EXPECT_TRUE(button->getTip().isInLackMode());
    EXPECT_TRUE(button->says(u"Not enough:"));
    EXPECT_EQ(button->getTip().getAlpha(), 1.0f);
    leave();
    program.frame();
    hover();
    seconds(0.7f);
    EXPECT_FALSE(button->getTip().isInLackMode());
    EXPECT_TRUE(button->says(u"Price:"));
}

TEST_F(Tips, tellAtOnceWhatAClickHasOrdered) {
    auto* button = make<cTalkingButton>();
    button->price.text = u"Build";
    button->setOnClick([](cView* view) {
        static_cast<cTalkingButton*>(view)->price = {};
        static_cast<cTalkingButton*>(view)->cargo.text = u"Being built";
    });
    hover();
    seconds(0.2f);
    click();  // before the tip has come
    seconds(1.0f);
    EXPECT_TRUE(button->says(u"Being built"));
    EXPECT_FALSE(button->says(u"Build"));
}

TEST_F(Tips, tellOfALackInEitherHalfAndNothingOfAHalfThatHasNothingToTell) {
    auto* button = make<cTalkingButton>();
    iTipWorld::set(&world);
    button->price.men = 2;
    hover();
    seconds(1.0f);
    EXPECT_EQ(button->countLists(), 1);
    leave();
    seconds(0.5f);

    button->price = {};  // the list still holds its men
    button->cargo.cargo = {0, 3, 0, 0, 0};
    button->cargo.compare_global = true;
    hover();
    seconds(1.0f);
    EXPECT_EQ(button->countLists(), 1);
    EXPECT_FALSE(button->says(u"Price:"));
    click();
    EXPECT_TRUE(button->says(u"Not enough:"));
    EXPECT_EQ(button->countLists(), 1);
}

TEST_F(Tips, doNotComeFromBelowWhatThePointerLiesOn) {
    auto* below = make<cTips<cButton>>();
    auto* above = make<cTips<cButton>>();
    for (auto* button : {below, above})
        button->setDeepProcessing(true);
    above->setDeep(1.0f);
    below->disable();
    hover();
    program.frames(2);
    below->enable();
    seconds(1.0f);
    EXPECT_EQ(above->getTip().getAlpha(), 1.0f);
    EXPECT_EQ(below->getTip().getAlpha(), 0.0f);
    above->disable();
    program.moveCursor(601, 100);
    seconds(1.0f);
    EXPECT_EQ(below->getTip().getAlpha(), 1.0f);
}

TEST(ScreenSide, theMiddleCountsAsLeftAndAbove) {
    EXPECT_EQ(getRoomySide({400.0f, 300.0f}), eScreenSide::downRight);
    EXPECT_EQ(getRoomySide({401.0f, 300.0f}), eScreenSide::downLeft);
    EXPECT_EQ(getRoomySide({400.0f, 301.0f}), eScreenSide::upRight);
    EXPECT_EQ(getRoomySide({401.0f, 301.0f}), eScreenSide::upLeft);
}

// Price lists ------------------------------------------------------------------------------------------------------

namespace {

class PriceList : public ::testing::Test {
protected:
    cPriceList* make(const std::string& attributes) {
        program.write("list.xml",
                      "<l Visible=\"1\" Enable=\"1\" position=\"100,100\" " + attributes + ">" + items + "</l>");
        program.start();
        auto* list = new cPriceList(nullptr);
        loadView(*list, "list.xml");
        return list;
    }

    cHeadlessProgram program;
};

}  // namespace

TEST_F(PriceList, leavesOutZerosAndMarksWhatIsNotThere) {
    cPriceList* list = make("ShowWithX=\"1\" ShowWithPlus=\"1\"");
    list->updateView();
    for (UInt i = 0; i < 6; ++i)
        EXPECT_FALSE(list->getItem(i).isShow());
    list->setValue(0, 5);
    list->setCompare(0, 5);
    list->setValue(1, 5);
    list->setCompare(1, 4);
    list->setValue(2, -3);
    list->updateView();
    EXPECT_EQ(list->getItem(0).getText(), u"x+5");
    EXPECT_EQ(list->getItem(2).getText(), u"x-3");
    EXPECT_FALSE(list->getItem(3).isShow());
    EXPECT_EQ(toPackedColor(list->getItem(0).getColor()), 0xFFE0E000u);
    EXPECT_EQ(toPackedColor(list->getItem(1).getColor()), 0xFFFF6060u);
    EXPECT_THROW(list->setValue(6, 1), String);
}

// Three in a row below, four in two columns.
TEST_F(PriceList, layoutsByTheNumberShown) {
    cPriceList* list = make("Compact=\"1\" Offset=\"40,20\" Base=\"10,0\"");
    for (const UInt i : {0u, 2u, 5u})
        list->setValue(i, 1);
    list->updateView();
    EXPECT_EQ(list->getItem(0).getPosition(), Vector2(70, 120));
    EXPECT_EQ(list->getItem(2).getPosition(), Vector2(110, 120));
    EXPECT_EQ(list->getItem(5).getPosition(), Vector2(150, 120));
    EXPECT_EQ(list->getSum(), 3);
    list->setValue(3, 4);
    list->updateView();
    EXPECT_EQ(list->getItem(0).getPosition(), Vector2(90, 110));
    EXPECT_EQ(list->getItem(2).getPosition(), Vector2(90, 130));
    EXPECT_EQ(list->getItem(3).getPosition(), Vector2(130, 110));
    EXPECT_EQ(list->getItem(5).getPosition(), Vector2(130, 130));
}

TEST_F(PriceList, anItemWithoutItsIconIsRefused) {
    program.write("text.xml", "<t/>");
    program.start();
    auto* text = new cIconText(nullptr);
    EXPECT_THROW(loadView(*text, "text.xml"), const char*);
}
