#pragma once

#include <memory>

#include "Engine/core/Types.h"

namespace Engine {

/// A task without a class: three functions and what they work on. Each function may be null.
struct sPersonageTask {
    void (*on_start)(void* data) = nullptr;
    Bool (*on_process)(void* data) = nullptr;  ///< one frame; true once done
    void (*on_end)(void* data) = nullptr;
    void* data = nullptr;  ///< not owned
    Bool keep = false;     ///< the record stays with who made it; else it was made with new and goes with the task
};

/// Deletes a record unless its maker keeps it, which is asked when it is handed over: later it may be gone.
struct sDropTask {
    Bool keep = false;
    void operator()(sPersonageTask* task) const;
};

/// A task dealer for small pieces of scenery: one task at a time, from a plain record.
class cPersonage {
public:
    cPersonage() = default;
    virtual ~cPersonage();
    cPersonage(const cPersonage&) = delete;
    cPersonage& operator=(const cPersonage&) = delete;

    /// Drops the running task without its on_end and starts the new one; null leaves the personage idle.
    void setTask(sPersonageTask* task);
    Bool isBusy() const { return m_task != nullptr; }

    /// One frame. A task that is done is gone before its on_end is called, so that on_end may set the next one.
    void process();

private:
    std::unique_ptr<sPersonageTask, sDropTask> m_task;
};

}  // namespace Engine
