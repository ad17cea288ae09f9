// SPDX-License-Identifier: GPL-3.0-or-later
// Stations for the benchmarks: a year of minutes in a folder of their own, removed at the end.
#pragma once

#include "config/StationConfig.h"
#include "util/DateTime.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace kelvrum::bench {

// Channels of the station.
inline constexpr int SPEED = 4;     // in tenths, as instruments deliver
inline constexpr int DIRECTION = 5; // in whole degrees, paired with SPEED
inline constexpr int DIRECTION_IN_TENTHS = 6;
inline constexpr int ANY_SPEED = 8;     // hardly two alike
inline constexpr int ANY_DIRECTION = 9; // the same, paired with ANY_SPEED
inline constexpr int CORRECTED_DUST = 15;
inline constexpr int DUST = 7;
inline constexpr int RAIN = 12;
inline constexpr int TEMPERATURE = 13; // in tenths

/// The year that the stations hold.
inline TimeRange benchYear() { return {dateSerial(2019, 1, 1), dateSerial(2020, 1, 1)}; }

/// A folder below the system's temporary one, removed with the object.
class BenchFolder {
  public:
    explicit BenchFolder(const std::string& name);
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;
    ~BenchFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// A project of the ini form with the channels above; its start-up range is the year.
class BenchStation {
  public:
    BenchStation();

    [[nodiscard]] std::string folder() const { return folder_.path().string(); }
    /// The path of a channel's file.
    [[nodiscard]] std::string file(int channel) const;

    StationConfig config;

  private:
    void write(int channel, std::int32_t mode, std::vector<double> values);

    BenchFolder folder_;
};

/// The one that all benchmarks share.
const BenchStation& station();

/// A project of the binary form: a day file of 1,440 records for each day of the year, 34 channels.
class BenchDays {
  public:
    explicit BenchDays(bool wide);

    StationConfig config;

  private:
    BenchFolder folder_;
};

} // namespace kelvrum::bench
