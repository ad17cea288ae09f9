// SPDX-License-Identifier: GPL-3.0-or-later
// Errors of the system as texts.
#pragma once

#include <string>
#include <system_error>

namespace kelvrum {

/// The system's words for an error, as messages to the user name it. UTF-8: the windowing toolkit sees to it
/// that the system's texts are.
inline std::string errorText(const std::error_code& error) { return error.message(); }

} // namespace kelvrum
