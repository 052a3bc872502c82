#include "Engine/core/Random.h"

namespace Engine {

void cRandom::setSeed(UInt seed) {
    m_seed = seed;
    m_state = seed;
    m_draws = 0;
}

Int cRandom::next() {
    m_state = m_state * 1103515245u + 12345u;
    ++m_draws;
    return static_cast<Int>((m_state >> 16) & 0x7FFFu);
}

cRandom& random() {
    static cRandom generator;
    return generator;
}

}  // namespace Engine
