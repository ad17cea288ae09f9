// SPDX-License-Identifier: GPL-3.0-or-later
// How long a window lets no events run.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <algorithm>

namespace kelvrum::testing {

/// Looks as long as it lives.
class Pauses {
  public:
    Pauses() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
        constexpr int LOOK_EVERY = 5; // milliseconds
        timer_.start(LOOK_EVERY);
        since_.start();
    }

    /// The longest time without events so far, up to this moment, in milliseconds.
    [[nodiscard]] qint64 longest() {
        look();
        return longest_;
    }

  private:
    void look() { longest_ = std::max(longest_, since_.restart()); }

    QTimer timer_;
    QElapsedTimer since_;
    qint64 longest_ = 0;
};

} // namespace kelvrum::testing
