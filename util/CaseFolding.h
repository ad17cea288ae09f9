// SPDX-License-Identifier: GPL-3.0-or-later
// Case-insensitive texts, in any script and independent of the locale.
#pragma once

#include <string>
#include <string_view>

namespace kelvrum {

/// The text with each character as its simple case folding in Unicode: two texts differ in the case of
/// letters only when their foldings are equal ("ŠUMAVA" and "šumava" both give "šumava"). Characters without
/// case stay, as do bytes that are no UTF-8; "ß" stays one letter and is not "ss".
std::string foldCase(std::string_view text);

} // namespace kelvrum
