// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of makestation.
#pragma once

#include "tools/makestation/StationPlan.h"

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>

namespace kelvrum::sample {

struct Order {
    std::filesystem::path folder;
    StationPlan plan;
};

/// The plan that the arguments (without the program's name) describe; `now` is the default end. Nothing
/// when they are invalid: `problem` says why then.
std::optional<Order> parseOrder(std::span<const std::string> arguments, DateTime now, std::string& problem);

/// The whole program except its clock. The exit code is 0 when the station is written, 1 when it cannot be, 2
/// when the arguments are invalid. Messages go to `messages`.
int makeStation(std::span<const std::string> arguments, DateTime now, std::ostream& messages);

} // namespace kelvrum::sample
