// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/batchprint/SettingsBytes.h"

#include <bit>

namespace kelvrum::testing {

namespace {

void append(std::string& bytes, std::uint64_t number, int size) {
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(static_cast<unsigned char>(number >> (8 * i)));
    }
}

void append(std::string& bytes, std::int16_t number) { append(bytes, static_cast<std::uint16_t>(number), 2); }

void append(std::string& bytes, double number) { append(bytes, std::bit_cast<std::uint64_t>(number), 8); }

} // namespace

std::string bytesOf(const MadeRecord& record) {
    std::string bytes(4, '\0');
    append(bytes, record.selected);
    append(bytes, record.automatic);
    append(bytes, record.minimum);
    append(bytes, record.maximum);
    append(bytes, record.interval);
    append(bytes, record.limitsShown);
    append(bytes, record.lower);
    append(bytes, record.upper);
    append(bytes, record.meanShown);
    return bytes + std::string(38, '\0');
}

std::string fileOf(const std::vector<MadeRecord>& records) {
    std::string bytes;
    for (const MadeRecord& record : records) {
        bytes += bytesOf(record);
    }
    bytes.resize(16 * 84);
    return bytes;
}

std::string patched(std::string file, std::size_t at, std::string_view bytes) {
    return file.replace(at, bytes.size(), bytes);
}

} // namespace kelvrum::testing
