// SPDX-License-Identifier: GPL-3.0-or-later
// The calendars of the date pickers show on which days the selected channel has data.
#include "app/ChannelChoice.h"
#include "app/f.h"
#include "data/DayCoverage.h"

#include <QCoreApplication>
#include <QTimer>
#include <map>

namespace kelvrum {

namespace {

DayMark markOf(Coverage coverage) {
    switch (coverage) {
    case Coverage::full:
        return DayMark::full;
    case Coverage::partial:
        return DayMark::half;
    case Coverage::none:
        return DayMark::empty;
    case Coverage::unmarked:
        break;
    }
    return DayMark::none;
}

} // namespace

/// Reads once the calendar is visible; a newer request cancels the reading.
void f::wantMarks(MarkedCalendar* calendar, int year, int month) {
    const unsigned number = wantedMonth_.number + 1;
    wantedMonth_ = {calendar, year, month, number};
    QTimer::singleShot(0, this, [this] { loader_.whenIdle("calendar", [this] { markMonth(); }); });
}

void f::markMonth() {
    const WantedMonth wanted = wantedMonth_;
    const std::int32_t channel = selChan->channel();
    if (channel == 0 || wanted.calendar == nullptr || !wanted.calendar->isVisible()) {
        return;
    }
    const StationConfig station = station_;
    const unsigned requests = loader_.requests();
    const ReadingStep step = [this, requests, &wanted] {
        QCoreApplication::processEvents();
        return isNewest(requests) && wantedMonth_.number == wanted.number;
    };
    const auto coverage = readCoverage(station, channel, wanted.year, wanted.month, openAndAnswer(), step);
    if (!coverage || wanted.calendar == nullptr) {
        return;
    }
    std::map<QDate, MarkedCalendar::Mark> marks;
    for (int day = 1; day <= QDate(wanted.year, wanted.month, 1).daysInMonth(); ++day) {
        marks[QDate(wanted.year, wanted.month, day)] = {markOf(coverageOf(*coverage, day)),
                                                        QString::fromStdString(coverageText(*coverage, day))};
    }
    wanted.calendar->setMarks(marks);
}

} // namespace kelvrum
