// SPDX-License-Identifier: GPL-3.0-or-later
// The left column where the system has no font with the metrics of Arial.
#include "tests/app/WindowFixture.h"

#include <QApplication>
#include <QFile>
#include <QFontInfo>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

/// A wide font for Arial, and none that is its like.
constexpr const char* OTHER_FONT = "Liberation Mono";
constexpr const char* FONT_CONFIGURATION = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <include ignore_missing="yes">/etc/fonts/fonts.conf</include>
  <match target="pattern">
    <edit name="family" mode="assign" binding="strong"><string>Liberation Mono</string></edit>
  </match>
  <selectfont><rejectfont>
    <pattern><patelt name="family"><string>Arial</string></patelt></pattern>
    <pattern><patelt name="family"><string>Arimo</string></patelt></pattern>
    <pattern><patelt name="family"><string>Helvetica</string></patelt></pattern>
    <pattern><patelt name="family"><string>Liberation Sans</string></patelt></pattern>
  </rejectfont></selectfont>
</fontconfig>
)";

/// The columns from the first to the last with a dark dot in them.
struct Ink {
    int first = 0;
    int last = -1;
};

Ink inkOf(const QImage& picture) {
    constexpr int DARK = 128;
    Ink ink{picture.width(), -1};
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (qGray(picture.pixel(x, y)) < DARK) {
                ink.first = std::min(ink.first, x);
                ink.last = x;
            }
        }
    }
    return ink;
}

/// What a control would show if it had all the room that it wants.
Ink inkWithRoom(QWidget& control) {
    constexpr int ROOM = 400;
    control.resize(ROOM, control.height());
    return inkOf(control.grab().toImage());
}

} // namespace

class f_font_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        QCOMPARE(QFontInfo(QFont(QStringLiteral("Arial"))).family(), QString::fromUtf8(OTHER_FONT));
    }

    /// From the control's left edge to its right one, or to the box that follows.
    void captionsFit_data() {
        QTest::addColumn<int>("room");
        QTest::newRow("optView(1)") << 112;
        QTest::newRow("optView(0)") << 112;
        QTest::newRow("Label2") << 24;
        QTest::newRow("Label3") << 24;
        QTest::newRow("Option1") << 104;
        QTest::newRow("Option2") << 104;
        QTest::newRow("Label4") << 54;
        QTest::newRow("Label5") << 54;
        QTest::newRow("Check1") << 104;
        QTest::newRow("Label6") << 62;
        QTest::newRow("Label7") << 62;
        QTest::newRow("Check2") << 104;
        QTest::newRow("Label8") << 111;
        QTest::newRow("Label1") << 111;
    }
    void captionsFit() {
        QFETCH(int, room);
        const WindowFixture fixture;
        fixture.click("Check1"); // grey is not dark
        const Ink ink = inkWithRoom(fixture.the<QWidget>(QTest::currentDataTag()));
        QVERIFY2(ink.last > 0, "nothing is shown");
        QVERIFY2(ink.last < room, qPrintable(QString::number(ink.last)));
    }

    void titlesOfFramesFit_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"Frame3", "Frame6", "Frame4", "Frame5", "Frame7", "Frame1"}) {
            QTest::newRow(name) << QString::fromUtf8(name);
        }
    }
    void titlesOfFramesFit() {
        const WindowFixture fixture;
        auto& frame = fixture.the<QWidget>(QTest::currentDataTag());
        const int width = frame.width();
        for (QWidget* child : frame.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            child->hide();
        }
        const Ink ink = inkWithRoom(frame);
        QVERIFY2(ink.last > 0, "nothing is shown");
        QVERIFY2(ink.last < width - 1, qPrintable(QString::number(ink.last)));
    }

    /// In the middle of their place; buttons and pickers have an edge of their own.
    void textsInEdgesFit_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"Command1", "Command2", "Command3", "Command4", "Command5", "Command6",
                                 "Command7", "Command8", "DTPicker1", "DTPicker3", "lZoom"}) {
            QTest::newRow(name) << QString::fromUtf8(name);
        }
    }
    void textsInEdgesFit() {
        constexpr int EDGE = 1;
        const WindowFixture fixture;
        fixture.click("Command2"); // the other zoom button is enabled
        auto& control = fixture.the<QWidget>(QTest::currentDataTag());
        const int width = control.width();
        const Ink ink = inkWithRoom(control);
        QVERIFY2(ink.last > 0, "nothing is shown");
        QVERIFY2(ink.last - ink.first < width - 2 * EDGE, qPrintable(QString::number(ink.last - ink.first)));
    }

    /// The two labels of a pair have one size, and nothing else in their frame has become smaller.
    void onlyWhatMustBecomesSmaller() {
        const WindowFixture fixture;
        const auto pixels = [&](const char* name) { return fixture.the<QWidget>(name).font().pixelSize(); };
        QVERIFY(pixels("Label6") < 11);
        QCOMPARE(pixels("Label6"), pixels("Label7"));
        QCOMPARE(pixels("Text3"), 11);
        QCOMPARE(pixels("Check2"), 11);
        QVERIFY(pixels("Frame4") < 11);
        QCOMPARE(pixels("Frame1"), pixels("Frame4"));
        QCOMPARE(pixels("lZoom"), 11);
    }
};

} // namespace kelvrum

/// The fonts are chosen before the application starts.
int main(int argc, char** argv) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("fonts.conf"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(kelvrum::FONT_CONFIGURATION) < 0) {
        return 1;
    }
    file.close();
    qputenv("FONTCONFIG_FILE", path.toLocal8Bit());
    const QApplication application(argc, argv);
    kelvrum::f_font_test test;
    return QTest::qExec(&test, argc, argv);
}

#include "f_font_test.moc"
