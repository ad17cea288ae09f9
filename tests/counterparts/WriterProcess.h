// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the process to be killed, and kills it.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace kelvrum::testing {

using Micros = std::chrono::microseconds;

/// How a run ended.
struct WriterEnd {
    bool killed = false;
    bool succeeded = false; // not killed, and all was written
    std::string message;    // of a failure
    Micros duration{0};     // from its beginning, the start of the process not counted
};

/// Runs the writer and kills it that long after it has begun; without a delay lets it end. Throws
/// std::runtime_error when it does not begin.
WriterEnd runWriter(const std::vector<std::string>& arguments, std::optional<Micros> killAfter = {});

/// How often a test kills: KELVRUM_KILLS, else a few times. KELVRUM_KILL_SEED sets another seed.
int killCount();
unsigned killSeed();

/// Files of killed savings in a folder.
int leftOverFiles(const std::filesystem::path& folder);

} // namespace kelvrum::testing
