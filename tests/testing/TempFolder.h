// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of a test's own, removed at its end, and writers for the station's file formats laid out by hand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum::testing {

class TempFolder {
  public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// The path of a name in the folder, as UTF-8 text.
    [[nodiscard]] std::string at(std::string_view name) const;
    /// The folder's path with a "/" after it.
    [[nodiscard]] std::string base() const { return at(""); }
    /// Writes a file, making the folders of its name, and returns its path.
    std::string write(std::string_view name, std::string_view bytes) const; // NOLINT(modernize-use-nodiscard)

  private:
    std::filesystem::path path_;
};

/// The current folder is another one as long as this lives.
class CurrentFolder {
  public:
    explicit CurrentFolder(const std::filesystem::path& folder);
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder();

  private:
    std::filesystem::path before_;
};

/// The bytes of a channel file: header, then the values of the minutes from 0 on.
std::string channelFile(std::span<const double> minutes);

/// One record of a day file; narrow stations have one float for each channel, wide ones three.
std::string dayRecord(int year, int month, int day, int minute, std::span<const float> fields);

/// A binary configuration of 6545 bytes. Slots beyond `names` are inactive; an entry "-" is inactive too.
std::string varnixFile(std::string_view station, std::span<const std::string> names, bool wide);

} // namespace kelvrum::testing
