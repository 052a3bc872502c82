#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "Engine/core/Types.h"

namespace Engine {

/// Reads the bytes of a mesh or an animation from front to end: numbers of 32 bits, little-endian, in blocks that end
/// with the four bytes "qorv".
///
/// Every read tests first whether there is that much left and throws the plain string "Unexpected end of source" if
/// not; what is there but can't be right throws "Invalid resource format".
class cBlockReader {
public:
    static constexpr const char* end_of_source = "Unexpected end of source";
    static constexpr const char* invalid_format = "Invalid resource format";

    cBlockReader(const std::uint8_t* data, std::size_t size) : m_rest(data, size) {}

    /// That many elements of that size; they stay where they are.
    std::span<const std::uint8_t> take(std::size_t count, std::size_t element_size);
    UInt readUInt();
    Float readFloat();  ///< throws for what is not finite
    /// Sixteen Floats row by row. Throws for what is not finite.
    Matrix readMatrix();
    Bool isMark();    ///< reads the next four bytes: are they "qorv"
    void readMark();  ///< throws if they are not

    std::size_t getRest() const { return m_rest.size(); }  ///< bytes not read yet

private:
    std::span<const std::uint8_t> m_rest;
};

}  // namespace Engine
