#include "Game/CommonUI/TicksHolder.h"

#include <gtest/gtest.h>

#include <optional>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/Ui/Scavenger.h"
#include "Game/CommonUI/ProgressFloatExt.h"
#include "Tests/Support/HeadlessProgram.h"

using namespace Engine;

namespace {

class TicksHolder : public ::testing::Test {
protected:
    TicksHolder() {
        program.write("ticks.xml",
                      "<t tick_offset=\"8,1\"><TickProto position=\"-20,-30\" deep=\"5\" Visible=\"1\"/></t>");
        program.write("bar.xml", "<b position=\"50,60\" deep=\"10\"><Back position=\"2,3\"/></b>");
        program.start();
        ticks.emplace();
        loadView(*ticks, "ticks.xml");
    }
    cPicture* makeParent(const Vector2& position) {
        auto* parent = new cPicture(nullptr);
        parent->setPosition(position);
        parent->setDeep(100.0f);
        parent->show();
        return parent;
    }

    cHeadlessProgram program;
    std::optional<cTicksHolder> ticks;
};

}  // namespace

TEST_F(TicksHolder, marksStandInARowAndGoWithTheirParent) {
    cPicture* parent = makeParent({300, 200});
    ticks->setTicksParent(parent);
    ticks->addTick();
    ticks->addTick();
    EXPECT_EQ(ticks->getTick(0)->getPosition(), Vector2(280, 170));
    EXPECT_EQ(ticks->getTick(1)->getPosition(), Vector2(288, 171));
    EXPECT_FLOAT_EQ(ticks->getTick(1)->getDeep(), 105.0f);
    parent->setPosition({310, 200});
    EXPECT_EQ(ticks->getTick(1)->getPosition(), Vector2(298, 171));
    ticks->showTicks(false);
    EXPECT_FALSE(ticks->getTick(0)->isShown());

    const cPicture* first = ticks->getTick(0);
    ticks->deleteTick();
    ticks->clearAllTicks();
    ticks->deleteTick();
    EXPECT_EQ(ticks->getTicksCount(), 0u);
    program.frame();
    EXPECT_FALSE(cView::isValid(first));
}

TEST_F(TicksHolder, marksMoveToAnotherParent) {
    cPicture* first = makeParent({300, 200});
    cPicture* second = makeParent({500, 400});
    ticks->setTicksParent(first);
    ticks->addTick();
    const cPicture* mark = ticks->getTick(0);
    ticks->setTicksParent(second);
    EXPECT_EQ(mark->getPosition(), Vector2(480, 370));
    ticks->setTicksParent(nullptr);
    discard(static_cast<cView*>(second), here());
    program.frame();
    EXPECT_TRUE(cView::isValid(mark));
    EXPECT_EQ(mark->getPosition(), Vector2(480, 370));
    ticks.reset();
    program.frame();
    EXPECT_FALSE(cView::isValid(mark));
}

TEST_F(TicksHolder, aBarIsSeenInFrontOfWhatLiesBehindIt) {
    auto* bar = new cProgressFloatExt(nullptr);
    loadView(*bar, "bar.xml");
    ASSERT_NE(bar->getBack(), nullptr);
    EXPECT_EQ(bar->getBack()->getPosition(), Vector2(52, 63));
    EXPECT_LT(bar->getBack()->getDeep(), bar->getDeep());
    EXPECT_FALSE(bar->getBack()->isShown());
    bar->show();
    EXPECT_TRUE(bar->getBack()->isShown());
    bar->setAlpha(0.5f);
    EXPECT_FLOAT_EQ(bar->getBack()->getAlpha(), 0.5f);
}
