#include "Engine/Ui/Personage.h"

#include "Engine/core/CallStack.h"

namespace Engine {

void sDropTask::operator()(sPersonageTask* task) const {
    if (!keep)
        std::default_delete<sPersonageTask>()(task);
}

cPersonage::~cPersonage() = default;

void cPersonage::setTask(sPersonageTask* task) {
    ENGINE_MARK;
    m_task = std::unique_ptr<sPersonageTask, sDropTask>(task, sDropTask{task && task->keep});
    if (m_task && m_task->on_start)
        m_task->on_start(m_task->data);
}

void cPersonage::process() {
    ENGINE_MARK;
    if (!m_task || !m_task->on_process || !m_task->on_process(m_task->data))
        return;
    const auto on_end = m_task->on_end;
    void* const data = m_task->data;
    m_task.reset();
    if (on_end)
        on_end(data);
}

}  // namespace Engine
