// SPDX-License-Identifier: GPL-3.0-or-later
// Little-endian numbers: bytes laid out by hand, whatever the machine.
#include "util/LittleEndian.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

namespace kelvrum {
namespace {

template<typename T>
void expectBytes(T value, const std::vector<int>& bytes) {
    std::vector<std::byte> buffer(bytes.size() + 2, std::byte{0xEE});
    storeLittle(std::span(buffer), 1, value);
    EXPECT_EQ(buffer.front(), std::byte{0xEE});
    EXPECT_EQ(buffer.back(), std::byte{0xEE});
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        EXPECT_EQ(static_cast<int>(buffer[i + 1]), bytes[i]) << "byte " << i << " of " << +value;
    }
    EXPECT_EQ(loadLittle<T>(buffer, 1), value);
}

TEST(LittleEndian, Numbers) {
    expectBytes<std::uint8_t>(0xAB, {0xAB});
    expectBytes<std::int8_t>(-1, {0xFF});
    expectBytes<std::int16_t>(2020, {0xE4, 0x07});
    expectBytes<std::int16_t>(-2, {0xFE, 0xFF});
    expectBytes<std::int16_t>(std::numeric_limits<std::int16_t>::min(), {0x00, 0x80});
    expectBytes<std::uint16_t>(0x8001, {0x01, 0x80});
    expectBytes<std::int32_t>(0x01020384, {0x84, 0x03, 0x02, 0x01});
    expectBytes<std::int32_t>(-1, {0xFF, 0xFF, 0xFF, 0xFF});
    expectBytes<std::uint32_t>(0xFEDCBA98, {0x98, 0xBA, 0xDC, 0xFE});
    expectBytes<std::uint64_t>(0x8877665544332211, {0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88});
    expectBytes<std::int64_t>(-2, {0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
    expectBytes<float>(1.5F, {0x00, 0x00, 0xC0, 0x3F});
    expectBytes<float>(-0.1F, {0xCD, 0xCC, 0xCC, 0xBD});
    expectBytes<double>(1.0, {0, 0, 0, 0, 0, 0, 0xF0, 0x3F});
    expectBytes<double>(-0.1, {0x9A, 0x99, 0x99, 0x99, 0x99, 0x99, 0xB9, 0xBF});
    expectBytes<double>(99999900.0, {0x00, 0x00, 0x00, 0x70, 0x82, 0xD7, 0x97, 0x41});
}

TEST(LittleEndian, DoublesInPlace) {
    std::array<double, 3> values{};
    const auto bytes = std::as_writable_bytes(std::span(values));
    storeLittle(bytes, 0, 1.25);
    storeLittle(bytes, 8, -7.0);
    storeLittle(bytes, 16, 1e-300);
    fromLittle(values);
    EXPECT_EQ(values, (std::array{1.25, -7.0, 1e-300}));
}

} // namespace
} // namespace kelvrum
