#pragma once

#include <vector>

#include "Engine/platform/SoundDevice.h"

namespace Engine {
class iFile;
}

namespace Engine::Platform {

/// A decoded sample.
struct sPcm {
    Int channels = 1;   ///< 1, or 2 side by side
    Int frequency = 0;  ///< frames a second
    std::vector<short> samples;

    Int getFrames() const { return static_cast<Int>(samples.size()) / channels; }
};

/// Reads a whole ogg or wav file through the callbacks. Of more than two channels the first two are taken.
/// False if there is no such file, if it is not a sound, or if it is longer than 64 MiB when decoded. What the
/// callbacks throw goes on.
Bool readSoundFile(const char* name, const sSoundFileCallbacks& callbacks, sPcm& res);
/// The same for a file that stands open at its start; it stays open.
Bool readSoundFile(iFile& file, sPcm& res);

}  // namespace Engine::Platform
