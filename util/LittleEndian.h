// SPDX-License-Identifier: GPL-3.0-or-later
// Little-endian numbers in byte buffers, whatever the byte order of the machine.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace kelvrum {

template<std::size_t SIZE>
using UnsignedOf =
    std::conditional_t<SIZE == 1, std::uint8_t,
                       std::conditional_t<SIZE == 2, std::uint16_t,
                                          std::conditional_t<SIZE == 4, std::uint32_t, std::uint64_t>>>;

/// The number of type T (integer or floating-point) at a byte offset; the bytes must be there.
template<typename T>
T loadLittle(std::span<const std::byte> bytes, std::size_t at) {
    using Bits = UnsignedOf<sizeof(T)>;
    Bits bits = 0;
    const auto field = bytes.subspan(at, sizeof(T));
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bits = static_cast<Bits>(bits | static_cast<Bits>(static_cast<Bits>(field[i]) << (8 * i)));
    }
    return std::bit_cast<T>(bits);
}

/// Writes a number of type T at a byte offset; the room must be there.
template<typename T>
void storeLittle(std::span<std::byte> bytes, std::size_t at, T value) {
    using Bits = UnsignedOf<sizeof(T)>;
    const Bits bits = std::bit_cast<Bits>(value);
    const auto field = bytes.subspan(at, sizeof(T));
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        field[i] = static_cast<std::byte>(bits >> (8 * i));
    }
}

/// Turns doubles that were read as raw little-endian bytes into the machine's own, in place.
inline void fromLittle(std::span<double> values) {
    if constexpr (std::endian::native != std::endian::little) {
        for (double& value : values) {
            value = loadLittle<double>(std::as_bytes(std::span(&value, 1)), 0);
        }
    }
}

} // namespace kelvrum
