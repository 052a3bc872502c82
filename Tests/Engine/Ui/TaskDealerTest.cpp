#include "Engine/Ui/TaskDealer.h"

#include <gtest/gtest.h>

#include <vector>

#include "Engine/Ui/Personage.h"
#include "Engine/core/String.h"

namespace Engine {

namespace {

using STEPS = std::vector<String>;

/// Takes as many frames as it is told and notes what happens to it.
class cNotedTask : public cTaskDealer::cTask {
public:
    cNotedTask(cTaskDealer* owner, STEPS& steps, Int frames = 1, Bool has_next = false)
        : cTask(owner), m_steps(steps), m_frames(frames), m_has_next(has_next) {}
    ~cNotedTask() override { m_steps.push_back("gone"); }

    void onStart() override { m_steps.push_back("start"); }
    Bool onProcess() override {
        m_steps.push_back("process");
        return --m_frames <= 0;
    }
    void onEnd() override {
        m_steps.push_back("end");
        if (m_has_next)
            m_owner->setTask(std::make_unique<cNotedTask>(m_owner, m_steps, 5));
        cTask::onEnd();
    }

private:
    STEPS& m_steps;
    Int m_frames;
    Bool m_has_next;
};

class cSelfReplacingTask : public cTaskDealer::cTask {
public:
    using cTask::cTask;
    Bool onProcess() override {
        m_owner->setTask(nullptr);
        return true;
    }
};

}  // namespace

TEST(TaskDealer, takesATaskFromStartToEnd) {
    STEPS steps;
    cTaskDealer dealer;
    dealer.setTask(std::make_unique<cNotedTask>(&dealer, steps, 2));
    dealer.process();
    EXPECT_NE(dealer.getTask(), nullptr);
    dealer.process();
    dealer.process();
    EXPECT_EQ(steps, (STEPS{"start", "process", "process", "end", "gone"}));
    EXPECT_EQ(dealer.getTask(), nullptr);
}

TEST(TaskDealer, keepsTheTaskThatOnEndHasSet) {
    STEPS steps;
    cTaskDealer dealer;
    dealer.setTask(std::make_unique<cNotedTask>(&dealer, steps, 1, true));
    dealer.process();
    EXPECT_EQ(steps, (STEPS{"start", "process", "end", "start", "gone"}));
    EXPECT_NE(dealer.getTask(), nullptr);
}

TEST(TaskDealer, cancelsWithoutAnEnd) {
    const Int before = cTaskDealer::cTask::getLiveCount();
    STEPS steps;
    {
        cTaskDealer dealer;
        dealer.setTask(std::make_unique<cNotedTask>(&dealer, steps));
        dealer.setTask(std::make_unique<cNotedTask>(&dealer, steps));
        EXPECT_EQ(steps, (STEPS{"start", "gone", "start"}));
        EXPECT_EQ(cTaskDealer::cTask::getLiveCount(), before + 1);
        dealer.setTask(nullptr);
        EXPECT_EQ(cTaskDealer::cTask::getLiveCount(), before);
        dealer.process();
        dealer.setTask(std::make_unique<cNotedTask>(&dealer, steps));
    }
    EXPECT_EQ(steps, (STEPS{"start", "gone", "start", "gone", "start", "gone"}));
}

TEST(TaskDealer, refusesATaskThatReplacesItself) {
    cTaskDealer dealer;
    dealer.setTask(std::make_unique<cSelfReplacingTask>(&dealer));
    EXPECT_THROW(dealer.process(), String);
    dealer.setTask(nullptr);  // from outside it may go
    EXPECT_EQ(dealer.getTask(), nullptr);
}

namespace {

struct sWalk {
    Int frames = 2;
    STEPS steps;
    cPersonage* next = nullptr;
    sPersonageTask* next_task = nullptr;
};

sPersonageTask makeWalk(sWalk& walk) {
    sPersonageTask task;
    task.on_start = [](void* data) { static_cast<sWalk*>(data)->steps.push_back("start"); };
    task.on_process = [](void* data) { return --static_cast<sWalk*>(data)->frames <= 0; };
    task.on_end = [](void* data) {
        sWalk& done = *static_cast<sWalk*>(data);
        done.steps.push_back("end");
        if (done.next)
            done.next->setTask(std::exchange(done.next_task, nullptr));
    };
    task.data = &walk;
    return task;
}

}  // namespace

TEST(Personage, runsARecordAndGoesOnWithWhatItsEndSets) {
    sWalk walk;
    sWalk second;
    sPersonageTask kept = makeWalk(second);
    kept.keep = true;
    cPersonage personage;
    walk.next = &personage;
    walk.next_task = &kept;
    personage.setTask(std::make_unique<sPersonageTask>(makeWalk(walk)).release());
    personage.process();
    EXPECT_EQ(walk.steps, (STEPS{"start"}));
    personage.process();
    EXPECT_EQ(walk.steps, (STEPS{"start", "end"}));
    EXPECT_EQ(second.steps, (STEPS{"start"}));
    EXPECT_TRUE(personage.isBusy());
    personage.setTask(nullptr);
    EXPECT_EQ(second.steps, (STEPS{"start"}));
    EXPECT_EQ(kept.data, &second);
}

TEST(Personage, waitsForeverWithoutAProcess) {
    sPersonageTask idle;
    idle.keep = true;
    cPersonage personage;
    personage.setTask(&idle);
    personage.process();
    EXPECT_TRUE(personage.isBusy());
}

}  // namespace Engine
