#include "Game/GameUI/Tactic/ControlPanel.h"

#include <gtest/gtest.h>

#include "Engine/Ui/TextLine.h"
#include "Game/CommonUI/IconText.h"
#include "Game/CommonUI/PriceList.h"
#include "Game/GameUI/Tactic/PanelButtons.h"
#include "Game/Ui/GameStrings.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

namespace {

const char* const panel =
    "<p><GlobalResources ShowIfZero=\"1\"><List><i><Icon/></i><i><Icon/></i><i><Icon/></i><i><Icon/></i><i><Icon/></i>"
    "</List></GlobalResources><MenAmount Enable=\"1\"><Icon/></MenAmount>"
    "<BuyManButton position=\"600,20\" size=\"40,40\" deep=\"1010\" IsDeepProcessing=\"1\" osc_scale_time=\"100\" "
    "Enable=\"1\"/>"
    "<GoBackButton position=\"70,20\" size=\"40,40\" deep=\"1010\" IsDeepProcessing=\"1\" Enable=\"1\"/>"
    "<IdolButton position=\"650,20\" size=\"40,40\" deep=\"1010\" Enable=\"1\"/>"
    "<Bar position=\"400,20\" size=\"800,40\" deep=\"1000\" IsDeepProcessing=\"1\" Visible=\"1\" Enable=\"1\"/></p>";

// The start point 0 with 20 money and 3 wood; a man costs 8 money.
class ControlPanel : public ::testing::Test {
protected:
    void start(const std::string& limit = "MaxAmount=\"4\"") {
        level.getProgram().write("GameUI/ControlPanel.xml", panel);
        level.getProgram().write("GameLogic/Idol.xml", "<o><Upgrades><u Money=\"5\" Wood=\"3\"/></Upgrades></o>");
        level.getProgram().write("GameLogic/StartPoint.xml",
                                 "<o size=\"40,30\" deep=\"0\" Enable=\"1\" ellipse_a=\"20\" ellipse_b=\"12\" "
                                 "arrangement_delta=\"0.6\" speed=\"400\" IsDeepProcessing=\"1\"/>");
        level.start(
            "<L Size=\"800,600\"><Points><P Pos=\"400,36\"/><P Pos=\"500,300\"/></Points>"
            "<Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/></Arcs><Buildings>"
            "<B Type=\"8\" Position=\"400,36\" Capacity=\"50\" MenAmount=\"2\" " +
            limit +
            " Money=\"20\" Wood=\"3\"><Points><P index=\"0\"/></Points><ManCost Money=\"8\"/></B>"
            "</Buildings></L>");
    }
    void letTheCaravanCome() {
        level.frames(200);
        ASSERT_EQ(level.getMap().getMen().size(), 2u);
    }
    void click(Float x, Float y) {
        level.getProgram().moveCursor(x, y);
        level.frames(2);
        level.getProgram().press();
        level.frames(2);
        level.getProgram().release();
        level.frames(2);
    }
    cControlPanel& get() { return level.getMap().getControlPanel(); }
    Int getMoney() { return get().getResources().getValue(resourceMoney); }

    cSmallLevel level;
};

}  // namespace

TEST_F(ControlPanel, comesWithTheCaravanAndGoesWithTheLevel) {
    start();
    EXPECT_FALSE(get().isShown());
    EXPECT_FALSE(level.getMap().isPanelAt({20, 20}));
    letTheCaravanCome();
    EXPECT_TRUE(get().isShown());
    EXPECT_TRUE(level.getMap().isPanelAt({20, 20}));
    EXPECT_FALSE(level.getMap().isPanelAt({20, 41}));
    EXPECT_EQ(getMoney(), 20);
    EXPECT_EQ(get().getResources().getValue(resourceWood), 3);
    EXPECT_EQ(get().getCapacityText().getText(), u"23/50");
    EXPECT_EQ(get().getMenText().getText(), u"2/4");
    level.getMap().clear();
    EXPECT_FALSE(get().isShown());
}

TEST_F(ControlPanel, sellsMenAsLongAsThereIsMoney) {
    start("");
    letTheCaravanCome();
    EXPECT_TRUE(get().getManButton().canBeBought());
    EXPECT_TRUE(get().getManButton().isOscillating());
    click(600, 20);
    EXPECT_EQ(level.getMap().getMen().size(), 3u);
    EXPECT_EQ(get().getMenText().getText(), u"3");
    EXPECT_EQ(getMoney(), 12);
    click(600, 20);
    EXPECT_EQ(getMoney(), 4);
    EXPECT_FALSE(get().getManButton().canBeBought());
    EXPECT_FALSE(get().getManButton().isOscillating());
    click(600, 20);
    EXPECT_EQ(level.getMap().getMen().size(), 4u);
}

TEST_F(ControlPanel, anIdolTakesThePlanAndItsPrice) {
    start();
    letTheCaravanCome();
    EXPECT_TRUE(get().getIdolButton().isShown());
    EXPECT_FALSE(get().getIdolButton().canBeBought());
    level.getMap().setProduct(26, 1);
    level.getMap().updateControlPanel();
    EXPECT_TRUE(get().getIdolButton().canBeBought());
    EXPECT_FALSE(get().getCatapultButton().canBeBought());
    level.getMap().consumeGlobalResources({{0, 0, 1, 0, 0}}, 0);
    EXPECT_FALSE(get().getIdolButton().canBeBought());
}

TEST_F(ControlPanel, leadsBackWhereThereIsALevelBefore) {
    for (const char* texts : {"GameStrings.xml", "YesNoStrings.xml"})
        level.getProgram().write(texts, "<g><Strings/></g>");
    level.getProgram().write("UI/YesNo.xml", "<Question/>");
    start("PrevLevel=\"0\"");
    const cGameStrings strings;
    letTheCaravanCome();
    click(70, 20);
    EXPECT_TRUE(level.getMap().isLocked());  // by the question
}

TEST_F(ControlPanel, leadsNowhereFromTheFirstLevel) {
    start("PrevLevel=\"-1\"");
    letTheCaravanCome();
    click(70, 20);
    EXPECT_FALSE(level.getMap().isLocked());
}

TEST_F(ControlPanel, whatIsLackingBlinks) {
    start();
    letTheCaravanCome();
    get().showLack({{20, 0, 4, 0, 0}}, 3);
    const auto blinks = [&](UInt type) { return get().getResources().getItem(type).isBlinking(); };
    EXPECT_FALSE(blinks(resourceMoney));
    EXPECT_TRUE(blinks(resourceWood));
    EXPECT_TRUE(get().getMenText().isBlinking());
    Bool was_dark = false;
    for (UInt i = 0; i < 100; ++i) {
        level.frames(1);
        was_dark = was_dark || get().getMenText().getIcon().getAlpha() == 0.0f;
    }
    EXPECT_TRUE(was_dark);
    EXPECT_FALSE(get().getMenText().isBlinking());
    EXPECT_FLOAT_EQ(get().getMenText().getIcon().getAlpha(), 1.0f);
}

// The start point lies below the bar.
TEST_F(ControlPanel, keepsThePointerFromWhatLiesBelow) {
    start();
    letTheCaravanCome();
    const auto is_hovered = [&](Float y) {
        level.getProgram().moveCursor(400, 300);
        level.frames(2);
        level.getProgram().moveCursor(400, y);
        level.frames(2);
        return level.getBuilding(0)->getState() == eButtonState::hovered;
    };
    EXPECT_TRUE(is_hovered(44));
    EXPECT_FALSE(is_hovered(36));
}
