// SPDX-License-Identifier: GPL-3.0-or-later
// A long list on its way to a print scheduler that reads slowly: what the window shows meanwhile, and
// cancelling.
#include "tests/app/WindowFixture.h"
#include "tests/testing/PrintTest.h"
#include "tests/testing/PrintedDocument.h"
#include "tests/testing/SchedulerProxy.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QPageSize>
#include <QPrinter>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <memory>
#include <set>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int DUST_ROW = 2; // of the channel list

/// What the progress dialog has shown of the sending.
struct Sending {
    bool isEnded = false; // the scheduler goes on, or the job is cancelled
    int pages = 0;        // of the bar
    std::set<int> sent;   // pages, between none and all
    QString label;
    QString button;
};

} // namespace

class f_print_sending_test : public PrintTest {
    Q_OBJECT

  private:
    std::unique_ptr<SchedulerProxy> proxy_;

    /// Looks at the dialog, operates the window below it, and lets the scheduler have a little more. When the
    /// bar has moved twice, the job is cancelled or the scheduler gets all.
    void look(const WindowFixture& fixture, bool cancel, Sending& seen) const {
        const auto* dialog = fixture.window->findChild<QProgressDialog*>(QStringLiteral("PrintProgress"));
        if (dialog == nullptr || seen.isEnded) {
            return;
        }
        if (!dialog->labelText().endsWith(QStringLiteral("gesendet"))) {
            return;
        }
        const auto& bar = *dialog->findChild<QProgressBar*>();
        auto& button = *dialog->findChild<QPushButton*>();
        QVERIFY(dialog->isVisible() && bar.isVisible() && button.isVisible());
        seen.label = dialog->labelText();
        seen.button = button.text();
        seen.pages = bar.maximum();
        if (bar.value() > 0 && bar.value() < bar.maximum()) {
            seen.sent.insert(bar.value());
        }
        fixture.click("optView(0)"); // ignored meanwhile
        if (seen.sent.size() < 3) {
            proxy_->pass(1);
            return;
        }
        seen.isEnded = true;
        if (cancel) {
            QTest::mouseClick(&button, Qt::LeftButton);
        } else {
            proxy_->passAll();
        }
    }

  private Q_SLOTS:
    void initTestCase() {
        PrintTest::initTestCase();
        proxy_ = SchedulerProxy::beforeScheduler();
    }
    void init() {
        PrintTest::init();
        proxy_->hold();
    }

    void aSchedulerThatReadsSlowly_data() {
        QTest::addColumn<bool>("cancel");
        QTest::newRow("to the end") << false;
        QTest::newRow("cancelled") << true;
    }
    void aSchedulerThatReadsSlowly() {
        QFETCH(bool, cancel);
        const WindowFixture fixture(longStation());
        fixture.chooseChannel(DUST_ROW);
        fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("25.06.2020 00:00")}, 0);
        fixture.click("optView(1)");
        fixture.dialogs->onPrinter = [](QPrinter& printer) {
            printer.setPageSize(QPageSize(QPageSize::A9)); // some rows on each page
        };
        Sending seen;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] { look(fixture, cancel, seen); });
        timer.start(10);
        fixture.trigger("menSelP");
        timer.stop();
        proxy_->passAll();

        QVERIFY(seen.isEnded);
        QVERIFY(seen.pages > 1000);
        QCOMPARE(seen.label, QStringLiteral("%1 Seiten werden gesendet").arg(seen.pages));
        QCOMPARE(seen.button, QStringLiteral("Abbrechen"));
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QVERIFY(fixture.window->findChild<QProgressDialog*>() == nullptr);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QCOMPARE(temporaryFiles(), QStringList());
        QVERIFY(fixture.the<QAbstractButton>("optView(1)").isChecked());
        if (!cancel) {
            const auto found = documents();
            QCOMPARE(found.size(), 1U);
            QCOMPARE(printedPages(found[0]).size(), std::size_t(seen.pages));
            return;
        }
        fixture.click("optView(0)"); // the window goes on, and prints
        QVERIFY(fixture.the<QAbstractButton>("optView(0)").isChecked());
        fixture.trigger("menPrint");
        const auto found = documents();
        QCOMPARE(found.size(), 1U);
        QCOMPARE(printedPages(found[0]).size(), 1U);
        QCOMPARE(newJobs(), 1U);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_print_sending_test)
#include "f_print_sending_test.moc"
