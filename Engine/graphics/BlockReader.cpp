#include "Engine/graphics/BlockReader.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <glm/gtc/type_ptr.hpp>

namespace Engine {

static_assert(std::endian::native == std::endian::little, "files are little-endian and are copied as they are");

std::span<const std::uint8_t> cBlockReader::take(std::size_t count, std::size_t element_size) {
    if (count > m_rest.size() / element_size)
        throw end_of_source;
    const auto res = m_rest.first(count * element_size);
    m_rest = m_rest.subspan(res.size());
    return res;
}

UInt cBlockReader::readUInt() {
    UInt res = 0;
    std::memcpy(&res, take(1, sizeof(res)).data(), sizeof(res));
    return res;
}

Float cBlockReader::readFloat() {
    const Float res = std::bit_cast<Float>(readUInt());
    if (!std::isfinite(res))
        throw invalid_format;
    return res;
}

Matrix cBlockReader::readMatrix() {
    Matrix res;
    Float* number = glm::value_ptr(res);
    for (int i = 0; i < 16; ++i)
        number[i] = readFloat();
    return res;
}

Bool cBlockReader::isMark() {
    return std::memcmp(take(1, 4).data(), "qorv", 4) == 0;
}

void cBlockReader::readMark() {
    if (!isMark())
        throw invalid_format;
}

}  // namespace Engine
