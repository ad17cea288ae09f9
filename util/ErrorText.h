// SPDX-License-Identifier: GPL-3.0-or-later
// Errors of the system as texts.
#pragma once

#include <string>
#include <system_error>

namespace kelvrum {

/// The system's description of an error, for messages to the user. UTF-8: the windowing toolkit sets such a
/// locale.
inline std::string errorText(const std::error_code& error) { return error.message(); }

} // namespace kelvrum
