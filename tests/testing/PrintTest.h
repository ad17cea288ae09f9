// SPDX-License-Identifier: GPL-3.0-or-later
// What tests of printing share: a print scheduler that runs before each test function.
#pragma once

#include "tests/testing/PrivateCups.h"

#include <QObject>
#include <QString>
#include <QTemporaryDir>
#include <cstddef>
#include <memory>
#include <vector>

namespace kelvrum::testing {

/// A test class with a scheduler of its own; it is skipped where none is installed. Each test function starts
/// with a scheduler that takes and prints jobs on its default queue, whatever the function before has done to
/// it.
class PrintTest : public QObject {
    Q_OBJECT

  protected:
    [[nodiscard]] PrivateCups& cups() const { return *cups_; }

    /// The documents that this test function has printed on the default queue so far.
    [[nodiscard]] std::vector<QString> documents() const;
    /// The number of jobs that this test function has sent to the default queue, whatever became of them.
    [[nodiscard]] std::size_t newJobs() const { return cups_->allJobs() - jobsBefore_; }

  protected Q_SLOTS:
    void initTestCase();
    void init();
    static void cleanup();
    void cleanupTestCase() { cups_.reset(); }

  private:
    QTemporaryDir temporary_; // for the documents of jobs
    std::unique_ptr<PrivateCups> cups_;
    std::size_t documentsBefore_ = 0;
    std::size_t jobsBefore_ = 0;
};

} // namespace kelvrum::testing
