// SPDX-License-Identifier: GPL-3.0-or-later
#include "batchprint/SettingsFile.h"

#include "data/IntervalChoices.h"
#include "util/FileReplacement.h"
#include "util/LittleEndian.h"
#include "util/Paths.h"

namespace kelvrum {

namespace {

using namespace sammeldruck;

void storeFlag(std::span<std::byte> record, std::size_t at, bool checked) {
    storeLittle<std::int16_t>(record, at, checked ? 1 : 0);
}

bool loadFlag(std::span<const std::byte> record, std::size_t at) {
    return loadLittle<std::int16_t>(record, at) != 0;
}

void encodeRow(const RowSettings& row, std::span<std::byte> record) {
    storeFlag(record, SELECTED_AT, row.selected);
    storeFlag(record, AUTOMATIC_AT, row.automatic);
    storeLittle(record, MINIMUM_AT, row.minimum);
    storeLittle(record, MAXIMUM_AT, row.maximum);
    storeLittle(record, INTERVAL_AT, static_cast<std::int16_t>(row.interval));
    storeFlag(record, LIMITS_AT, row.limitsShown);
    storeLittle(record, LOWER_AT, row.lowerLimit);
    storeLittle(record, UPPER_AT, row.upperLimit);
    storeFlag(record, MEAN_AT, row.meanShown);
}

RowSettings decodeRow(std::span<const std::byte> record) {
    RowSettings row;
    row.selected = loadFlag(record, SELECTED_AT);
    row.automatic = loadFlag(record, AUTOMATIC_AT);
    row.minimum = loadLittle<double>(record, MINIMUM_AT);
    row.maximum = loadLittle<double>(record, MAXIMUM_AT);
    row.interval = loadLittle<std::int16_t>(record, INTERVAL_AT);
    row.limitsShown = loadFlag(record, LIMITS_AT);
    row.lowerLimit = loadLittle<double>(record, LOWER_AT);
    row.upperLimit = loadLittle<double>(record, UPPER_AT);
    row.meanShown = loadFlag(record, MEAN_AT);
    return row;
}

bool isChoice(std::int32_t interval) {
    return interval >= 0 && static_cast<std::size_t>(interval) < INTERVAL_CHOICES.size();
}

} // namespace

SettingsBytes encodeSettings(std::span<const RowSettings> rows) {
    SettingsBytes bytes{};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        encodeRow(rows[i], std::span(bytes).subspan(i * RECORD_SIZE, RECORD_SIZE));
    }
    return bytes;
}

LoadedSettings decodeSettings(std::span<const std::byte, FILE_SIZE> bytes) {
    LoadedSettings settings;
    for (std::size_t i = 0; i < ROW_COUNT; ++i) {
        const RowSettings row = decodeRow(bytes.subspan(i * RECORD_SIZE, RECORD_SIZE));
        if (!isChoice(row.interval)) {
            settings.damaged = true;
            settings.damagedRow = row;
            break;
        }
        settings.rows.push_back(row);
    }
    return settings;
}

LoadedSettings loadSettings(std::string_view path, const FileOpener& open) {
    const auto file = open(path);
    if (!file) {
        return {{}, fileExists(path)}; // exists but cannot be read, for example a folder
    }
    SettingsBytes bytes{};
    if (file->size() != bytes.size() || file->read(0, bytes) != bytes.size()) {
        return {{}, true};
    }
    return decodeSettings(bytes);
}

std::error_code saveSettings(std::span<const RowSettings> rows, std::string_view path) {
    return replaceFile(path, encodeSettings(rows));
}

} // namespace kelvrum
