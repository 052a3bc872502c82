#pragma once

#include <vector>

#include "Engine/graphics/BlockReader.h"
#include "Engine/graphics/iMesh.h"
#include "Engine/platform/MeshFormat.h"

namespace Engine {

/// A mesh of one vertex format. Its blocks of the file are kept, so that the device's copies can be made again without
/// reading it. Without a renderer (in a tool) there are no copies.
template <UInt _fvf>
class cMesh : public iMesh {
public:
    /// Throws as iMesh::create().
    cMesh(const String& name, const std::uint8_t* data, std::size_t size);
    ~cMesh() override;

    void preUpdate() override;
    void update() override;

    const UInt& getFormat() const override { return m_fvf; }
    UInt getVertexBuffer() const override { return m_vertex_buffer; }
    UInt getIndexBuffer() const override { return m_index_buffer; }
    UInt getTriangleCount() const override { return m_triangle_count; }
    UInt getVertexCount() const override { return m_vertex_count; }
    UInt getVertexSize() const override { return format.vertex_size; }
    const std::vector<Matrix>* getBoneMatrices() const override { return nullptr; }
    std::span<const std::uint8_t> getVertices() const override { return m_vertices; }
    std::span<const std::uint16_t> getIndices() const override { return m_indices; }

protected:
    static constexpr Platform::sMeshFormat format = *Platform::findMeshFormat(_fvf);

    explicit cMesh(const String& name) : iMesh(name) {}
    /// From the head up to the mark behind the indices; nothing is made on the device.
    void read(cBlockReader& reader);

private:
    void check() const;

    UInt m_vertex_count = 0;
    UInt m_triangle_count = 0;
    UInt m_vertex_buffer = 0;
    UInt m_index_buffer = 0;
    std::vector<std::uint16_t> m_indices;
    std::vector<std::uint8_t> m_vertices;
    UInt m_fvf = _fvf;
};

/// A mesh that an animation moves: each vertex follows up to four bones.
template <UInt _fvf>
class cAniMesh : public cMesh<_fvf> {
public:
    /// Throws as iMesh::create().
    cAniMesh(const String& name, const std::uint8_t* data, std::size_t size);

    const std::vector<Matrix>* getBoneMatrices() const override { return &m_bone_matrices; }

private:
    void readBones(cBlockReader& reader);
    void checkBoneIndices() const;

    std::vector<Matrix> m_bone_matrices;
};

extern template class cMesh<18>;       // position, normal
extern template class cMesh<258>;      // position, texture coordinates
extern template class cMesh<274>;      // position, normal, texture coordinates
extern template class cMesh<4380>;     // what is below the next one
extern template class cAniMesh<4380>;  // position, weights, bones, normal, texture coordinates

}  // namespace Engine
