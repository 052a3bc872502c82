#include "Engine/Ui/View.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "Engine/Ui/Control.h"
#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/ViewSets.h"
#include "Engine/core/Random.h"
#include "Tests/Support/HeadlessProgram.h"

namespace Engine {

namespace {

/// Counts its calls and runs what a test gives it.
class cProbe : public cControl {
public:
    using cControl::cControl;
    ~cProbe() override {
        if (deaths)
            ++*deaths;
    }

    void process() override {
        ++processed;
        if (on_process)
            on_process();
    }
    void absoluteProcess() override { ++ticks; }

    void makeLive() {
        show();
        enable();
    }

    int processed = 0;
    int ticks = 0;
    int* deaths = nullptr;
    std::function<void()> on_process;
};

class View : public ::testing::Test {
protected:
    View() { program.start(); }

    cHeadlessProgram program;
};

Bool isDrawn(const cControl& control) {
    return UI::getDrawSet().contains({control.getDeep(), control.getCreationNumber()});
}

}  // namespace

TEST_F(View, isProcessedOnlyWhileItAndItsAncestorsAreShownAndEnabled) {
    auto* screen = new cProbe(nullptr);
    auto* panel = new cProbe(screen);
    auto* button = new cProbe(panel);
    button->makeLive();
    panel->makeLive();
    program.frame();
    EXPECT_EQ(button->processed, 0);  // the screen is hidden

    screen->makeLive();
    program.frame();
    EXPECT_EQ(button->processed, 1);

    panel->hide();
    program.frame();
    EXPECT_EQ(button->processed, 1);
    EXPECT_FALSE(isDrawn(*button));

    panel->show();
    screen->disable();
    program.frame();
    EXPECT_EQ(button->processed, 1);
    EXPECT_TRUE(isDrawn(*button));

    screen->enable();
    program.frame();
    EXPECT_EQ(button->processed, 2);
}

TEST_F(View, ticksAbsolutelyWhileHiddenAndDisabled) {
    auto* screen = new cProbe(nullptr);
    auto* child = new cProbe(screen);
    child->absoluteEnable();
    program.frame();
    EXPECT_EQ(child->ticks, 0);
    screen->absoluteEnable();
    program.frame();
    EXPECT_EQ(child->ticks, 1);
    EXPECT_EQ(child->processed, 0);
    screen->absoluteDisable();
    program.frame();
    EXPECT_EQ(child->ticks, 1);
}

TEST_F(View, addedDuringTheWalkWaitsForTheNextFrameAndDisabledIsSkippedAtOnce) {
    auto* first = new cProbe(nullptr);
    auto* second = new cProbe(nullptr);
    first->makeLive();
    second->makeLive();
    cProbe* added = nullptr;
    first->on_process = [&] {
        if (added)
            return;
        added = new cProbe(nullptr);
        added->makeLive();
        second->disable();
    };
    program.frame();
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->processed, 0);
    EXPECT_EQ(second->processed, 0);
    program.frame();
    EXPECT_EQ(added->processed, 1);
    EXPECT_EQ(second->processed, 0);
}

TEST_F(View, deletedWithinTheWalkLeavesItUnharmed) {
    auto* first = new cProbe(nullptr);
    auto* second = new cProbe(nullptr);
    first->makeLive();
    second->makeLive();
    first->on_process = [&] {
        if (cView::isValid(second))
            delete second;
    };
    program.frames(2);
    EXPECT_EQ(first->processed, 2);
    EXPECT_FALSE(cView::isValid(second));
}

TEST_F(View, isDiscardedBetweenFramesOnceWithItsChildren) {
    int deaths = 0;
    auto* parent = new cProbe(nullptr);
    auto* child = new cProbe(parent);
    parent->deaths = child->deaths = &deaths;
    parent->makeLive();
    parent->on_process = [&] {
        discard(child, here());
        discard(parent, here());
        discard(parent, "again");
        EXPECT_TRUE(cView::isValid(child));
    };
    program.frame();
    EXPECT_EQ(deaths, 2);
    EXPECT_FALSE(cView::isValid(parent));
    EXPECT_FALSE(cView::isValid(child));
    EXPECT_THROW(discard(static_cast<cView*>(nullptr), here()), const char*);
}

// At 3.3 units a second a fade lasts 16 frames of 20 ms.
TEST_F(View, fadeHoldsTheSceneStillAndEndsByItself) {
    auto* screen = new cProbe(nullptr);
    auto* other = new cProbe(nullptr);
    other->makeLive();
    screen->enable();
    screen->showTransparently();
    EXPECT_EQ(screen->getTransparency(), 0.0f);
    program.frames(16);
    EXPECT_EQ(other->processed, 0);
    EXPECT_GE(screen->getTransparency(), 1.0f);
    program.frame();
    EXPECT_EQ(other->processed, 1);
    EXPECT_EQ(screen->processed, 1);
}

TEST_F(View, fadesInSomeTimeWhateverSpeedTheFileSays) {
    program.stop();
    program.write("view.xml", "<v TranparencySpeed=\"0\" Enable=\"1\"/>");
    program.start();
    auto* screen = new cProbe(nullptr);
    loadView(*screen, "view.xml");
    screen->showTransparently();
    program.frames(17);
    EXPECT_EQ(screen->processed, 1);
}

TEST_F(View, fadesOutFromWhereTheFadeInWasAndComesBackEnabled) {
    auto* screen = new cProbe(nullptr);
    screen->enable();
    screen->showTransparently();
    program.frames(5);
    const Float reached = screen->getTransparency();
    screen->hideTransparently();
    EXPECT_EQ(screen->getTransparency(), reached);
    program.frames(6);
    EXPECT_FALSE(screen->isShow());
    EXPECT_EQ(screen->processed, 0);
    screen->show();
    program.frame();
    EXPECT_EQ(screen->processed, 1);
}

TEST_F(View, fadeOfAChildIsOverAtOnceInsteadOfStoppingTheGame) {
    auto* screen = new cProbe(nullptr);
    auto* child = new cProbe(screen);
    screen->makeLive();
    child->showTransparently();
    program.frame();
    EXPECT_TRUE(UI::getTransparenty().empty());
    child->discardTransparently();
    program.frame();
    EXPECT_FALSE(cView::isValid(child));
    EXPECT_EQ(screen->processed, 0);
    program.frame();
    EXPECT_EQ(screen->processed, 1);
}

TEST_F(View, takesOverTheStateOfItsNewParent) {
    auto* shown = new cProbe(nullptr);
    auto* hidden = new cProbe(nullptr);
    shown->makeLive();
    auto* child = new cProbe(hidden);
    child->makeLive();
    program.frame();
    EXPECT_EQ(child->processed, 0);
    child->setParent(shown);
    program.frame();
    EXPECT_EQ(child->processed, 1);
    EXPECT_TRUE(isDrawn(*child));
    child->setParent(hidden);
    program.frame();
    EXPECT_EQ(child->processed, 1);
    EXPECT_FALSE(isDrawn(*child));
    delete hidden;
    EXPECT_FALSE(cView::isValid(child));
    EXPECT_TRUE(cView::isValid(shown));
}

TEST_F(View, keepsItsChildrensDistanceInDepthAndIsDrawnAtTheNewPlace) {
    auto* low = new cProbe(nullptr);
    auto* high = new cProbe(nullptr);
    auto* child = new cProbe(low);
    child->setDeep(0.5f);
    for (cProbe* control : {low, high, child})
        control->show();
    high->setDeep(3.0f);

    const auto drawn = [] {
        std::vector<cControl*> order;
        UI::getDrawSet().walk([&](cControl* control) { order.push_back(control); });
        return order;
    };
    EXPECT_EQ(drawn(), (std::vector<cControl*>{low, child, high}));
    low->setDeep(5.0f);
    EXPECT_EQ(drawn(), (std::vector<cControl*>{high, low, child}));
    EXPECT_FLOAT_EQ(child->getDeep(), 5.5f);
    low->hide();
    low->setDeep(1.0f);
    EXPECT_EQ(drawn(), (std::vector<cControl*>{high}));
    low->show();
    EXPECT_EQ(drawn(), (std::vector<cControl*>{low, child, high}));
}

// Random operations on a small forest: after each frame every set agrees with the switches of the views.
TEST_F(View, setsAgreeWithTheSwitchesAfterAnyOperations) {
    std::vector<cProbe*> views;
    cRandom dice;
    dice.setSeed(7);
    const auto roll = [&](std::size_t sides) { return static_cast<std::size_t>(dice.next()) % sides; };
    const auto act = [&](cProbe* view) {
        switch (roll(7)) {
            case 0:
                return view->show();
            case 1:
                return view->hide();
            case 2:
                return view->enable();
            case 3:
                return view->disable();
            case 4:
                return view->absoluteEnable();
            case 5:
                return view->absoluteDisable();
            default:
                return view->setDeep(static_cast<Float>(roll(10)));
        }
    };
    for (int step = 0; step < 3000; ++step) {
        if (views.size() < 12)
            views.push_back(new cProbe(views.empty() || roll(3) == 0 ? nullptr : views[roll(views.size())]));
        cProbe* view = views[roll(views.size())];
        if (roll(25) == 0)
            discard(view, here());
        else
            act(view);
        cProbe* actor = views[roll(views.size())];
        cProbe* target = views[roll(views.size())];
        actor->on_process = [&act, target] { act(target); };  // within the walk
        program.frame();
        std::erase_if(views, [](cProbe* probe) { return !cView::isValid(probe); });
        for (cProbe* probe : views)
            probe->on_process = nullptr;
        for (const cProbe* probe : views) {
            const cView* parent = probe->getParent();
            const auto* up = static_cast<const cProbe*>(parent);
            const Bool shown = probe->isShow() && (!up || up->isShown());
            ASSERT_EQ(probe->isShown(), shown) << "step " << step;
            ASSERT_EQ(isDrawn(*probe), shown) << "step " << step;
            ASSERT_EQ(UI::getEnabled().contains(*probe), shown && probe->isEnabled()) << "step " << step;
            ASSERT_EQ(UI::getAbsoluteEnabled().contains(*probe), probe->isAbsoluteEnabled()) << "step " << step;
        }
    }
}

}  // namespace Engine
