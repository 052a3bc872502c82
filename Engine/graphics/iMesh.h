#pragma once

#include <memory>
#include <span>
#include <vector>

#include "Engine/core/Resource.h"
#include "Engine/core/Types.h"

namespace Engine {

/// Triangles in space, shared by name: the shape of a unit. cMesh has the plain kinds, cAniMesh the one with bones.
///
/// x goes right, y towards the front (on the screen: down), z up, lengths in logical units; a face is seen from where
/// its corners go round clockwise. cControl::makeUnit() tells how it comes to stand on the screen.
class iMesh : public iResource {
public:
    /// Reads a file, all numbers little-endian and of 32 bits unless told otherwise:
    ///
    ///     "qorv", vertex format, V: vertices, I: indices, "qorv", V vertices, "qorv", I indices of 16 bits, "qorv"
    ///
    /// and with bones B: bones, B matrices of 4 x 4 Floats row by row (where the bone lies in the mesh), "qorv".
    /// Three indices are a triangle. Platform/MeshFormat.h has the vertices' formats.
    ///
    /// Throws what opening the file throws, "Invalid mesh format. File:<name>" for a wrong head, "Undefined vertex
    /// format. Resource:<name>", and the plain strings "Unexpected end of source" for a file that is cut and "Invalid
    /// resource format" for a missing mark, an index that is no vertex, a bone that is none, more than 256 bones, a
    /// number that is not finite, and a bone's matrix without an inverse.
    static std::unique_ptr<iMesh> create(const String& name);
    static std::unique_ptr<iMesh> create(const String& name, const std::uint8_t* data, std::size_t size);

    eResourceType getType() const override { return eResourceType::mesh; }

    virtual const UInt& getFormat() const = 0;
    virtual UInt getVertexBuffer() const = 0;  ///< handle of the device; 0 while released and for an empty mesh
    virtual UInt getIndexBuffer() const = 0;   ///< likewise
    virtual UInt getTriangleCount() const = 0;
    virtual UInt getVertexCount() const = 0;
    virtual UInt getVertexSize() const = 0;  ///< bytes
    /// Where each bone lies in the mesh; null for a mesh without bones.
    virtual const std::vector<Matrix>* getBoneMatrices() const = 0;
    virtual std::span<const std::uint8_t> getVertices() const = 0;  ///< as they lie in the file
    virtual std::span<const std::uint16_t> getIndices() const = 0;

protected:
    using iResource::iResource;
};

}  // namespace Engine
