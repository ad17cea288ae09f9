// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/EvaluationDriver.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <stdexcept>

namespace kelvrum::testing {

void inEvaluation(const WindowFixture& fixture, const std::function<void(QWidget&)>& look) {
    bool looked = false;
    QTimer timer; // not within the reading, which lets events run
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* window = QApplication::activeModalWidget();
        if (window != nullptr && window->objectName() == QStringLiteral("Auswertung") &&
            controlOf<QPushButton>(*window, "cmdKopieren").isEnabled()) {
            timer.stop();
            look(*window);
            looked = true;
            window->close();
        }
    });
    timer.start(10);
    fixture.trigger("menAuswertung");
    if (!looked) {
        throw std::runtime_error("no evaluation was opened");
    }
}

} // namespace kelvrum::testing
