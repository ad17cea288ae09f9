// SPDX-License-Identifier: GPL-3.0-or-later
// What the first view does without: the print system's library, which loads eighteen others, and a second
// font of the same look.
#include "drawing/PainterSurface.h"
#include "drawing/PrintQueue.h"
#include "tests/app/WindowFixture.h"
#include "util/Controls.h"

#include <QTest>
#include <fstream>
#include <string>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

/// Whether this process has a library loaded whose file name begins so.
bool isLoaded(const std::string& name) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find('/' + name) != std::string::npos) {
            return true;
        }
    }
    return false;
}

} // namespace

class f_libraries_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        if (!isLoaded("libQt6Widgets")) {
            QSKIP("this system does not list the libraries of a process in this way");
        }
    }

    void theFirstViewNeedsNoPrintSystem() {
        const WindowFixture fixture;
        QVERIFY(!isLoaded("libcups.so"));
        const bool supported = PrintQueue::isSupported();
        QCOMPARE(isLoaded("libcups.so"), supported);
        QCOMPARE(PrintQueue::isSupported(), supported); // once and for all
    }

    /// The toolkit loads equal fonts once.
    void theDiagramsLabelsHaveTheFontOfTheControls() {
        QCOMPARE(surfaceFont(Font(), Resolution::screen(1).dotsPerPoint), controlFont());
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_libraries_test)
#include "f_libraries_test.moc"
