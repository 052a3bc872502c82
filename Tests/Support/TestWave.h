#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>

/// Sounds made in code, as files.
namespace TestWave {

inline void put(std::string& bytes, std::uint32_t value, int width) {
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

/// A WAV file of 16 bits: a sine of that pitch (Hz) and loudness (0 to 1) in every channel.
inline std::string makeSine(double pitch, double seconds, double loudness = 0.5, int channels = 1,
                            std::uint32_t frequency = 44100) {
    const auto frames = static_cast<std::uint32_t>(seconds * frequency);
    const std::uint32_t size = frames * static_cast<std::uint32_t>(channels) * 2;
    std::string bytes = "RIFF";
    put(bytes, 36 + size, 4);
    bytes += "WAVEfmt ";
    put(bytes, 16, 4);
    put(bytes, 1, 2);
    put(bytes, static_cast<std::uint32_t>(channels), 2);
    put(bytes, frequency, 4);
    put(bytes, frequency * static_cast<std::uint32_t>(channels) * 2, 4);
    put(bytes, static_cast<std::uint32_t>(channels) * 2, 2);
    put(bytes, 16, 2);
    bytes += "data";
    put(bytes, size, 4);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const double value = std::sin(2.0 * std::numbers::pi * pitch * i / frequency) * loudness;
        for (int channel = 0; channel < channels; ++channel)
            put(bytes, static_cast<std::uint32_t>(std::lround(value * 32767.0)), 2);
    }
    return bytes;
}

}  // namespace TestWave
