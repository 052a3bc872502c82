#pragma once

#include "Engine/core/Singleton.h"
#include "Engine/core/Types.h"

namespace Engine {

namespace Platform {
class iPlatform;
}

/// The engine's clock: measures the real time since the last frame and hands out the step that all motion is
/// multiplied with. Nothing else in the program reads a clock for the game's purposes.
///
/// A step is bounded above by 1 / MinFps (below that rate the game slows down rather than jumps) and multiplied by the
/// scale. Both bounds come from the constants, section "Time", keys "MinFps" and "MaxFps"; 15 and 200 without them.
class cTimer : public cSingleton<cTimer> {
public:
    /// @param platform  gives the milliseconds; outlives the timer
    explicit cTimer(Platform::iPlatform& platform);
    virtual ~cTimer() = default;

    /// Once a frame.
    virtual void process();
    /// After a long load: what has passed becomes no step, and the next process() yields a step of 0.
    virtual void reset();
    virtual Float getStep() const;      ///< seconds, bounded and scaled
    virtual Float getRealStep() const;  ///< seconds, bounded and not scaled
    virtual Float getScale() const { return m_scale; }
    virtual void setScale(Float scale) { m_scale = scale; }  ///< from the next process() on
    virtual UInt getAverageFrames() const { return m_average_frames; }
    virtual void setMinFps(Float min_fps);  ///< frames per second, above 0
    virtual Float getAverageStep() const { return m_average_step; }
    virtual Float getFps() const { return m_fps; }    ///< mean of the last 10 frames; 0 before them
    virtual Float getTime() const { return m_time; }  ///< seconds since the start, neither bounded nor scaled

private:
    void readConstants();
    UInt readElapsed();
    void countFrame();
    void update();

    Platform::iPlatform& m_platform;
    Float m_time = 0.0f;       ///< seconds
    Float m_prev_time = 0.0f;  ///< m_time at the last update
    Float m_step = 0.004f;     ///< seconds
    UInt m_last_ticks = 0;     ///< milliseconds; wraps
    Bool m_was_reset = false;  ///< the next process() yields a step of 0
    Float m_min_fps = 15.0f;
    Float m_max_fps = 200.0f;
    Float m_max_step = 1.0f / 15.0f;  ///< seconds
    Float m_min_step = 1.0f / 200.0f;
    Float m_scale = 1.0f;
    Float m_real_step = 0.004f;  ///< the last step before it was scaled
    Float m_fps = 0.0f;
    Float m_average_step = 0.0f;
    UInt m_average_frames = 10;  ///< length of the window for m_fps
    UInt m_frames = 0;           ///< in the window so far
    Float m_window_time = 0.0f;  ///< seconds
};

}  // namespace Engine
