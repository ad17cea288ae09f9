// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/DayWriter.h"

#include "data/DayFiles.h"
#include "data/DayFormat.h"
#include "tools/makestation/FileWriting.h"
#include "util/LittleEndian.h"
#include "util/Validity.h"

#include <algorithm>
#include <cstdint>

namespace kelvrum::sample {

void DayWriter::put(const MinuteRecord& record) {
    if (record.minute / DAY != day_) {
        finish();
        day_ = record.minute / DAY;
    }
    if (!record.recorded) {
        return;
    }
    const std::size_t at = file_.size();
    file_.resize(at + kmh::recordSize(QUANTITIES, wide_));
    const CalendarTime date = calendarTime(static_cast<double>(day_));
    storeLittle(file_, at + kmh::YEAR_AT, static_cast<std::int16_t>(date.year));
    storeLittle(file_, at + kmh::MONTH_AT, static_cast<std::uint8_t>(date.month));
    storeLittle(file_, at + kmh::DAY_AT, static_cast<std::uint8_t>(date.day));
    storeLittle(file_, at + kmh::MINUTE_AT, static_cast<std::int16_t>(record.minute % DAY));
    std::size_t field = at + kmh::FIELDS_AT;
    for (std::size_t i = 0; i < QUANTITIES; ++i) {
        if (wide_) {
            storeWide(field, record.values[i], i);
        } else {
            storeLittle(file_, field, static_cast<float>(record.values[i]));
        }
        field += wide_ ? kmh::WIDE_FIELD : kmh::NARROW_FIELD;
    }
}

/// Mean, minimum and maximum. What has no mean has no extremes, and a calm or dry minute is one throughout;
/// no extreme passes zero on its way down, since no quantity that starts above zero falls below it.
void DayWriter::storeWide(std::size_t at, double mean, std::size_t quantity) {
    const double spread = SAMPLE_CHANNELS[quantity].spread;
    double minimum = mean;
    double maximum = mean;
    if (isPresent(mean)) {
        minimum -= spread * random_.unit();
        maximum += spread * random_.unit();
        if (SAMPLE_CHANNELS[quantity].lowerLimit >= 0) {
            constexpr double LOWEST_PART = 0.1;
            minimum = std::max(minimum, LOWEST_PART * mean);
        }
        if (quantity == WIND_DIRECTION) {
            maximum = std::min(maximum, 360.0);
        }
        if (quantity == HUMIDITY) {
            maximum = std::min(maximum, 100.0);
        }
    }
    storeLittle(file_, at, static_cast<float>(mean));
    storeLittle(file_, at + kmh::MINIMUM_AT, static_cast<float>(minimum));
    storeLittle(file_, at + kmh::MAXIMUM_AT, static_cast<float>(maximum));
}

void DayWriter::finish() {
    if (!file_.empty()) {
        writeFile(folder_ / dayFileName(static_cast<double>(day_)), file_);
        file_.clear();
    }
}

} // namespace kelvrum::sample
