// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/PrintTest.h"

#include "diagram/SeriesTable.h"

#include <QDir>
#include <QTest>
#include <exception>

namespace kelvrum::testing {

std::vector<QString> PrintTest::documents() const {
    const std::vector<QString> all = cups_->documents();
    return {all.begin() + static_cast<std::ptrdiff_t>(documentsBefore_), all.end()};
}

void PrintTest::initTestCase() {
    if (!PrivateCups::isInstalled()) {
        QSKIP("There is no print scheduler here.");
    }
    cups_ = std::make_unique<PrivateCups>();
    qputenv("TMPDIR", temporary_.path().toLocal8Bit()); // other tests have temporary files of their own
}

void PrintTest::init() {
    try {
        cups_->restore();
        documentsBefore_ = cups_->documents().size();
        jobsBefore_ = cups_->allJobs();
    } catch (const std::exception& error) {
        QFAIL(error.what());
    }
}

void PrintTest::cleanup() {
    seriesTable().clear();
    QCOMPARE(temporaryFiles(), QStringList());
}

QStringList PrintTest::temporaryFiles() const {
    return QDir(temporaryFolder()).entryList({QStringLiteral("kelvrum-*")}, QDir::Files);
}

} // namespace kelvrum::testing
