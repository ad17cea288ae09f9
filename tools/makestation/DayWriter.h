// SPDX-License-Identifier: GPL-3.0-or-later
// The day files of the sample station in its binary forms.
#pragma once

#include "tools/makestation/SampleStation.h"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace kelvrum::sample {

/// Gathers the records of a day and writes its file when the day is over. Minutes that were not recorded have
/// no record; a day without any has no file.
class DayWriter {
  public:
    DayWriter(std::filesystem::path folder, const StationPlan& plan)
        : folder_(std::move(folder))
        , wide_(plan.form == StationForm::wide)
        , random_(plan.seed, Stream::spread) {}

    /// Minutes must come in ascending order. Throws WriteError.
    void put(const MinuteRecord& record);

    /// Writes what is left. Throws WriteError.
    void finish();

  private:
    void storeWide(std::size_t at, double mean, std::size_t quantity);

    std::filesystem::path folder_;
    bool wide_;
    Random random_;
    Minute day_ = 0;
    std::vector<std::byte> file_;
};

} // namespace kelvrum::sample
