#pragma once

#include <array>

#include "Engine/core/Types.h"

namespace Engine::Platform {

/// How one vertex of a mesh lies in memory. Places are offsets in bytes from the vertex's start, -1 for a part that it
/// lacks; the position is three Floats at its start.
struct sMeshFormat {
    UInt number = 0;  ///< as it stands in mesh files
    UInt vertex_size = 0;
    Int normal = -1;   ///< three Floats
    Int uv = -1;       ///< two Floats
    Int weights = -1;  ///< three Floats, of the first three bones; the fourth has what is left to 1
    Int bones = -1;    ///< four indices, a byte each
};

/// Bones that one mesh may have: as many as a byte can name.
inline constexpr UInt max_bones = 256;

inline constexpr std::array<sMeshFormat, 4> mesh_formats{{
    {.number = 18, .vertex_size = 24, .normal = 12},
    {.number = 258, .vertex_size = 20, .uv = 12},
    {.number = 274, .vertex_size = 32, .normal = 12, .uv = 24},
    {.number = 4380, .vertex_size = 48, .normal = 28, .uv = 40, .weights = 12, .bones = 24},
}};

/// Null for a number that is none of the four.
constexpr const sMeshFormat* findMeshFormat(UInt number) {
    for (const sMeshFormat& format : mesh_formats)
        if (format.number == number)
            return &format;
    return nullptr;
}

}  // namespace Engine::Platform
