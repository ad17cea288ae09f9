// SPDX-License-Identifier: GPL-3.0-or-later
// What a random user works on: stations of all forms, some of them broken, and the choice of another run.
#pragma once

#include "app/Environment.h"
#include "tests/testing/AnsweredDialogs.h"
#include "tests/testing/TempFolder.h"

#include <QStringList>
#include <cstdint>
#include <memory>

namespace kelvrum::testing {

/// The stations in a folder of their own, which is the current one meanwhile, and the world around a window
/// on the first of them.
class RandomStations {
  public:
    RandomStations();

    /// The files that the user may choose, the first station's first.
    [[nodiscard]] const QStringList& files() const { return files_; }
    [[nodiscard]] AnsweredDialogs& dialogs() const { return *dialogs_; }
    [[nodiscard]] Environment environment() const;

  private:
    TempFolder root_;
    QStringList files_;
    CurrentFolder current_; // windows change it
    std::shared_ptr<AnsweredDialogs> dialogs_ = std::make_shared<AnsweredDialogs>();
};

/// The seed that KELVRUM_RANDOM_SEED names, else the usual one.
std::uint64_t randomSeed();

/// The number of actions that KELVRUM_RANDOM_ACTIONS names, else the usual one.
std::uint64_t randomActions(std::uint64_t usual);

} // namespace kelvrum::testing
