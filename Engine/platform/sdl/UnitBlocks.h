#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "Engine/graphics/Lighting.h"
#include "Engine/platform/GraphicsDevice.h"
#include "Engine/platform/MeshFormat.h"

namespace Engine::Platform {

/// What a draw of a unit needs besides its buffers and its texture, as places of blocks in the frame's bytes.
struct sUnitBlocks {
    std::size_t surface = 0;
    std::size_t bones = 0;
    std::size_t lights = 0;
};

/// The uniform blocks of a frame's units, as the shaders read them (std140), one after the other in one piece of memory
/// that is sent at once. Units with the same lights share a block.
class cUnitBlocks {
public:
    static constexpr std::size_t row_size = 4 * sizeof(Float);
    static constexpr std::size_t surface_size = 5 * row_size;         ///< four colours; power, and whether lights shine
    static constexpr std::size_t bone_size = 3 * row_size;            ///< the first three rows: matrix * position
    static constexpr std::size_t bones_size = max_bones * bone_size;  ///< as the shader declares it
    static constexpr std::size_t light_size = 7 * row_size;
    static constexpr std::size_t lights_size = 2 * row_size + sLightConfig::max_lights * light_size;

    /// @param alignment  of a block's place, bytes
    explicit cUnitBlocks(std::size_t alignment) : m_alignment(alignment) {}

    void clear();
    sUnitBlocks add(const sUnitDraw& unit);
    /// Adds what the last blocks lack of their declared size. To be called once, after the last add().
    void close();
    std::span<const std::uint8_t> getBytes() const { return m_bytes; }

private:
    struct sKnownLights {
        const sLightConfig* config = nullptr;
        std::size_t place = 0;
    };

    std::size_t beginBlock();
    void addRow(Float x, Float y, Float z, Float w);
    void addRow(const DXColor& color) { addRow(color.r, color.g, color.b, color.a); }
    void addMatrix(const Matrix& matrix);
    void addLight(const sLight& light);
    std::size_t addLights(const sLightConfig* config);

    std::size_t m_alignment;
    std::vector<std::uint8_t> m_bytes;
    std::vector<sKnownLights> m_lights;  ///< of this frame
};

}  // namespace Engine::Platform
