#pragma once

#include <cstddef>
#include <vector>

#include "Engine/core/Resource.h"
#include "Engine/core/Types.h"

namespace Engine {

/// The movement of a mesh's bones, shared by name, and the pose that was asked for last.
///
/// A bone has keys, each a place relative to its parent at a time; between two keys the place is the mix of both.
class cAnimation : public iResource {
public:
    static constexpr UInt no_parent = 0xFFFFFFFF;

    /// Reads a file, all numbers little-endian and of 32 bits:
    ///
    ///     "qorv", B: bones, length (Float, seconds, the loop time), B bones
    ///     a bone: K: keys, parent (no_parent for a root), K keys, "qorv"
    ///     a key: 4 x 4 Floats row by row, the time (Float, seconds)
    ///
    /// Throws what opening the file throws, and the plain strings "Unexpected end of source" for a file that is cut and
    /// "Invalid resource format" for a wrong mark, a parent that is no bone, parents that form a loop, more than 256
    /// bones, a length that is not above 0, and a number that is not finite.
    explicit cAnimation(const String& name);
    cAnimation(const String& name, const std::uint8_t* data, std::size_t size);

    eResourceType getType() const override { return eResourceType::animation; }

    /// Works out the pose at a time; a time equal to the last one's remainder costs a comparison.
    ///
    /// The time is taken modulo the length. A bone lies at (1 - k) x the last key at or before the time + k x the first
    /// one after it, k being the part of the way between the two; rows 0 to 2 are then brought to the mixed lengths of
    /// the keys' rows, so that a turn does not shrink the bone. A bone with no key on either side lies in its parent.
    ///
    /// @param t     seconds
    /// @param bind  where each bone lies in the mesh (iMesh::getBoneMatrices); null does nothing. Bones beyond its end
    ///              count as lying in the origin.
    void setTime(Float t, const std::vector<Matrix>* bind);

    /// For each bone the movement from the mesh's own pose to the one asked for last, in the space of the mesh.
    const std::vector<Matrix>& getMatrices() const { return m_matrices; }
    UInt getBoneCount() const { return static_cast<UInt>(m_bones.size()); }
    UInt getParent(UInt bone) const { return m_bones.at(bone).parent; }
    UInt getKeyCount(UInt bone) const { return static_cast<UInt>(m_bones.at(bone).keys.size()); }
    Float getLength() const { return m_length; }  ///< seconds

private:
    struct sBone {
        std::vector<Matrix> keys;
        std::vector<Float> times;  ///< of the keys, seconds; apart, so that looking for one touches no matrix
        UInt parent = no_parent;
    };

    void read(const std::uint8_t* data, std::size_t size);
    void checkParents() const;
    static Matrix mixKeys(const sBone& bone, Float time);
    void applyHierarchy(UInt bone);

    Float m_time = -1.0f;
    const std::vector<Matrix>* m_bind = nullptr;  ///< of the last pose; only compared
    std::vector<sBone> m_bones;
    std::vector<Matrix> m_matrices;
    std::vector<bool> m_done;  ///< bones that lie in the mesh's space already
    Float m_length = 1.0f;
};

}  // namespace Engine
