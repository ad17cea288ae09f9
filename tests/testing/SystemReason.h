// SPDX-License-Identifier: GPL-3.0-or-later
// What the system says of an error, in the user's language.
#pragma once

#include <QString>
#include <system_error>

namespace kelvrum::testing {

inline QString systemReason(std::errc error) {
    return QString::fromLocal8Bit(std::make_error_code(error).message());
}

} // namespace kelvrum::testing
