// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of the control as a file.
#include "diagram/PictureExport.h"
#include "diagram/PolarSys.h"
#include "tests/testing/TempFolder.h"

#include <QDir>
#include <QImage>
#include <QImageReader>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

namespace kelvrum {

using testing::CurrentFolder;
using testing::TempFolder;

class PictureExportTest : public QObject {
    Q_OBJECT

    static QStringList bitmapsIn(const TempFolder& folder) {
        return QDir(QString::fromStdString(folder.path().string())).entryList({QStringLiteral("*.bmp")});
    }

  private Q_SLOTS:
    void namesOfBitmaps() {
        QCOMPARE(temporaryBitmapName([] { return 0.0; }), std::string("BBBBBBBB.bmp"));
        QCOMPARE(temporaryBitmapName([] { return 0.999999; }), std::string("YYYYYYYY.bmp"));
        // 0.5 / 23 and 1.5 / 23 lie halfway: to the even code, 66 and 68.
        QCOMPARE(temporaryBitmapName([] { return 0.5 / 23; }), std::string("BBBBBBBB.bmp"));
        QCOMPARE(temporaryBitmapName([] { return 1.5 / 23; }), std::string("DDDDDDDD.bmp"));
    }

    void targets_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("format");
        QTest::newRow("new folders") << QStringLiteral("a/b/picture.jpg") << QByteArray("jpeg");
        QTest::newRow("backslashes") << QStringLiteral("a\\b\\picture.jpg") << QByteArray("jpeg");
        QTest::newRow("umlauts") << QStringLiteral("Äöü/Größe ß.jpg") << QByteArray("jpeg");
        QTest::newRow("png") << QStringLiteral("picture.png") << QByteArray("png");
        QTest::newRow("unknown extension") << QStringLiteral("picture.xyz") << QByteArray("jpeg");
        QTest::newRow("no extension") << QStringLiteral("picture") << QByteArray("jpeg");
    }
    void targets() {
        QFETCH(QString, name);
        QFETCH(QByteArray, format);
        const TempFolder work;
        const TempFolder folder;
        const CurrentFolder here(work.path());
        PolarSys control{LocaleTexts()};
        control.resize(300, 200);
        control.Draw();
        const QString target = QString::fromStdString(folder.base()) + name;
        control.SavePic(target);
        const QString native = QString(target).replace(QLatin1Char('\\'), QLatin1Char('/'));
        QImageReader reader(native);
        reader.setDecideFormatFromContent(true);
        QCOMPARE(reader.read().size(), QSize(300, 200));
        QCOMPARE(QImageReader::imageFormat(native), format);
        QVERIFY(bitmapsIn(work).isEmpty());
    }

    void anExistingTargetIsReplaced() {
        const TempFolder folder;
        const CurrentFolder here(folder.path());
        const QString target = QString::fromStdString(folder.write("picture.png", "no picture"));
        QPixmap picture(40, 30);
        picture.fill(Qt::red);
        savePicture(picture, target);
        QCOMPARE(QImage(target).size(), QSize(40, 30));
        QVERIFY(bitmapsIn(folder).isEmpty());
    }

    void anUnwritableCurrentFolderEndsItSilently() {
        const TempFolder folder;
        auto gone = std::make_unique<TempFolder>();
        const CurrentFolder here(gone->path());
        gone.reset(); // the current folder is no more
        const QString target = QString::fromStdString(folder.at("picture.png"));
        savePicture(QPixmap(10, 10), target);
        QVERIFY(!QFile::exists(target));
    }

    /// A target that cannot be deleted: it waits until it is gone.
    void waitsUntilTheOldTargetIsGone() {
        const TempFolder folder;
        const CurrentFolder here(folder.path());
        const std::string held = folder.write("picture.png/held", "a folder that is not empty");
        const QString target = QString::fromStdString(folder.at("picture.png"));
        bool waited = false;
        QTimer::singleShot(50, this, [&] {
            waited = bitmapsIn(folder).isEmpty();
            std::filesystem::remove_all(folder.path() / "picture.png");
        });
        QPixmap picture(20, 10);
        picture.fill(Qt::blue);
        savePicture(picture, target);
        QVERIFY(waited);
        QCOMPARE(QImage(target).size(), QSize(20, 10));
    }

    /// The bitmap is there, the target cannot be written: no file is left.
    void aTargetThatCannotBeWrittenLeavesNoBitmap() {
        const TempFolder folder;
        const CurrentFolder here(folder.path());
        QPixmap picture(20, 10);
        picture.fill(Qt::blue);
        savePicture(picture, QString::fromStdString(folder.at(std::string(300, 'x') + ".png")));
        QVERIFY(bitmapsIn(folder).isEmpty());
    }

    void aNameThatEndsInASeparatorIsAFolder() {
        const TempFolder folder;
        const CurrentFolder here(folder.path());
        savePicture(QPixmap(20, 10), QString::fromStdString(folder.at("neu\\")));
        QVERIFY(std::filesystem::is_directory(folder.path() / "neu"));
        QVERIFY(bitmapsIn(folder).isEmpty());
    }

    void anEmptyPictureEndsItSilently() {
        const TempFolder folder;
        const CurrentFolder here(folder.path());
        savePicture(QPixmap(), QString::fromStdString(folder.at("picture.png")));
        QVERIFY(bitmapsIn(folder).isEmpty());
    }

    /// A folder that cannot be made: it waits until the file appears, and clicks are answered meanwhile.
    void theWindowAnswersWhileItWaits() {
        const TempFolder folder;
        const CurrentFolder here(folder.path());
        const std::string blocked = folder.write("blocked", "a file where a folder should be");
        QPushButton button;
        int clicks = 0;
        connect(&button, &QPushButton::clicked, &button, [&clicks] { ++clicks; });
        button.show();
        QTimer::singleShot(30, &button, [&button] { QTest::mouseClick(&button, Qt::LeftButton); });
        QTimer::singleShot(80, &button, [&] {
            std::filesystem::remove(blocked);
            folder.write("blocked/picture.png", "another program wrote it");
        });
        savePicture(QPixmap(10, 10), QString::fromStdString(blocked + "/picture.png"));
        QCOMPARE(clicks, 1);
        QVERIFY(bitmapsIn(folder).isEmpty());
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PictureExportTest)
#include "PictureExportTest.moc"
