// SPDX-License-Identifier: GPL-3.0-or-later
// What tests of printing share: a print scheduler that runs before each test function.
#pragma once

#include "tests/testing/PrivateCups.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <cstddef>
#include <memory>
#include <vector>

namespace kelvrum::testing {

/// A test class with a scheduler of its own; it is skipped where none is installed. Each test function starts
/// with a scheduler that takes and prints jobs on its default queue, whatever the function before has done to
/// it, and leaves nothing of the program in the folder for temporary files, which is the class's own.
class PrintTest : public QObject {
    Q_OBJECT

  protected:
    [[nodiscard]] PrivateCups& cups() const { return *cups_; }

    /// The documents that this test function has printed on the default queue so far.
    [[nodiscard]] std::vector<QString> documents() const;
    /// The number of jobs that this test function has sent to the default queue, whatever became of them.
    [[nodiscard]] std::size_t newJobs() const { return cups_->allJobs() - jobsBefore_; }

    /// Where temporary files are, and the program's own ones among them.
    [[nodiscard]] QString temporaryFolder() const { return temporary_.path(); }
    [[nodiscard]] QStringList temporaryFiles() const;

  protected Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { cups_.reset(); }

  private:
    QTemporaryDir temporary_;
    std::unique_ptr<PrivateCups> cups_;
    std::size_t documentsBefore_ = 0;
    std::size_t jobsBefore_ = 0;
};

} // namespace kelvrum::testing
