// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and saving the batch print settings.
#pragma once

#include "batchprint/BatchRows.h"
#include "batchprint/SettingsFormat.h"
#include "util/FileSource.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>
#include <vector>

namespace kelvrum {

/// The settings file, in the current folder.
inline constexpr std::string_view SETTINGS_FILE = "Sammeldruck.cfg";

using SettingsBytes = std::array<std::byte, sammeldruck::FILE_SIZE>;

/// The result of loading a settings file.
struct LoadedSettings {
    std::vector<RowSettings> rows; // from slot 0 on; of a damaged file those before the damage
    bool damaged = false;          // unreadable, of another length, or with an interval that does not exist
    std::optional<RowSettings> damagedRow = std::nullopt; // the row with that interval

    bool operator==(const LoadedSettings&) const = default;
};

/// The bytes of a file; the records of slots after the last row are zeros. At most SLOT_COUNT rows.
SettingsBytes encodeSettings(std::span<const RowSettings> rows);

/// The rows of a file's bytes, at most ROW_COUNT. The records of slots without a row are not looked at.
/// A check box state other than 0 counts as checked.
LoadedSettings decodeSettings(std::span<const std::byte, sammeldruck::FILE_SIZE> bytes);

/// Reads a settings file. A missing file is not damaged: it has no rows.
LoadedSettings loadSettings(std::string_view path = SETTINGS_FILE, const FileOpener& open = openFile);

/// Replaces a settings file as a whole. When anything fails the old one stays as it was; the result is
/// the system's error, empty after success.
[[nodiscard]] std::error_code saveSettings(std::span<const RowSettings> rows,
                                           std::string_view path = SETTINGS_FILE);

} // namespace kelvrum
