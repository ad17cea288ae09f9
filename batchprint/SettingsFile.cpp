#include "batchprint/SettingsFile.h"

#include "data/IntervalChoices.h"
#include "util/LittleEndian.h"
#include "util/Paths.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

namespace kelvrum {

namespace fs = std::filesystem;

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

/// The reason of the stream operation that failed last.
std::error_code streamError() {
    return errno != 0 ? std::error_code(errno, std::generic_category())
                      : std::make_error_code(std::errc::io_error);
}

/// Whether an existing file may be written. A rename alone would replace a write-protected file as well.
std::error_code checkWritable(const fs::path& file, const fs::file_status& status) {
    if (!fs::is_regular_file(status)) {
        return std::make_error_code(fs::is_directory(status) ? std::errc::is_a_directory
                                                             : std::errc::invalid_argument);
    }
    errno = 0;
    return std::fstream(file, std::ios::binary | std::ios::in | std::ios::out) ? std::error_code()
                                                                               : streamError();
}

/// Makes a file; one that could not be filled is removed again.
std::error_code writeFile(const fs::path& file, std::span<const std::byte> bytes) {
    errno = 0;
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    if (!stream) {
        return streamError();
    }
    stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    stream.close(); // flushes: a full disk shows at the latest here
    if (stream) {
        return {};
    }
    const std::error_code error = streamError();
    std::error_code ignored;
    fs::remove(file, ignored);
    return error;
}

/// Gives the fresh file the name of the old one, and its rights.
std::error_code moveOver(const fs::path& fresh, const fs::path& file, const fs::file_status& before) {
    std::error_code error;
    if (fs::exists(before)) {
        fs::permissions(fresh, before.permissions(), error);
    }
    if (!error) {
        fs::rename(fresh, file, error);
    }
    if (error) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
    }
    return error;
}

/// Writes a file beside the old one, which then takes its place.
std::error_code replaceFile(fs::path file, std::span<const std::byte> bytes) {
    std::error_code error;
    const fs::file_status before = fs::status(file, error);
    if (fs::exists(before)) {
        if (error = checkWritable(file, before); error) {
            return error;
        }
        if (file = fs::canonical(file, error); error) { // a link stays one
            return error;
        }
    }
    fs::path fresh = file;
    fresh += ".neu";
    error = writeFile(fresh, bytes);
    return error ? error : moveOver(fresh, file, before);
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
        return {.rows = {},
                .damaged = fileExists(path),
                .damagedRow = {}}; // there, but not to be read: a folder, say
    }
    SettingsBytes bytes{};
    if (file->size() != bytes.size() || file->read(0, bytes) != bytes.size()) {
        return {{}, true};
    }
    return decodeSettings(bytes);
}

std::error_code saveSettings(std::span<const RowSettings> rows, std::string_view path) {
    const SettingsBytes bytes = encodeSettings(rows);
    const auto file = nativePath(path);
    return file ? replaceFile(*file, bytes) : std::make_error_code(std::errc::no_such_file_or_directory);
}

} // namespace kelvrum
