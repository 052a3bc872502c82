#pragma once

#include "Engine/core/Types.h"

namespace Engine {

/// The one source of chance in the program: a linear congruential generator with 15 bits a draw.
///
/// Seeded from the clock at start and settable, so that a run can be repeated: the same seed gives the same draws
/// on every machine.
class cRandom {
public:
    static constexpr Int max_value = 32767;

    void setSeed(UInt seed);
    UInt getSeed() const { return m_seed; }

    /// The next number, 0 to max_value.
    Int next();

    /// How many numbers were drawn since the seed was set.
    UInt getDraws() const { return m_draws; }

private:
    UInt m_seed = 1;
    UInt m_state = 1;
    UInt m_draws = 0;
};

/// The generator that the whole program shares.
cRandom& random();

}  // namespace Engine
