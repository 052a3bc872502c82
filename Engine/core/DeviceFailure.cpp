#include "Engine/core/DeviceFailure.h"

#include "Engine/core/CallStack.h"

namespace Engine {

void directXFailed(const String& error, const String& what) {
    ENGINE_MARK_TEXT("\nCall Stack:");
    throw String("Direct3D function call failed\n" + what + "\n" + error);
}

}  // namespace Engine
