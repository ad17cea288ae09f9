// SPDX-License-Identifier: GPL-3.0-or-later
// The frame "Scrollen": moving the range by a unit.
#pragma once

#include <QGroupBox>

class QComboBox;

namespace kelvrum {

class ScrollFrame : public QGroupBox {
    Q_OBJECT

  public:
    explicit ScrollFrame(QWidget* parent);

    /// The unit of a step, as shiftTime takes it.
    [[nodiscard]] int unit() const;

    /// "Tage" is chosen.
    void start();

  Q_SIGNALS:
    /// A button requests a step: −1 back, +1 forward.
    void scrolled(int count);

  private:
    QComboBox* selScroll;
};

} // namespace kelvrum
