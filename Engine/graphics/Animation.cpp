#include "Engine/graphics/Animation.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/matrix.hpp>

#include "Engine/core/CallStack.h"
#include "Engine/core/WholeFile.h"
#include "Engine/graphics/BlockReader.h"
#include "Engine/platform/MeshFormat.h"

namespace Engine {

namespace {

constexpr std::size_t key_size = 17 * sizeof(Float);

/// Brings the row to the length; a row of zeros stays as it is. The rows of a file's matrix are columns here.
void setRowLength(glm::vec4& row, Float wanted) {
    const Float length = glm::length(Vector3(row));
    if (length > 0.0f)
        row *= wanted / length;
}

}  // namespace

cAnimation::cAnimation(const String& name) : iResource(name) {
    ENGINE_MARK;
    const std::vector<std::uint8_t> file = readWholeFile(name, "Animation");
    read(file.data(), file.size());
}

cAnimation::cAnimation(const String& name, const std::uint8_t* data, std::size_t size) : iResource(name) {
    read(data, size);
}

void cAnimation::read(const std::uint8_t* data, std::size_t size) {
    const String place = "cAnimation::read(\"" + getName() + "\")";  // the failures' own texts name no file
    ENGINE_MARK_TEXT(place.c_str());
    cBlockReader reader(data, size);
    reader.readMark();
    const UInt count = reader.readUInt();
    m_length = reader.readFloat();
    if (count > Platform::max_bones || m_length <= 0.0f)
        throw cBlockReader::invalid_format;

    m_bones.resize(count);
    for (sBone& bone : m_bones) {
        const UInt keys = reader.readUInt();
        bone.parent = reader.readUInt();
        if (keys > reader.getRest() / key_size)
            throw cBlockReader::end_of_source;
        bone.keys.reserve(keys);
        bone.times.reserve(keys);
        for (UInt i = 0; i < keys; ++i) {
            bone.keys.push_back(reader.readMatrix());
            bone.times.push_back(reader.readFloat());
        }
        reader.readMark();
    }
    checkParents();
    m_matrices.assign(count, Matrix(1.0f));
    m_done.assign(count, false);
}

/// Every way up ends at a root.
void cAnimation::checkParents() const {
    for (UInt i = 0; i < m_bones.size(); ++i) {
        UInt steps = 0;
        for (UInt bone = i; bone != no_parent; bone = m_bones[bone].parent) {
            if (bone >= m_bones.size() || ++steps > m_bones.size())
                throw cBlockReader::invalid_format;
        }
    }
}

void cAnimation::setTime(Float t, const std::vector<Matrix>* bind) {
    if (!bind || (t == m_time && bind == m_bind))
        return;
    m_time = std::fmod(t, m_length);
    m_bind = bind;
    for (UInt i = 0; i < m_bones.size(); ++i) {
        m_done[i] = false;
        m_matrices[i] = mixKeys(m_bones[i], m_time);
    }
    for (UInt i = 0; i < m_bones.size(); ++i)
        applyHierarchy(i);
    for (UInt i = 0; i < m_bones.size() && i < bind->size(); ++i) {
        if (!m_bones[i].keys.empty())
            m_matrices[i] = m_matrices[i] * glm::inverse((*bind)[i]);
    }
}

/// The place of the bone in its parent.
Matrix cAnimation::mixKeys(const sBone& bone, Float time) {
    const auto found = std::find_if(bone.times.begin(), bone.times.end(), [time](Float key) { return key > time; });
    if (found == bone.times.begin() || found == bone.times.end())
        return Matrix(1.0f);
    const auto next = static_cast<std::size_t>(found - bone.times.begin());
    const Matrix& a = bone.keys[next - 1];
    const Matrix& b = bone.keys[next];
    const Float k = (time - bone.times[next - 1]) / (bone.times[next] - bone.times[next - 1]);
    Matrix res = a * (1.0f - k) + b * k;
    for (int row = 0; row < 3; ++row)
        setRowLength(res[row], glm::length(Vector3(a[row])) * (1.0f - k) + glm::length(Vector3(b[row])) * k);
    return res;
}

void cAnimation::applyHierarchy(UInt bone) {
    if (m_done[bone])
        return;
    const UInt parent = m_bones[bone].parent;
    if (parent != no_parent) {
        applyHierarchy(parent);
        m_matrices[bone] = m_matrices[parent] * m_matrices[bone];
    }
    m_done[bone] = true;
}

}  // namespace Engine
