// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as Sammeldruck.cfg: as they come, and brought to the length of the file.
#include "batchprint/SettingsFile.h"
#include "data/IntervalChoices.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/testing/FakeFiles.h"

#include <string>

namespace {

using namespace kelvrum;
using fuzzing::require;

LoadedSettings settingsOf(const std::string& bytes) {
    return loadSettings("Sammeldruck.cfg", testing::openerOf(bytes));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    if (size != sammeldruck::FILE_SIZE) {
        require(settingsOf(bytes) == LoadedSettings{{}, true}, "another length is damage");
    }
    bytes.resize(sammeldruck::FILE_SIZE);
    const LoadedSettings settings = settingsOf(bytes);
    require(settings.damaged == (settings.rows.size() < ROW_COUNT), "what is not damaged has all its rows");
    for (const RowSettings& row : settings.rows) {
        require(row.interval >= 0 && row.interval < std::ssize(INTERVAL_CHOICES), "intervals are choices");
    }
    // Rows may hold a NaN, which equals nothing: their bytes are compared.
    const SettingsBytes saved = encodeSettings(settings.rows);
    const LoadedSettings again = decodeSettings(saved);
    require(!again.damaged && again.rows.size() == ROW_COUNT, "what was saved is whole");
    require(encodeSettings(again.rows) == saved, "saved settings load as they were saved");
    return 0;
}
