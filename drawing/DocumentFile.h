// SPDX-License-Identifier: GPL-3.0-or-later
// The file that a document is written to.
#pragma once

#include "util/FileReplacement.h"

#include <QFile>
#include <QIODevice>
#include <QString>
#include <QTemporaryFile>
#include <memory>
#include <optional>
#include <vector>

namespace kelvrum {

/// A device that keeps the first failure of its file. The file is removed with this object, unless it has
/// taken the place of its target. Open it with `open(QIODevice::WriteOnly)`.
class DocumentFile : public QIODevice {
    Q_OBJECT

  public:
    /// In the folder for temporary files.
    DocumentFile();
    /// For a target, which gets the contents only with `finish`. An ordinary target is replaced as a whole,
    /// anything else (a device) is written to.
    explicit DocumentFile(const QString& target);
    ~DocumentFile() override;

    bool open(OpenMode mode) override;

    /// The system's reason for the first failure; empty as long as there is none.
    [[nodiscard]] const QString& reason() const { return reason_; }
    [[nodiscard]] bool hasFailed() const { return !reason_.isEmpty(); }

    /// Where the contents are until `finish` has given them to a target.
    [[nodiscard]] QString path() const;

    /// Writes all that is left, closes the file and lets it take its target's place. False with a reason when
    /// anything has failed; the target is as it was then, unless it is a device.
    bool finish();

    [[nodiscard]] bool isSequential() const override { return true; }

  protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char* data, qint64 size) override;

  private:
    bool fail(const QString& reason);
    bool fail(const std::error_code& error);
    bool failBy(const QFileDevice& file);
    bool flushPiece();
    bool copyToDevice();

    QString target_; // empty: the contents stay in the temporary file
    std::optional<FileReplacement> replacement_;
    std::unique_ptr<QTemporaryFile> temporary_; // makes and removes a temporary file
    QFile file_;
    std::vector<char> piece_; // not yet written
    QString reason_;
};

} // namespace kelvrum
