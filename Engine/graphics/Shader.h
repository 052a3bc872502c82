#pragma once

#include <cstdint>
#include <vector>

#include "Engine/core/Resource.h"

namespace Engine {

/// A vertex program of a sprite, shared by name: the bytes of its file.
///
/// Our devices have no such programs. What the bytes say is never run: a sprite with a shader is drawn the fixed way,
/// in a chunk of its own. The resource is there so that data which names one loads, and is listed with the others.
class cShader : public iResource {
public:
    /// Throws what reading the file throws.
    explicit cShader(const String& name);

    eResourceType getType() const override { return eResourceType::shader; }
    const std::vector<std::uint8_t>& getCode() const { return m_code; }
    UInt getHandle() const { return 0; }  ///< of the device

private:
    std::vector<std::uint8_t> m_code;
};

}  // namespace Engine
