// SPDX-License-Identifier: GPL-3.0-or-later
// The binary form of the sample station's configuration.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum::sample {

/// The content of VARNIX.CFG.
std::vector<std::byte> varnixRecord(bool wide);

/// A UTF-8 text in Windows-1252. The text must hold no more than ASCII and the upper half of Latin-1, where
/// both have the same numbers.
std::string windows1252(std::string_view utf8);

} // namespace kelvrum::sample
