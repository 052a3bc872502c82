#pragma once

#include <zlib.h>

#include <cstddef>
#include <cstdint>

#include "Engine/core/Types.h"

/// The mutator of targets whose format is made of chunks with checksums. To be included by one file of a program.

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

/// Makes the checksums of a PNG's or JNG's chunks right again, so that changes reach what lies behind them.
inline void repairChecksums(std::uint8_t* data, std::size_t size) {
    std::size_t place = 8;
    while (place + 12 <= size) {
        std::uint8_t* chunk = data + place;
        const std::size_t length = std::size_t{chunk[0]} << 24 | std::size_t{chunk[1]} << 16 |
                                   std::size_t{chunk[2]} << 8 | std::size_t{chunk[3]};
        if (length > size - place - 12)
            return;
        const auto sum = static_cast<Engine::UInt>(crc32(0, chunk + 4, static_cast<uInt>(length + 4)));
        for (std::size_t i = 0; i < 4; ++i)
            chunk[8 + length + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        place += length + 12;
    }
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t max_size,
                                               unsigned int) {
    const std::size_t res = LLVMFuzzerMutate(data, size, max_size);
    repairChecksums(data, res);
    return res;
}
