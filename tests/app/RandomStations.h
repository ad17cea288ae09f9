// What a random user works on: stations of all forms, some of them broken, and the choice of another run.
#pragma once

#include "tests/testing/TempFolder.h"

#include <QStringList>
#include <cstdint>

namespace kelvrum::testing {

/// Lays all stations into a folder; returns the files that the user may choose, the ini station's first.
QStringList layStations(const TempFolder& root);

/// The seed that KELVRUM_RANDOM_SEED names, else the usual one.
std::uint64_t randomSeed();

/// The number of actions that KELVRUM_RANDOM_ACTIONS names, else the usual one.
std::uint64_t randomActions(std::uint64_t usual);

} // namespace kelvrum::testing
