#include "Engine/graphics/Shader.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/WholeFile.h"

namespace Engine {

cShader::cShader(const String& name) : iResource(name) {
    ENGINE_MARK;
    m_code = readWholeFile(name, "Shader");
}

}  // namespace Engine
