#include "Engine/graphics/Mesh.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "Engine/core/CallStack.h"
#include "Engine/core/WholeFile.h"
#include "Engine/graphics/Graphics.h"

namespace Engine {

namespace {

Bool hasInverse(const Matrix& matrix) {
    const Matrix inverse = glm::inverse(matrix);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            if (!std::isfinite(inverse[i][j]))
                return false;
    return true;
}

}  // namespace

std::unique_ptr<iMesh> iMesh::create(const String& name) {
    ENGINE_MARK;
    const std::vector<std::uint8_t> file = readWholeFile(name, "Mesh");
    return create(name, file.data(), file.size());
}

std::unique_ptr<iMesh> iMesh::create(const String& name, const std::uint8_t* data, std::size_t size) {
    const String place = "iMesh::create(\"" + name + "\")";  // the failures' own texts name no file
    ENGINE_MARK_TEXT(place.c_str());
    cBlockReader head(data, size);
    if (!head.isMark())
        throw String("Invalid mesh format. File:" + name);
    switch (head.readUInt()) {
        case 18:
            return std::make_unique<cMesh<18>>(name, data, size);
        case 258:
            return std::make_unique<cMesh<258>>(name, data, size);
        case 274:
            return std::make_unique<cMesh<274>>(name, data, size);
        case 4380:
            return std::make_unique<cAniMesh<4380>>(name, data, size);
        default:
            throw String("Undefined vertex format. Resource:" + name);
    }
}

template <UInt _fvf>
cMesh<_fvf>::cMesh(const String& name, const std::uint8_t* data, std::size_t size) : iMesh(name) {
    cBlockReader reader(data, size);
    read(reader);
    update();
}

template <UInt _fvf>
cMesh<_fvf>::~cMesh() {
    cMesh::preUpdate();
}

template <UInt _fvf>
void cMesh<_fvf>::read(cBlockReader& reader) {
    ENGINE_MARK;
    reader.readMark();
    if (reader.readUInt() != _fvf)
        throw cBlockReader::invalid_format;
    m_vertex_count = reader.readUInt();
    const UInt index_count = reader.readUInt();
    m_triangle_count = index_count / 3;
    reader.readMark();

    const auto vertices = reader.take(m_vertex_count, format.vertex_size);
    reader.readMark();
    const auto indices = reader.take(index_count, sizeof(std::uint16_t));
    reader.readMark();
    m_vertices.assign(vertices.begin(), vertices.end());
    m_indices.resize(index_count);
    std::copy(indices.begin(), indices.end(), reinterpret_cast<std::uint8_t*>(m_indices.data()));
    check();
}

/// Every index is a vertex, every number of a vertex is finite.
template <UInt _fvf>
void cMesh<_fvf>::check() const {
    const auto is_vertex = [this](std::uint16_t index) { return index < m_vertex_count; };
    if (!std::all_of(m_indices.begin(), m_indices.end(), is_vertex))
        throw cBlockReader::invalid_format;
    for (std::size_t at = 0; at < m_vertices.size(); at += sizeof(Float)) {
        Float number = 0.0f;
        std::memcpy(&number, &m_vertices[at], sizeof(number));
        const Bool is_bones = format.bones >= 0 && at % format.vertex_size == static_cast<std::size_t>(format.bones);
        if (!is_bones && !std::isfinite(number))
            throw cBlockReader::invalid_format;
    }
}

/// The device takes all buffers with it when it goes, and it goes before the resources do.
template <UInt _fvf>
void cMesh<_fvf>::preUpdate() {
    if (cGraphics* graphics = cGraphics::getInstance()) {
        graphics->releaseBuffer(m_vertex_buffer);
        graphics->releaseBuffer(m_index_buffer);
    }
    m_vertex_buffer = m_index_buffer = 0;
}

template <UInt _fvf>
void cMesh<_fvf>::update() {
    ENGINE_MARK;
    preUpdate();
    cGraphics* graphics = cGraphics::getInstance();
    if (!graphics || m_triangle_count == 0)
        return;
    m_index_buffer = graphics->getResource(std::span(m_indices).first(std::size_t{m_triangle_count} * 3));
    m_vertex_buffer = graphics->getResource(std::span<const std::uint8_t>(m_vertices));
}

template <UInt _fvf>
cAniMesh<_fvf>::cAniMesh(const String& name, const std::uint8_t* data, std::size_t size) : cMesh<_fvf>(name) {
    cBlockReader reader(data, size);
    this->read(reader);
    readBones(reader);
    this->update();
}

template <UInt _fvf>
void cAniMesh<_fvf>::readBones(cBlockReader& reader) {
    ENGINE_MARK;
    const UInt count = reader.readUInt();
    if (count > Platform::max_bones)
        throw cBlockReader::invalid_format;
    m_bone_matrices.reserve(count);
    for (UInt i = 0; i < count; ++i) {
        m_bone_matrices.push_back(reader.readMatrix());
        if (!hasInverse(m_bone_matrices.back()))
            throw cBlockReader::invalid_format;
    }
    reader.readMark();
    checkBoneIndices();
}

template <UInt _fvf>
void cAniMesh<_fvf>::checkBoneIndices() const {
    const auto vertices = this->getVertices();
    for (std::size_t at = this->format.bones; at < vertices.size(); at += this->format.vertex_size) {
        const auto bones = vertices.subspan(at, 4);
        if (std::any_of(bones.begin(), bones.end(), [this](UInt bone) { return bone >= m_bone_matrices.size(); }))
            throw cBlockReader::invalid_format;
    }
}

template class cMesh<18>;
template class cMesh<258>;
template class cMesh<274>;
template class cMesh<4380>;
template class cAniMesh<4380>;

}  // namespace Engine
