#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "Engine/core/Types.h"

/// Meshes and animations as bytes of their files, for tests and benchmarks.
namespace UnitFiles {

inline constexpr Engine::UInt no_parent = 0xFFFFFFFF;

/// Numbers of any kind, one after the other as they lie in memory.
class cBytes {
public:
    template <class... T>
    cBytes& add(const T&... values) {
        (addOne(&values, sizeof(values)), ...);
        return *this;
    }
    cBytes& mark() {
        m_bytes += "qorv";
        return *this;
    }
    const std::string& get() const { return m_bytes; }

private:
    void addOne(const void* data, std::size_t size) { m_bytes.append(static_cast<const char*>(data), size); }

    std::string m_bytes;
};

struct sPoint {
    Engine::Vector3 place{0.0f};
    Engine::Vector3 normal{0.0f, 0.0f, 1.0f};
    Engine::Vector2 uv{0.0f};
    std::uint8_t bone = 0;  ///< of meshes with bones; all its weight
};

/// Of the format 274 without bones, of 4380 with.
inline std::string makeMesh(const std::vector<sPoint>& points, const std::vector<std::uint16_t>& indices,
                            const std::vector<Engine::Matrix>& bones = {}) {
    cBytes bytes;
    bytes.mark().add(bones.empty() ? 274u : 4380u);
    bytes.add(static_cast<Engine::UInt>(points.size()), static_cast<Engine::UInt>(indices.size())).mark();
    for (const sPoint& point : points) {
        bytes.add(point.place);
        if (!bones.empty())
            bytes.add(1.0f, 0.0f, 0.0f, point.bone, point.bone, point.bone, point.bone);
        bytes.add(point.normal, point.uv);
    }
    bytes.mark();
    for (const std::uint16_t index : indices)
        bytes.add(index);
    bytes.mark();
    if (bones.empty())
        return bytes.get();
    bytes.add(static_cast<Engine::UInt>(bones.size()));
    for (const Engine::Matrix& bone : bones)
        bytes.add(bone);
    return bytes.mark().get();
}

struct sKey {
    Engine::Matrix place{1.0f};
    Engine::Float time = 0.0f;
};

struct sBone {
    Engine::UInt parent = no_parent;
    std::vector<sKey> keys;
};

inline std::string makeAnimation(Engine::Float length, const std::vector<sBone>& bones) {
    cBytes bytes;
    bytes.mark().add(static_cast<Engine::UInt>(bones.size()), length);
    for (const sBone& bone : bones) {
        bytes.add(static_cast<Engine::UInt>(bone.keys.size()), bone.parent);
        for (const sKey& key : bone.keys)
            bytes.add(key.place, key.time);
        bytes.mark();
    }
    return bytes.get();
}

}  // namespace UnitFiles
