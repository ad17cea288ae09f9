// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a settings file, laid out by hand.
#pragma once

#include "tests/testing/TempFolder.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum::testing {

/// One record as the file holds it.
struct MadeRecord {
    std::int16_t selected = 0;
    std::int16_t automatic = 0;
    double minimum = 0;
    double maximum = 0;
    std::int16_t interval = 0;
    std::int16_t limitsShown = 0;
    double lower = 0;
    double upper = 0;
    std::int16_t meanShown = 0;
};

/// 84 bytes.
std::string bytesOf(const MadeRecord& record);

/// 16 records of zeros but for the first ones.
std::string fileOf(const std::vector<MadeRecord>& records);

/// A file with `bytes` written over it at an offset.
std::string patched(std::string file, std::size_t at, std::string_view bytes);

} // namespace kelvrum::testing
