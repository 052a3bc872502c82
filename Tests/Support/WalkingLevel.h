#pragma once

#include <memory>

#include "Game/GameLogic/goals/Goal.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Tests/Support/SmallLevel.h"

/// A job without load or building: go to a point, be there.
class cWalkGoal : public cGoal {
public:
    explicit cWalkGoal(Int dst, Int type = goalUpgrade) : cGoal(type) { setDst(dst); }

    Bool assign(cMan* man) override {
        ++asked;
        if (calls_off) {
            getMap().getGoals()->remove(this);
            return false;
        }
        setMan(man);
        return man->walkTo(getDst(), false);
    }
    void cancel() override {
        ++cancelled;
        cGoal::cancel();
    }
    Bool filter(Long) override { return waits; }
    Bool isSelfContained() const override { return self_contained; }
    void doFinalWork() override {
        ++done;
        cMan* man = getMan();
        done_at = man->getMovablePosition();
        man->setGlobalGoal(nullptr);
        man->arrange();
    }

    Int asked = 0;
    Int cancelled = 0;
    Int done = 0;
    Vector2 done_at{0.0f, 0.0f};
    Bool waits = false;
    Bool calls_off = false;  ///< when it is tried
    Bool self_contained = false;
};

/// Five points, and men put on them by hand. Men walk 50 units a second on roads, 1 a frame.
///
///     0 (start point) --road 100-- 1 --road 100-- 2 --ground 100-- 3
///                                   \            /
///                                    road -- 4 -- road
class cWalkingLevel : public cSmallLevel {
public:
    /// @param pitch  of the view, degrees
    explicit cWalkingLevel(Float pitch = 0.0f) {
        getProgram().write("GameUI/TacticMap.xml",
                           "<Map global_pitch=\"" + std::to_string(pitch) +
                               "\" passby_distance=\"16\" passby_buffer_zone=\"0.2\" push_off_distance=\"4\" "
                               "BirdsPossibility=\"0\" CloudsPossibility=\"0\" new_level_effect_time=\"0.1\" "
                               "new_level_startup_delta=\"0.5\" man_idle_time=\"1000\"/>");
    }

    void start(const std::string& buildings = {}) {
        cSmallLevel::start(
            "<L Size=\"800,600\"><Points><P Pos=\"100,300\"/><P Pos=\"200,300\"/><P Pos=\"300,300\"/><P "
            "Pos=\"400,300\"/>"
            "<P Pos=\"250,360\"/></Points><Arcs><A p1=\"0\" p2=\"1\" Type=\"1\"/><A p1=\"1\" p2=\"2\" Type=\"1\"/>"
            "<A p1=\"2\" p2=\"3\" Type=\"0\"/><A p1=\"1\" p2=\"4\" Type=\"1\"/><A p1=\"4\" p2=\"2\" Type=\"1\"/></Arcs>"
            "<Buildings>" +
            startPoint("100,300", 0) + buildings + "</Buildings></L>");
        frames(100);  // the caravan comes, without men
    }

    cFriendMan& addMan(Int point) { return *getMap().setUpInitMan(point); }
    std::shared_ptr<cWalkGoal> addGoal(Int dst, Long transaction = 1) {
        auto goal = std::make_shared<cWalkGoal>(dst);
        goal->setTransactionId(transaction);
        getMap().getGoals()->addGoal(goal);
        return goal;
    }
    /// Without waiting for the dispatch.
    std::shared_ptr<cWalkGoal> send(cFriendMan& man, Int dst) {
        auto goal = std::make_shared<cWalkGoal>(dst);
        goal->assign(&man);
        man.setGlobalGoal(goal.get());
        return goal;
    }
    /// Frames until he has done it.
    /// @param longest_step  the longest way that he makes in one of them, units
    UInt playUntilDone(const cMan& man, const cWalkGoal& goal, Float& longest_step) {
        constexpr UInt most_frames = 3000;
        longest_step = 0.0f;
        UInt res = 0;
        for (; goal.done == 0 && res < most_frames; ++res) {
            const Vector2 before = man.getMovablePosition();
            frames(1);
            longest_step = std::max(longest_step, glm::distance(before, man.getMovablePosition()));
        }
        return res;
    }
};
