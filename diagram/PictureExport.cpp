// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/PictureExport.h"

#include "util/Numbers.h"
#include "util/Paths.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QRandomGenerator>
#include <QTimer>

namespace kelvrum {

namespace {

constexpr int LETTERS = 8;
constexpr int POLL_MS = 10;

bool exists(const QString& fileName) { return fileExists(fileName.toStdString()); }

/// Lets events run until a condition holds; false when the program ends meanwhile.
template<typename Condition>
bool waitUntil(Condition condition) {
    while (!condition()) {
        QEventLoop loop;
        QTimer::singleShot(POLL_MS, &loop, &QEventLoop::quit);
        if (loop.exec() < 0) {
            return false;
        }
    }
    return true;
}

/// The native path of a target whose folders exist; empty when they cannot be created.
QString targetIn(const QString& fileName) {
    const QString native = QString::fromStdString(nativeText(fileName.toStdString()));
    if (endsInSeparator(fileName.toStdString())) {
        QDir().mkpath(native); // a folder's name: nothing is written to it
        return {};
    }
    return !native.isEmpty() && QDir().mkpath(QFileInfo(native).path()) ? native : QString();
}

/// The format of an extension.
QByteArray formatOf(const QString& fileName) {
    const QByteArray extension = QFileInfo(fileName).suffix().toLower().toLatin1();
    return QImageWriter::supportedImageFormats().contains(extension) ? extension : QByteArray("jpg");
}

} // namespace

std::string temporaryBitmapName(const std::function<double()>& random) {
    constexpr double SPREAD = 23;
    constexpr double FIRST = 66; // "B"
    std::string name;
    for (int i = 0; i < LETTERS; ++i) {
        name += static_cast<char>(roundHalfEven(random() * SPREAD + FIRST));
    }
    return name + ".bmp";
}

void savePicture(const QPixmap& picture, const QString& name) {
    const QString fileName = name; // the caller's string may change while this waits
    const QString old = QString::fromStdString(nativeText(fileName.toStdString()));
    QFile::remove(old); // errors are ignored
    if (!waitUntil([&] { return !exists(fileName); })) {
        return;
    }

    // The current folder may be another one by the time the bitmap is deleted.
    const std::string random =
        temporaryBitmapName([] { return QRandomGenerator::global()->generateDouble(); });
    const QString bitmap = QDir::current().absoluteFilePath(QString::fromStdString(random));
    const QString target = fileName.isEmpty() ? QString() : targetIn(fileName);
    bool waiting = true;
    if (!target.isEmpty()) {
        const bool hasFolder = !QDir::currentPath().isEmpty(); // it may have been removed
        waiting =
            hasFolder && picture.save(bitmap, "BMP") && picture.save(target, formatOf(target).constData());
    }
    if (waiting) {
        waitUntil([&] { return exists(fileName); });
    }
    QFile::remove(bitmap);
}

} // namespace kelvrum
