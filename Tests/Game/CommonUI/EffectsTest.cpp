// Effects over a level and numbers that fly up.
#include <gtest/gtest.h>

#include "Engine/Ui/TextLine.h"
#include "Game/CommonUI/FlyingNumber.h"
#include "Game/CommonUI/TimedEffect.h"
#include "Tests/Support/SmallLevel.h"

using namespace Engine;

namespace {

// 0, the start point, --100-- 1
const char* const one_arc =
    "<Level Size=\"1000,600\"><Points><P Position=\"300,300\"/><P Position=\"400,300\"/></Points>"
    "<Arcs><A p0=\"0\" p1=\"1\" type=\"1\"/></Arcs><Buildings>";

class Effects : public ::testing::Test {
protected:
    void start(const std::string& effect = "") {
        level.getProgram().write("Effects/NewProductEffect.xml", "<e position=\"0,-10\" deep=\"2\" " + effect + "/>");
        level.getProgram().write("Effects/FlyingNumber.xml",
                                 "<f deep=\"9\" offset=\"5,0\" fly_up_dir=\"0,-50\" fly_up_time=\"0.5\">"
                                 "<Number position=\"1,2\" deep=\"1\"/><Icons><I position=\"3,0\"/></Icons></f>");
        level.start(one_arc + startPoint("300,300", 0) + "</Buildings></Level>");
    }
    cTimedEffect* makeEffect() {
        auto* effect = new cTimedEffect(level.getMap().getObjectsLayer(), "Effects/NewProductEffect.xml");
        effect->show();
        effect->enable();
        return effect;
    }

    cSmallLevel level;
};

}  // namespace

TEST_F(Effects, fadesInStaysFadesOutAndIsGone) {
    start("show_alpha_time=\"0.1\" time=\"0.1\" hide_alpha_time=\"0.1\"");
    const cTimedEffect* effect = makeEffect();
    EXPECT_FLOAT_EQ(effect->getAlpha(), 0.0f);
    level.frames(3);
    EXPECT_NEAR(effect->getAlpha(), 0.6f, 1e-3f);
    level.frames(5);
    EXPECT_FLOAT_EQ(effect->getAlpha(), 1.0f);
    level.frames(6);
    EXPECT_LT(effect->getAlpha(), 1.0f);
    EXPECT_GE(effect->getAlpha(), 0.0f);
    level.frames(4);
    EXPECT_FALSE(cView::isValid(effect));
}

TEST_F(Effects, endsInItsFirstFrameWithoutATime) {
    start();
    const cTimedEffect* effect = makeEffect();
    level.frames(1);
    EXPECT_FALSE(cView::isValid(effect));
}

TEST_F(Effects, goesWithTheObjectThatItHangsOnAndElseWithTheMap) {
    level.getProgram().write("GameUI/TacticMap.xml",
                             "<Map BirdsPossibility=\"0\" CloudsPossibility=\"0\" MoveSpeed=\"500\" MoveAccel=\"5000\" "
                             "CursorMoveZone=\"20\" "
                             "new_level_effect_time=\"0.1\" new_level_startup_delta=\"0.5\"/>");
    start("time=\"9\"");
    cTacticMap& map = level.getMap();
    cBuilding* building = level.getBuilding(0);
    auto* hanging = new cSimpleEffect(building, "Effects/NewProductEffect.xml");
    hanging->setPosition(building->getPosition());
    cTimedEffect* lying = makeEffect();
    lying->setPosition(building->getPosition());
    auto* number = new cFlyingNumber(nullptr, 300, 300, 1, 0, false);
    const Float start_x = building->getPosition().x;
    const Float number_x = number->getPosition().x;
    level.getProgram().moveCursor(799, 300);
    level.frames(5);
    EXPECT_LT(building->getPosition().x, start_x);
    EXPECT_FLOAT_EQ(hanging->getPosition().x, building->getPosition().x);
    EXPECT_FLOAT_EQ(lying->getPosition().x, building->getPosition().x);
    EXPECT_FLOAT_EQ(number->getPosition().x - number_x, building->getPosition().x - start_x);
    map.clear();
    level.frames(1);
    for (const cView* view : {static_cast<cView*>(hanging), static_cast<cView*>(lying), static_cast<cView*>(number)})
        EXPECT_FALSE(cView::isValid(view));
}

TEST_F(Effects, goodsThatComeSparkleOverTheirStore) {
    start("time=\"9\"");
    const ULongLong last_number = makeEffect()->getCreationNumber();
    EXPECT_EQ(level.getBuilding(0)->addResourceItems(resourceWood, 2), 2);
    const auto* effect = new cView(nullptr);
    EXPECT_EQ(effect->getCreationNumber(), last_number + 2);  // one view was made between the two
}

TEST_F(Effects, aNumberTellsWhatHasComeOrGone) {
    start();
    cBuilding* building = level.getBuilding(0);
    const auto text = [&](Int amount) {
        const auto* number = new cFlyingNumber(building, 300, 300, amount, 0, false);
        EXPECT_FLOAT_EQ(number->getDeep(), building->getDeep() + 1.0f);
        EXPECT_EQ(number->getNumber().getPosition(), Vector2(306, 302));
        EXPECT_FLOAT_EQ(number->getNumber().getDeep(), building->getDeep() + 2.0f);
        return number->getNumber().getText();
    };
    EXPECT_EQ(text(1), u"+1");
    EXPECT_EQ(text(-3), u"-3");
    EXPECT_EQ(text(0), u"-0");
    EXPECT_EQ(text(-2147483647 - 1), u"-2147483648");
    const cFlyingNumber gone(nullptr, 0, 0, -3, 7, true);
    EXPECT_NEAR(gone.getNumber().getColor().g, 0x60 / 255.0f, 1e-4f);
}

TEST_F(Effects, aNumberFliesItsWayAndIsGone) {
    start();
    const auto* number = new cFlyingNumber(level.getMap().getObjectsLayer(), 300, 300, 1, 0, false);
    EXPECT_FLOAT_EQ(number->getDeep(), 9.0f);
    level.frames(10);
    EXPECT_NEAR(number->getPosition().y, 280.0f, 1e-2f);
    EXPECT_NEAR(number->getNumber().getAlpha(), 0.6f, 1e-3f);
    level.frames(15);
    EXPECT_FALSE(cView::isValid(number));
}
