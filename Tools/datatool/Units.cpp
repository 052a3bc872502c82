#include "Tools/datatool/Units.h"

#include <algorithm>
#include <cstring>
#include <glm/common.hpp>
#include <limits>

#include "Engine/graphics/Animation.h"
#include "Engine/graphics/iMesh.h"

namespace Datatool {

using namespace Engine;

namespace {

using JSON = nlohmann::ordered_json;

constexpr std::string_view mark = "qorv";

/// Where a mesh has its second mark an animation has the parent of its first bone.
bool isMesh(const BYTES& bytes) {
    return bytes.size() >= 20 && std::string_view(bytes.data() + 16, mark.size()) == mark;
}

JSON toJson(const Vector3& place) {
    return JSON::array({place.x, place.y, place.z});
}

JSON inspectMesh(const iMesh& mesh) {
    JSON json{{"format", "mesh"},
              {"vertex_format", mesh.getFormat()},
              {"vertices", mesh.getVertexCount()},
              {"triangles", mesh.getTriangleCount()},
              {"bones", mesh.getBoneMatrices() ? mesh.getBoneMatrices()->size() : 0}};
    if (mesh.getVertexCount() == 0)
        return json;
    Vector3 low(std::numeric_limits<Float>::max());
    Vector3 high(std::numeric_limits<Float>::lowest());
    for (std::size_t at = 0; at < mesh.getVertices().size(); at += mesh.getVertexSize()) {
        Vector3 place;
        std::memcpy(&place, &mesh.getVertices()[at], sizeof(place));
        low = glm::min(low, place);
        high = glm::max(high, place);
    }
    json["low"] = toJson(low);
    json["high"] = toJson(high);
    return json;
}

JSON inspectAnimation(const cAnimation& animation) {
    JSON bones = JSON::array();
    for (UInt i = 0; i < animation.getBoneCount(); ++i) {
        const UInt parent = animation.getParent(i);
        bones.push_back(
            {{"parent", parent == cAnimation::no_parent ? JSON() : JSON(parent)}, {"keys", animation.getKeyCount(i)}});
    }
    return {{"format", "animation"}, {"length", animation.getLength()}, {"bones", std::move(bones)}};
}

}  // namespace

bool isUnitFile(const BYTES& head) {
    return std::string_view(head.data(), head.size()).starts_with(mark);
}

nlohmann::ordered_json inspectUnit(const String& name, const BYTES& bytes) {
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    try {
        if (isMesh(bytes))
            return inspectMesh(*iMesh::create(name, data, bytes.size()));
        return inspectAnimation(cAnimation(name, data, bytes.size()));
    } catch (const char* reason) {
        throw String(name + ": " + reason);
    }
}

}  // namespace Datatool
