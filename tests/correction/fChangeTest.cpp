// SPDX-License-Identifier: GPL-3.0-or-later
// The correction dialog, operated as by a user, on real files.
#include "correction/fChange.h"

#include "tests/correction/YearFiles.h"
#include "tests/testing/AnsweredDialogs.h"
#include "tests/testing/SystemReason.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <memory>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

const TimeRange TEN_MINUTES = between({2021, 1, 1, 0, 10}, {2021, 1, 1, 0, 19});
const TimeRange THREE_YEARS = between({2019, 1, 1, 0, 10}, {2021, 1, 1, 0, 19});

/// A station, an owner and the dialog.
class Made {
  public:
    explicit Made(CorrectionMode mode = CorrectionMode::dust, double last = 0, TimeRange range = TEN_MINUTES)
        : mode_(mode)
        , range_(range)
        , factor(last) {
        for (const int channel : {4, 5, 6, 7, 15}) {
            for (const int year : {2019, 2020, 2021}) {
                laid.lay(channel, year, 40, 3);
            }
        }
        open();
    }

    void open() {
        const auto refresh = [this] {
            ++refreshed;
            if (onRefresh) {
                onRefresh();
            }
        };
        dialog =
            std::make_unique<fChange>(fChange::Owner{laid.station, mode_, range_, factor, refresh, dialogs});
        dialog->setModal(true);
        dialog->show();
        dialog->activateWindow();
        if (!QTest::qWaitForWindowActive(dialog.get())) {
            qFatal("the dialog does not show");
        }
    }

    template<typename Control>
    [[nodiscard]] Control& the(const char* name) const {
        auto* control = dialog->findChild<Control*>(QString::fromUtf8(name));
        if (control == nullptr) {
            qFatal("no control %s", name);
        }
        return *control;
    }
    [[nodiscard]] QLineEdit& box() const { return the<QLineEdit>("Text1"); }
    [[nodiscard]] QPushButton& ok() const { return the<QPushButton>("OKButton"); }
    [[nodiscard]] QPushButton& cancel() const { return the<QPushButton>("CancelButton"); }
    [[nodiscard]] bool waiting() const { return the<QLabel>("Label2").isVisible(); }

    /// Types over what the box holds.
    void type(const QString& text) const {
        box().setFocus();
        box().selectAll();
        QTest::keyClick(&box(), Qt::Key_Delete);
        QTest::keyClicks(&box(), text);
    }
    void expectDust(double by) { laid.expect({7}, 15, 2021, 10, 19, by); }
    void expectThreeYears(const std::vector<int>& sources, int target, double by) {
        constexpr int LONG = 1000;
        laid.expect(sources, target, 2019, 10, LONG, by);
        laid.expect(sources, target, 2020, 0, LONG, by);
        laid.expect(sources, target, 2021, 0, 19, by);
    }
    [[nodiscard]] QString changes() const { return QString::fromStdString(laid.changes()); }

    YearFiles laid;

  private:
    CorrectionMode mode_;
    TimeRange range_;

  public:
    double factor;
    int refreshed = 0;
    std::function<void()> onRefresh;
    AnsweredDialogs dialogs;
    std::unique_ptr<fChange> dialog;
};

/// What a user may try while the work is under way: by mouse, by key, by the window's frame, and with clicks
/// that reach the program only later.
void tryEverything(const Made& made) {
    for (QPushButton* button : {&made.ok(), &made.cancel()}) {
        QTest::mouseClick(button, Qt::LeftButton);
        const QPointF at = button->rect().center();
        for (const auto kind : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QCoreApplication::postEvent(button,
                                        new QMouseEvent(kind, at, button->mapToGlobal(at), Qt::LeftButton,
                                                        Qt::LeftButton, Qt::NoModifier));
        }
    }
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QTest::keyClick(made.dialog.get(), key);
    }
    made.dialog->close();
    made.dialog->reject();
}

} // namespace

class fchange_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void opensWithTheLastFactor_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<double>("factor");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("text");
        QTest::newRow("wind") << 1 << 0.0 << "Korrekturfaktor Wind"
                              << "0";
        QTest::newRow("dust") << 2 << 0.0 << "Korrekturfaktor Staub"
                              << "0";
        QTest::newRow("fraction") << 1 << 1.05 << "Korrekturfaktor Wind"
                                  << "1.05";
        QTest::newRow("negative") << 2 << -0.5 << "Korrekturfaktor Staub"
                                  << "-0.5";
    }
    void opensWithTheLastFactor() {
        QFETCH(int, mode);
        QFETCH(double, factor);
        QFETCH(QString, caption);
        QFETCH(QString, text);
        const Made made(static_cast<CorrectionMode>(mode), factor);
        QCOMPARE(made.dialog->windowTitle(), caption);
        QCOMPARE(made.the<QLabel>("Label1").text(), caption + QLatin1Char(':'));
        QCOMPARE(made.box().text(), text);
        QCOMPARE(made.box().selectedText(), text);
        QVERIFY(made.box().hasFocus());
        QVERIFY(!made.ok().isEnabled());
        QVERIFY(made.cancel().isEnabled());
        QVERIFY(!made.waiting());
        QCOMPARE(made.ok().text().remove(QLatin1Char('&')), QStringLiteral("Berechnen"));
        QCOMPARE(made.cancel().text().remove(QLatin1Char('&')), QStringLiteral("Abbrechen"));
        QCOMPARE(made.the<QLabel>("Label2").text(),
                 QStringLiteral("Bitte warten - Berechnung wird durchgeführt!"));
    }

    void enabledWhileTheFactorDiffers_data() {
        QTest::addColumn<double>("factor");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("enabled");
        const auto row = [](double factor, const char* text, bool enabled) {
            QTest::addRow("%g '%s'", factor, text) << factor << QString::fromUtf8(text) << enabled;
        };
        row(0, "", false);
        row(0, "abc", false);
        row(0, "0", false);
        row(0, "0,00", false);
        row(0, ",", false);
        row(0, "1,05", true);
        row(0, "1.05", true);
        row(0, " -2", true);
        row(1.05, "1.05", false);
        row(1.05, "1,05", false);
        row(1.05, " +1,050 ", false);
        row(1.05, "1,05x", false);
        row(1.05, "105e-2", false);
        row(1.05, "1,5", true);
        row(1.05, "", true); // 0 is another factor
        row(1.05, "abc", true);
        row(1.05, "1", true);
    }
    void enabledWhileTheFactorDiffers() {
        QFETCH(double, factor);
        QFETCH(QString, text);
        QFETCH(bool, enabled);
        const Made made(CorrectionMode::dust, factor);
        made.type(text);
        QCOMPARE(made.ok().isEnabled(), enabled);
        made.type(QStringLiteral("77"));
        QVERIFY(made.ok().isEnabled());
        made.type(text); // the same again
        QCOMPARE(made.ok().isEnabled(), enabled);
        if (!enabled) {
            QTest::keyClick(&made.box(), Qt::Key_Return);
            QVERIFY(made.dialog->isVisible());
        }
        QCOMPARE(made.changes(), QString());
        QCOMPARE(made.factor, factor);
    }

    /// Also by other ways than the keyboard.
    void everyChangeOfTheFactorCounts() {
        const Made made;
        made.box().setText(QStringLiteral("1.05"));
        QVERIFY(made.ok().isEnabled());
        made.box().setText(QStringLiteral("0"));
        QVERIFY(!made.ok().isEnabled());
    }

    void calculates_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("factor");
        QTest::newRow("comma") << "1,05" << 1.05;
        QTest::newRow("point") << "1.05" << 1.05;
        QTest::newRow("no number") << "abc" << 0.0;
        QTest::newRow("nothing") << "" << 0.0;
        QTest::newRow("negative") << "-1e1" << -10.0;
    }
    void calculates() {
        QFETCH(QString, text);
        QFETCH(double, factor);
        Made made(CorrectionMode::dust, 3);
        made.type(text);
        QSignalSpy finished(made.dialog.get(), &QDialog::finished);
        QString written;
        made.onRefresh = [&] { written = made.changes(); };
        made.expectDust(factor);
        QTest::mouseClick(&made.ok(), Qt::LeftButton);
        QCOMPARE(written, QString()); // the view is refreshed with the files as they are now
        QCOMPARE(made.changes(), QString());
        QCOMPARE(made.factor, factor);
        QCOMPARE(made.refreshed, 1);
        QCOMPARE(finished.count(), 1);
        QVERIFY(!made.dialog->isVisible());
        QCOMPARE(made.dialogs.messages, QStringList());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);

        made.open(); // the same factor once more
        QCOMPARE(factorOf(made.box().text().toStdString()), factor);
        QVERIFY(!made.ok().isEnabled());
    }

    void windOverThreeYearsByKeys() {
        Made made(CorrectionMode::wind, 0, THREE_YEARS);
        made.type(QStringLiteral("0,95"));
        made.expectThreeYears({4, 5}, 6, 0.95);
        QTest::keyClick(&made.box(), Qt::Key_Return);
        QCOMPARE(made.changes(), QString());
        QCOMPARE(made.refreshed, 1);
        QVERIFY(!made.dialog->isVisible());
    }

    void cancelWritesNothing_data() {
        QTest::addColumn<int>("how");
        QTest::newRow("button") << 0;
        QTest::newRow("Escape") << 1;
        QTest::newRow("frame") << 2;
    }
    void cancelWritesNothing() {
        QFETCH(int, how);
        const Made made(CorrectionMode::dust, 1.5);
        made.type(QStringLiteral("7"));
        switch (how) {
        case 0:
            QTest::mouseClick(&made.cancel(), Qt::LeftButton);
            break;
        case 1:
            QTest::keyClick(made.dialog.get(), Qt::Key_Escape);
            break;
        default:
            made.dialog->close();
        }
        QVERIFY(!made.dialog->isVisible());
        QCOMPARE(made.changes(), QString());
        QCOMPARE(made.factor, 1.5);
        QCOMPARE(made.refreshed, 0);
    }

    /// The user goes on clicking and typing before, between and after the years, and while the view reloads.
    void runsOnceAndStaysOpen() {
        Made made(CorrectionMode::dust, 0, THREE_YEARS);
        made.type(QStringLiteral("2"));
        made.expectThreeYears({7}, 15, 2);
        int seen = 0;
        int bad = 0;
        const auto look = [&] {
            const bool controls =
                made.box().isEnabled() || made.ok().isEnabled() || made.cancel().isEnabled();
            bad += controls || !made.dialog->isVisible() ? 1 : 0;
        };
        QTimer user;
        connect(&user, &QTimer::timeout, &user, [&] {
            ++seen;
            const QCursor* pointer = QGuiApplication::overrideCursor();
            bad += !made.waiting() ? 1 : 0;
            bad += seen > 1 && (pointer == nullptr || pointer->shape() != Qt::WaitCursor) ? 1 : 0;
            look();
            tryEverything(made);
            look();
        });
        made.onRefresh = [&] {
            user.stop();
            look();
            bad += made.waiting() ? 1 : 0; // the files are written
            tryEverything(made);
            QCoreApplication::processEvents();
            look();
        };
        QSignalSpy finished(made.dialog.get(), &QDialog::finished);
        user.start(0);
        made.ok().click();
        QCOMPARE(seen, 4); // before the first and after each of the three years
        QCOMPARE(bad, 0);
        QCOMPARE(made.refreshed, 1);
        QCOMPARE(finished.count(), 1);
        QCOMPARE(made.dialog->result(), static_cast<int>(QDialog::Accepted));
        QVERIFY(!made.dialog->isVisible());
        QCOMPARE(made.changes(), QString());
    }

    void failureIsShown() {
        Made made(CorrectionMode::dust, 0, THREE_YEARS);
        std::filesystem::remove(made.laid.onDisk(15, 2020));
        std::filesystem::create_directory(made.laid.onDisk(15, 2020));
        made.laid.files.erase(YearFiles::name(15, 2020));
        made.laid.expect({7}, 15, 2019, 10, 1000, 2);
        made.type(QStringLiteral("2"));
        QTest::mouseClick(&made.ok(), Qt::LeftButton);
        QCOMPARE(made.dialogs.messages.size(), 1);
        const QString message = made.dialogs.messages.first();
        QVERIFY(message.startsWith(QLatin1String("Korrekturfaktor Staub: ")));
        QVERIFY(message.contains(QString::fromStdString(made.laid.path(15, 2020))));
        QVERIFY(message.contains(systemReason(std::errc::is_a_directory)));
        QCOMPARE(made.changes(), QString()); // the first year is written, the last one is not
        QCOMPARE(made.refreshed, 1);
        QVERIFY(!made.dialog->isVisible());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    /// Every text has room, also while the wait text is shown.
    void everythingFits() {
        const Made made(CorrectionMode::wind);
        const QSize before = made.dialog->size();
        made.the<QLabel>("Label2").show();
        QCoreApplication::processEvents();
        QCOMPARE(made.dialog->size(), before);
        for (const QWidget* control : made.dialog->findChildren<QWidget*>()) {
            QVERIFY(made.dialog->rect().contains(control->geometry()));
            QVERIFY(control->width() >= control->minimumSizeHint().width());
            QVERIFY(control->height() >= control->minimumSizeHint().height());
        }
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::fchange_test)
#include "fChangeTest.moc"
