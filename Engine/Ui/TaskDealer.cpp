#include "Engine/Ui/TaskDealer.h"

#include <utility>

#include "Engine/core/CallStack.h"

namespace Engine {

namespace {

/// Holds a flag for the length of a block, whatever way it is left.
class cFlagHolder {
public:
    explicit cFlagHolder(Bool& flag) : m_flag(flag) { m_flag = true; }
    ~cFlagHolder() { m_flag = false; }
    cFlagHolder(const cFlagHolder&) = delete;
    cFlagHolder& operator=(const cFlagHolder&) = delete;

private:
    Bool& m_flag;
};

}  // namespace

cTaskDealer::cTask::cTask(cTaskDealer* owner) : m_owner(owner) {
    ++m_live_count;
}

cTaskDealer::cTask::~cTask() {
    --m_live_count;
}

void cTaskDealer::cTask::onEnd() {
    m_sub_task.reset();
}

Int cTaskDealer::cTask::getLiveCount() {
    return m_live_count;
}

cTaskDealer::~cTaskDealer() = default;

void cTaskDealer::setTask(std::unique_ptr<cTask> task) {
    ENGINE_MARK;
    if (m_is_processing)
        throw String("cTaskDealer::setTask(): a task can't be replaced while it is processed");
    m_task = std::move(task);
    if (m_task)
        m_task->onStart();
}

void cTaskDealer::process() {
    ENGINE_MARK;
    if (!m_task)
        return;
    Bool is_done = false;
    {
        const cFlagHolder processing(m_is_processing);
        is_done = m_task->onProcess();
    }
    if (!is_done)
        return;
    const std::unique_ptr<cTask> task = std::move(m_task);
    task->onEnd();
}

}  // namespace Engine
