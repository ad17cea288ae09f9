// SPDX-License-Identifier: GPL-3.0-or-later
// The window follows the desktop's colours, the diagram stays on white.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPalette>
#include <QTableView>
#include <QTest>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

const QColor DARK(40, 42, 46);
const QColor DARKER(30, 31, 34);

QPalette darkDesktop() {
    QPalette colours(DARK);
    colours.setColor(QPalette::Window, DARK);
    colours.setColor(QPalette::WindowText, Qt::white);
    colours.setColor(QPalette::Base, DARKER);
    colours.setColor(QPalette::Text, Qt::white);
    return colours;
}

QColor corner(QWidget& control) { return control.grab().toImage().pixelColor(1, 1); }

} // namespace

class f_palette_test : public QObject {
    Q_OBJECT

    QPalette before_;

  private Q_SLOTS:
    void init() { before_ = QApplication::palette(); }
    void cleanup() { QApplication::setPalette(before_); }

    void aDarkDesktop_data() {
        QTest::addColumn<bool>("whileItRuns");
        QTest::newRow("from the start") << false;
        QTest::newRow("changed while the window is open") << true;
    }
    void aDarkDesktop() {
        QFETCH(bool, whileItRuns);
        if (!whileItRuns) {
            QApplication::setPalette(darkDesktop());
        }
        const WindowFixture fixture;
        if (whileItRuns) {
            QApplication::setPalette(darkDesktop());
            QCoreApplication::processEvents();
        }
        QCOMPARE(corner(*fixture.window->centralWidget()), DARK);
        QCOMPARE(fixture.the<PolarSys>("KS").picture().toImage().pixelColor(1, 300), QColor(Qt::white));
        QCOMPARE(corner(fixture.the<PolarSys>("KS")).lightness() > 200, true);
        fixture.click("optView(1)");
        auto& list = fixture.the<QTableView>("lView");
        QCOMPARE(corner(*list.viewport()), DARKER);
    }

    /// A wrong entry is red, and a right one has the desktop's colour again.
    void aWrongEntryOnADarkDesktop() {
        QApplication::setPalette(darkDesktop());
        const WindowFixture fixture;
        auto& box = fixture.the<QLineEdit>("Text2");
        fixture.type("Text2", QStringLiteral("1x"));
        QCOMPARE(box.palette().color(QPalette::Base), QColor(255, 0, 0));
        fixture.type("Text2", QStringLiteral("70"));
        QCOMPARE(box.palette().color(QPalette::Base), DARKER);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_palette_test)
#include "f_palette_test.moc"
