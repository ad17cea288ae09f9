// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/ChannelWriter.h"

#include "data/ChannelFiles.h"
#include "data/ChannelFormat.h"
#include "tools/makestation/FileWriting.h"
#include "util/LittleEndian.h"

namespace kelvrum::sample {

void ChannelWriter::put(const MinuteRecord& record) {
    if (record.minute >= nextNewYear_) {
        finish();
        year_ = calendarTime(timeOf(record.minute)).year;
        newYear_ = minuteOf(dateSerial(year_, 1, 1));
        nextNewYear_ = minuteOf(dateSerial(year_ + 1, 1, 1));
        for (auto& file : files_) {
            file.reserve(static_cast<std::size_t>(chn::valueOffset(nextNewYear_ - newYear_)));
        }
    }
    const auto offset = static_cast<std::size_t>(chn::valueOffset(record.minute - newYear_));
    for (std::size_t i = 0; i < QUANTITIES; ++i) {
        files_[i].resize(offset + chn::VALUE_SIZE);
        storeLittle(files_[i], offset, record.values[i]);
    }
}

void ChannelWriter::finish() {
    for (std::size_t i = 0; i < QUANTITIES; ++i) {
        if (!files_[i].empty()) {
            writeFile(folder_ / channelFileName(SAMPLE_CHANNELS[i].number, "", year_), files_[i]);
        }
        files_[i].clear();
    }
}

} // namespace kelvrum::sample
