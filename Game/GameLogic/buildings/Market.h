#pragma once

#include <map>
#include <memory>
#include <vector>

#include "Game/GameLogic/buildings/Building.h"

class cLoadGoal;
class cMarketTask;

/// A building that goods change hands at: it opens and shuts trades by a timetable, and lists them to who clicks it.
///
/// Each trade has a place in the timetable, or all run one after the other ("Ordered"). A trade that depends on another
/// does not open before that is done. Times are seconds of the market's own clock, which stands while the level takes
/// no input.
class cMarket : public cBuilding {
public:
    using TASKS = std::map<String, cMarketTask*>;

    /// When a trade opens or shuts next.
    struct sEntry {
        Float time = 0.0f;
        cMarketTask* task = nullptr;
    };

    explicit cMarket(Engine::cView* parent);
    ~cMarket() override;

    /// The keys of cBuilding, then "random_period", "random_duration" (seconds), "progress_panel_pos" (of the first
    /// bar, from the market) and "progress_panel_offset" (from bar to bar).
    void loadXML(const Engine::iXML* xml) override;
    /// The keys of cBuilding, then "Ordered".
    void loadXmlState(const Engine::iXML* xml) override;
    /// That of cBuilding, then the trades by their ids, and "Ordered".
    void saveBinState(Engine::iArch& arch) override;
    void setInitState() override;
    void process() override;
    void updateView(Bool hide) override;
    void clearWorkingMen() override;
    String getVisualStateName() const override { return "init_state"; }

    virtual void activateTask(cMarketTask* task);
    virtual void deactivateTask(cMarketTask* task);
    virtual void onMarketAction() {}  ///< a trade was done
    virtual void calcNextTimeStamp();
    virtual void processOrderedTasks();
    virtual void showMarketWindow() {}

    cMarketTask* getDependentTask(const cMarketTask* task) const;  ///< the one that it depends on; null for none
    Bool isActivationAllowed(const cMarketTask* task) const;       ///< is that done?
    void checkProductCompleted(cMarketTask* task) const;           ///< one whose product is owned is done
    std::vector<cMarketTask*> getActiveTasks() const;              ///< by their indices
    void updateProgressPanel();
    void removeScheduleItem(const cMarketTask& task);

    /// What lies in its store and nobody is to fetch is sent for.
    void fetchGoods();
    /// Not yet in the list of goals.
    std::shared_ptr<cLoadGoal> makeLoadGoal(Int type, Int amount, Long transaction) const;

    cMarketTask* findTask(const String& id) const;                           ///< null for none
    const std::vector<cMarketTask*>& getTasks() const { return m_ordered; }  ///< in the order of the file
    const std::vector<sEntry>& getSchedule() const { return m_timetable; }
    Bool isOrdered() const { return m_is_ordered; }
    Float getMarketTime() const { return m_time; }  ///< seconds since it was set up
    Float getNextTimeStamp() const { return m_next_stamp; }

protected:
    /// The child tag "Tasks": each of its children a trade. Throws "cMarket: two trades are called "<id>"".
    void loadTasks(const Engine::iXML* xml);
    /// What saveBinState() wrote behind the building's. Trades that were in the order of their indices are so again.
    void readTasks(Engine::iArch& arch);

private:
    static void onMarketClick(cView* view);
    void marketClicked();
    void addTask(std::unique_ptr<cMarketTask> task);
    void makeTimetable();
    void startRun();
    void processTimetable();
    Bool change(sEntry& entry);
    Float drawIfRandom(Float time, Float range) const;
    Int countFetched(Int type) const;

    std::vector<std::unique_ptr<cMarketTask>> m_owned;
    TASKS m_tasks;                        ///< by id
    std::vector<cMarketTask*> m_ordered;  ///< in the order of the file
    std::vector<sEntry> m_timetable;
    Float m_random_period = 0.0f;    ///< seconds
    Float m_random_duration = 0.0f;  ///< seconds
    Vector2 m_progress_panel_pos{0.0f, 0.0f};
    Vector2 m_progress_panel_offset{0.0f, 0.0f};
    Bool m_is_ordered = false;
    Bool m_repeat = false;         ///< the ordered run begins again at its end
    Int m_current = -1;            ///< place in the ordered run
    Float m_time = 0.0f;           ///< seconds; not saved
    Float m_next_stamp = 0.0f;     ///< seconds
    Bool m_has_old_goods = false;  ///< goods lie here from before the level was left
};
