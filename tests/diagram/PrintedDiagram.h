// SPDX-License-Identifier: GPL-3.0-or-later
// A diagram control for the tests of printing, with the scheduler that takes its pages.
#pragma once

#include "diagram/PolarSys.h"
#include "drawing/PrintJob.h"

#include "tests/diagram/TestDiagram.h"
#include "tests/testing/PrintTest.h"
#include "tests/testing/PrintedDocument.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <cstddef>
#include <exception>
#include <string>
#include <vector>

namespace kelvrum::testing {

inline constexpr double PAGE_WIDTH = 297; // A4, landscape, in millimetres
inline constexpr double PAGE_HEIGHT = 210;

/// What a job without a print system says.
inline constexpr const char* UNREACHABLE =
    "Der Drucker ist nicht erreichbar. Bitte prüfen Sie, ob er eingeschaltet und eingerichtet ist.";

/// The bytes of a file; none when it cannot be read.
inline QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What the end of a job says; nothing when all is well.
inline QString failureOf(PrintJob& job) {
    try {
        job.end();
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

/// `passes` times the 24 hours of the day, each pass 20 above the one before.
inline std::vector<Column> hourlyPasses(int passes) {
    std::vector<Column> columns;
    for (int pass = 0; pass < passes; ++pass) {
        for (int hour = 0; hour < 24; ++hour) {
            columns.push_back({DAY + hour / 24.0, 10.25 + 20 * pass + hour % 4});
        }
    }
    return columns;
}

/// A control with a day of hourly values, left range 0 to 60, which prints into a job of its own.
struct PrintedDiagram {
    PrintJob job;
    PolarSys control{LocaleTexts()};

    PrintedDiagram() {
        control.setPrintJob(job);
        control.setXLow(DAY);
        control.setXHigh(DAY + 1);
        control.setHeadLine("Station Güldenstein");
        control.setHeadLine2("Feinstaub PM10");
        control.setEinheit("µg/m³");
        control.setY1Low(0);
        control.setY1High(60);
        fillSeries(control, hourlyPasses(1));
    }

    void print(bool finish) { control.PrintDiag(finish); }
};

inline constexpr std::size_t MANY_PAGES = 1000; // more than the system keeps for a socket

/// Pages of more than a kilobyte each.
inline void addNumberPages(PrintJob& job, std::size_t count) {
    job.addPages(count, QPageLayout::Portrait, [](std::size_t page, Surface& surface) {
        for (int line = 0; line < 40; ++line) {
            surface.text({0, 100 * line},
                         std::to_string(page * 7919 % 10007 + static_cast<std::size_t>(line) * 104729));
        }
    });
}

} // namespace kelvrum::testing
