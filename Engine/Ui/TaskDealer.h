#pragma once

#include <memory>

#include "Engine/core/Types.h"

namespace Engine {

/// Runs one task at a time for its owner, which derives from it beside its view base.
///
/// A decision sets a task (walk there, build this); it runs frame by frame; when it is done the owner decides anew.
/// The destructor ends a running task without calling its onEnd().
class cTaskDealer {
public:
    /// One thing to do, told in frames.
    ///
    /// onStart() comes when the dealer takes the task over, then onProcess() once a frame until it gives true, then
    /// onEnd(), and the task is destroyed. A task that is replaced gets no onEnd().
    class cTask {
    public:
        /// @param owner  what the task works on; may be null; not owned
        explicit cTask(cTaskDealer* owner);
        virtual ~cTask();
        cTask(const cTask&) = delete;
        cTask& operator=(const cTask&) = delete;

        virtual void onStart() {}
        virtual Bool onProcess() { return true; }  ///< one frame; true once the task is done
        virtual void onEnd();                      ///< the base ends the sub-task
        virtual void onCancel() {}

        Int getType() const { return m_type; }
        static Int getLiveCount();  ///< tasks that exist now, in the whole program

    protected:
        std::unique_ptr<cTask> m_sub_task;  ///< a step of this task that is a task itself; run by the derived class
        Int m_type = 0;                     ///< set by the derived class
        cTaskDealer* m_owner;               ///< not owned

    private:
        static inline Int m_live_count = 0;
    };

    cTaskDealer() = default;
    virtual ~cTaskDealer();
    cTaskDealer(const cTaskDealer&) = delete;
    cTaskDealer& operator=(const cTaskDealer&) = delete;

    /// Ends the running task, if any, without its onEnd(), and starts the new one. Null leaves the dealer idle.
    /// Throws a String when the running task does this to itself from its onProcess().
    void setTask(std::unique_ptr<cTask> task);
    cTask* getTask() const { return m_task.get(); }  ///< null while idle

    /// One frame of the running task. A task that is done has left the dealer before its onEnd() runs, so that
    /// onEnd() may set the next one. The owner calls this in its own process().
    void process();

private:
    std::unique_ptr<cTask> m_task;
    Bool m_is_processing = false;  ///< m_task is inside its onProcess()
};

}  // namespace Engine
