#include "Engine/core/Timer.h"

#include <algorithm>
#include <cmath>

#include "Engine/core/CallStack.h"
#include "Engine/core/Constants.h"
#include "Engine/platform/Platform.h"

namespace Engine {

namespace {

/// A rate that divides by: what is not above 0 is no rate.
Bool isRate(Float fps) {
    return std::isfinite(fps) && fps > 0.0f;
}

}  // namespace

cTimer::cTimer(Platform::iPlatform& platform) : m_platform(platform) {
    ENGINE_MARK;
    readConstants();
    m_last_ticks = m_platform.getMilliseconds();
}

void cTimer::readConstants() {
    Float min_fps = m_min_fps;
    Float max_fps = m_max_fps;
    if (cConstants* constants = cConstants::getInstance()) {
        constants->getProperty("Time", "MinFps", min_fps);
        constants->getProperty("Time", "MaxFps", max_fps);
    }
    setMinFps(min_fps);
    if (isRate(max_fps)) {
        m_max_fps = max_fps;
        m_min_step = 1.0f / max_fps;
    }
}

void cTimer::process() {
    ENGINE_MARK;
    update();
    if (!m_was_reset)
        return;
    m_was_reset = false;
    m_step = m_average_step = m_real_step = 0.0f;
}

void cTimer::reset() {
    ENGINE_MARK;
    update();
    m_was_reset = true;
    m_step = m_average_step = m_real_step = 0.0f;
}

Float cTimer::getStep() const {
    return m_average_step > 0.0f ? m_average_step : m_step;
}

/// With a scale of 0 the quotient means nothing; the step was kept before it was scaled.
Float cTimer::getRealStep() const {
    return m_scale == 0.0f ? m_real_step : m_step / m_scale;
}

void cTimer::setMinFps(Float min_fps) {
    if (!isRate(min_fps))
        return;
    m_min_fps = min_fps;
    m_max_step = 1.0f / min_fps;
}

/// At the end of each window the rate becomes the one over its mean frame.
void cTimer::countFrame() {
    if (++m_frames % m_average_frames != 0)
        return;
    const Float mean = m_window_time / static_cast<Float>(m_average_frames);
    m_frames = 0;
    m_window_time = 0.0f;
    m_fps = mean > 0.0f ? 1.0f / mean : 0.0f;
}

/// Milliseconds since the last frame. A frame in which no time has passed waits for one millisecond: the bound is in
/// seconds, the reading in milliseconds, so any higher MaxFps than 1 asks for nothing more.
UInt cTimer::readElapsed() {
    UInt now = m_platform.getMilliseconds();
    if (static_cast<Float>(now - m_last_ticks) < m_min_step) {
        m_platform.sleep(1);
        now = m_platform.getMilliseconds();
    }
    const UInt elapsed = now - m_last_ticks;
    m_last_ticks = now;
    return elapsed;
}

void cTimer::update() {
    countFrame();
    Float step = static_cast<Float>(readElapsed()) * 0.001f;
    m_prev_time = m_time;
    m_time += step;
    m_window_time += step;
    step = std::min(step, m_max_step);
    m_real_step = step;
    m_step = m_average_step = step * m_scale;
}

}  // namespace Engine
