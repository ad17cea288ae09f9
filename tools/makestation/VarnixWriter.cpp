// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/VarnixWriter.h"

#include "config/VarnixFormat.h"
#include "tools/makestation/IniWriter.h"
#include "tools/makestation/SampleChannels.h"
#include "util/LittleEndian.h"

#include <algorithm>
#include <cstdint>

namespace kelvrum::sample {

namespace {

void storeText(std::vector<std::byte>& record, std::size_t at, std::size_t size, std::string_view text) {
    const std::string bytes = windows1252(text);
    for (std::size_t i = 0; i < std::min(size, bytes.size()); ++i) {
        record[at + i] = static_cast<std::byte>(bytes[i]);
    }
}

} // namespace

std::string windows1252(std::string_view utf8) {
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        if (lead < 0x80) {
            bytes += utf8[i];
        } else if (i + 1 < utf8.size()) { // two bytes, 110000xx 10xxxxxx
            const auto next = static_cast<unsigned char>(utf8[++i]);
            bytes += static_cast<char>((lead & 0x03U) << 6U | (next & 0x3FU));
        }
    }
    return bytes;
}

std::vector<std::byte> varnixRecord(bool wide) {
    using namespace varnix;
    constexpr std::int16_t SET = 1;
    std::vector<std::byte> record(RECORD_SIZE);
    storeLittle<std::int16_t>(record, WIDE_SWITCH_AT, wide ? SET : 0);
    storeText(record, STATION_NAME_AT, STATION_NAME_SIZE, PROJECT_NAME);
    for (const SampleChannel& channel : SAMPLE_CHANNELS) {
        const std::size_t slot = SLOTS_AT + static_cast<std::size_t>(channel.number - 1) * SLOT_SIZE;
        storeLittle<std::int16_t>(record, slot + SLOT_ACTIVE_AT, SET);
        storeText(record, slot + SLOT_NAME_AT, SLOT_NAME_SIZE, channel.shortName);
    }
    return record;
}

} // namespace kelvrum::sample
