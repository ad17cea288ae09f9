// SPDX-License-Identifier: GPL-3.0-or-later
// The frame "Mittelwerte-Intervall".
#pragma once

#include <QGroupBox>
#include <QString>
#include <cstdint>

class QComboBox;

namespace kelvrum {

class IntervalFrame : public QGroupBox {
    Q_OBJECT

  public:
    explicit IntervalFrame(QWidget* parent);

    /// The averaging interval in minutes.
    [[nodiscard]] std::int32_t minutes() const;
    /// Its caption, for example "10 Minuten".
    [[nodiscard]] QString caption() const;

    /// "1 Minute" is chosen.
    void start();

  Q_SIGNALS:
    /// The user has chosen an interval, possibly the same one again.
    void chosen();

  private:
    QComboBox* selInterval;
};

} // namespace kelvrum
