// Any bytes as an animation. What can be read is posed at a few times.

#include <limits>

#include "Engine/graphics/Animation.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Engine;
    try {
        cAnimation animation("fuzz.anim", data, size);
        const std::vector<Matrix> bind(4, Matrix(1.0f));
        for (const Float time : {0.0f, 0.3f, animation.getLength() * 0.5f, animation.getLength(), -1.0f, 1e30f,
                                 std::numeric_limits<Float>::quiet_NaN()})
            animation.setTime(time, &bind);
        if (animation.getMatrices().size() != animation.getBoneCount())
            __builtin_trap();
    } catch (const char*) {
    }
    return 0;
}
