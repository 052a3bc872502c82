#pragma once

#include "Engine/core/Types.h"

namespace Engine {

/// One playing instance of a sample, which ends with this object. Made by cSoundManager. Once the manager is gone, and
/// while it is disabled, everything does nothing and gives 0.
class cChannel {
public:
    /// @param id  the device's answer. Throws "Error sound channel creating. Error code:" and the answer, if negative.
    cChannel(Int id, Int group);
    ~cChannel();
    cChannel(const cChannel&) = delete;
    cChannel& operator=(const cChannel&) = delete;

    Bool isPlaying() const;
    Bool isPaused() const;    ///< true while there is no sound
    Int getLength() const;    ///< milliseconds
    Int getPosition() const;  ///< milliseconds
    void setPosition(Int position);
    Int getVolume() const;  ///< 0 to 100, before the group's volume comes in
    void setVolume(Int volume);
    Int getPan() const;  ///< 0 left, 50 middle, 100 right; only a sample of one channel moves
    void setPan(Int pan);
    void play();  ///< goes on after a pause; begins anew after the end
    void pause();

private:
    Int m_id;
    Int m_group;
};

}  // namespace Engine
