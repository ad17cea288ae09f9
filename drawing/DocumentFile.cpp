// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/DocumentFile.h"

#include "util/ErrorText.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>

namespace kelvrum {

namespace {

constexpr std::size_t PIECE = std::size_t{1} << 18U; // bytes written at once

bool isPlain(const QString& target) {
    const QFileInfo info(target);
    return !info.exists() || info.isFile() || info.isDir(); // a folder is refused with its reason
}

std::unique_ptr<QTemporaryFile> temporaryFile() {
    return std::make_unique<QTemporaryFile>(QDir::tempPath() + QStringLiteral("/kelvrum-XXXXXX.pdf"));
}

/// A device that is filling up takes a part of what is written and gives the reason with the next write only.
bool writeAll(QFile& file, const char* data, qint64 size) {
    while (size > 0) {
        const qint64 written = file.write(data, size);
        if (written <= 0) {
            return false;
        }
        data += written;
        size -= written;
    }
    return true;
}

} // namespace

DocumentFile::DocumentFile()
    : temporary_(temporaryFile()) {}

DocumentFile::DocumentFile(const QString& target)
    : target_(target) {
    if (!isPlain(target)) {
        temporary_ = temporaryFile();
        return;
    }
    std::error_code error;
    replacement_.emplace(std::filesystem::path(target.toStdU16String()), error);
    if (error) {
        replacement_.reset();
        fail(error);
        return;
    }
    file_.setFileName(QString::fromStdU16String(replacement_->fresh().u16string()));
}

DocumentFile::~DocumentFile() {
    file_.close(); // before it is removed
}

bool DocumentFile::open(OpenMode mode) {
    if (hasFailed()) {
        return false;
    }
    if (temporary_) {
        if (QDir::tempPath().isEmpty()) {
            return fail(QStringLiteral("Es gibt keinen Ordner für temporäre Dateien"));
        }
        if (!temporary_->open()) {
            return failBy(*temporary_);
        }
        file_.setFileName(temporary_->fileName());
    }
    return (file_.open(QIODevice::ReadWrite | QIODevice::Truncate | QIODevice::Unbuffered) ||
            failBy(file_)) &&
           QIODevice::open(mode | QIODevice::Unbuffered);
}

QString DocumentFile::path() const { return file_.fileName(); }

bool DocumentFile::finish() {
    if (!flushPiece()) {
        return false;
    }
    if (replacement_) {
        file_.close();
        const std::error_code error = replacement_->commit();
        return !error || fail(error);
    }
    return target_.isEmpty() || copyToDevice();
}

qint64 DocumentFile::readData(char* /*data*/, qint64 /*size*/) { return -1; }

qint64 DocumentFile::writeData(const char* data, qint64 size) {
    if (hasFailed()) {
        return -1;
    }
    piece_.insert(piece_.end(), data, data + size);
    return piece_.size() < PIECE || flushPiece() ? size : -1;
}

bool DocumentFile::flushPiece() {
    if (hasFailed()) {
        return false;
    }
    const bool written = writeAll(file_, piece_.data(), static_cast<qint64>(piece_.size()));
    piece_.clear();
    return written || failBy(file_);
}

/// A device cannot be replaced, only written to.
bool DocumentFile::copyToDevice() {
    QFile device(target_);
    if (!device.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !file_.seek(0)) {
        return failBy(device);
    }
    while (!file_.atEnd()) {
        const QByteArray piece = file_.read(static_cast<qint64>(PIECE));
        if (piece.isEmpty() || !writeAll(device, piece.constData(), piece.size())) {
            return failBy(piece.isEmpty() ? file_ : device);
        }
    }
    return true;
}

bool DocumentFile::fail(const QString& reason) {
    if (reason_.isEmpty()) {
        reason_ = reason.isEmpty() ? QStringLiteral("unbekannter Fehler") : reason;
    }
    return false;
}

bool DocumentFile::failBy(const QFileDevice& file) {
    const std::error_code system(errno, std::generic_category()); // of the call that has just failed
    return system ? fail(system) : fail(file.errorString());
}

bool DocumentFile::fail(const std::error_code& error) {
    return fail(QString::fromStdString(errorText(error)));
}

} // namespace kelvrum
