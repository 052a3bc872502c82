#pragma once

#include <map>
#include <set>

#include "Engine/platform/GraphicsDevice.h"

namespace Engine::Platform {

/// A display that draws nothing and counts everything. It checks what a real one would trip over: runs outside the
/// batch, textures and buffers that are gone, draws outside a scene.
class cHeadlessGraphicsDevice : public iGraphicsDevice {
public:
    struct sCounters {
        UInt pictures = 0;         ///< shown since the start
        UInt draws = 0;            ///< runs and units of the last picture
        UInt units = 0;            ///< of the last picture
        UInt triangles = 0;        ///< of the last picture
        UInt texture_changes = 0;  ///< of the last picture
    };

    const sCounters& getCounters() const { return m_counters; }
    UInt getTextureCount() const { return static_cast<UInt>(m_textures.size()); }  ///< not released yet
    UInt getBufferCount() const { return static_cast<UInt>(m_buffers.size()); }    ///< of meshes, not released yet

    String getDescription() const override { return "headless"; }
    Bool reset(UInt width, UInt height) override;
    eDeviceState present() override;
    eDeviceState getState() override { return eDeviceState::ready; }
    Bool needsPixels() const override { return false; }
    UInt getMaxTextureSize() const override { return 16384; }
    sTextureSurface createTexture(UInt width, UInt height, const std::uint8_t* pixels) override;
    void releaseTexture(UInt handle) override;
    UInt createVertexBuffer(std::span<const std::uint8_t> vertices) override;
    UInt createIndexBuffer(std::span<const std::uint16_t> indices) override;
    void releaseBuffer(UInt handle) override;
    void setProjection(const Matrix&, const Matrix&) override {}
    void writeBatch(std::span<const sVertex> vertices, std::span<const std::uint16_t> indices) override;
    void clear(UInt color) override;
    void beginScene() override;
    void draw(const sDrawState& state, const sDrawRun& run) override;
    void drawUnit(const sDrawState& state, const sUnitDraw& unit) override;
    void endScene() override;
    Bool readPicture(sImage&) override { return false; }

private:
    void checkDraw(UInt texture) const;
    void count(UInt texture, UInt triangles);

    std::set<UInt> m_textures;
    std::map<UInt, std::size_t> m_buffers;  ///< sizes, bytes
    UInt m_last_buffer = 0;                 ///< handle given out last
    UInt m_last_texture = 0;                ///< handle given out last
    UInt m_bound = 0;                       ///< texture of the last draw
    std::size_t m_vertices = 0;
    std::size_t m_indices = 0;
    Bool m_in_scene = false;
    sCounters m_counters;
};

}  // namespace Engine::Platform
