// Integers and reals in bytes: the byte order and the width are in the name of the function.
// Scans on the serial line are big-endian, files are little-endian. Callers guarantee the room.
#pragma once

#include <bit>
#include <cstdint>

namespace tarvik {

[[nodiscard]] constexpr std::uint16_t readU16be(const std::uint8_t* p) {
    return static_cast<std::uint16_t>((p[0] << 8) | p[1]);
}

[[nodiscard]] constexpr std::uint32_t readU24be(const std::uint8_t* p) {
    return (std::uint32_t{p[0]} << 16) | (std::uint32_t{p[1]} << 8) | p[2];
}

[[nodiscard]] constexpr std::uint16_t readU16le(const std::uint8_t* p) {
    return static_cast<std::uint16_t>(p[0] | (p[1] << 8));
}

[[nodiscard]] constexpr std::uint32_t readU32le(const std::uint8_t* p) {
    return p[0] | (std::uint32_t{p[1]} << 8) | (std::uint32_t{p[2]} << 16) | (std::uint32_t{p[3]} << 24);
}

[[nodiscard]] constexpr std::int16_t readI16le(const std::uint8_t* p) {
    return static_cast<std::int16_t>(readU16le(p));
}

[[nodiscard]] constexpr std::int32_t readI32le(const std::uint8_t* p) {
    return static_cast<std::int32_t>(readU32le(p));
}

[[nodiscard]] constexpr float readF32le(const std::uint8_t* p) {
    return std::bit_cast<float>(readU32le(p));
}

[[nodiscard]] constexpr double readF64le(const std::uint8_t* p) {
    return std::bit_cast<double>(std::uint64_t{readU32le(p)} | (std::uint64_t{readU32le(p + 4)} << 32));
}

constexpr void writeU16le(std::uint8_t* p, std::uint16_t value) {
    p[0] = static_cast<std::uint8_t>(value);
    p[1] = static_cast<std::uint8_t>(value >> 8);
}

constexpr void writeU32le(std::uint8_t* p, std::uint32_t value) {
    writeU16le(p, static_cast<std::uint16_t>(value));
    writeU16le(p + 2, static_cast<std::uint16_t>(value >> 16));
}

constexpr void writeI16le(std::uint8_t* p, std::int16_t value) {
    writeU16le(p, static_cast<std::uint16_t>(value));
}

constexpr void writeI32le(std::uint8_t* p, std::int32_t value) {
    writeU32le(p, static_cast<std::uint32_t>(value));
}

constexpr void writeF32le(std::uint8_t* p, float value) {
    writeU32le(p, std::bit_cast<std::uint32_t>(value));
}

constexpr void writeF64le(std::uint8_t* p, double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    writeU32le(p, static_cast<std::uint32_t>(bits));
    writeU32le(p + 4, static_cast<std::uint32_t>(bits >> 32));
}

} // namespace tarvik
