// SPDX-License-Identifier: GPL-3.0-or-later
// The frame "Hilfslinien": two limit lines and the mean line.
#pragma once

#include "data/DataReader.h"

#include <QGroupBox>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace kelvrum {

class LimitFrame : public QGroupBox {
    Q_OBJECT

  public:
    explicit LimitFrame(QWidget* parent);

    /// Whether the two limits are shown as lines.
    [[nodiscard]] bool areLimitsShown() const;
    /// The numbers of the two boxes; a NaN where a box holds none, which the validity test turns into
    /// INVALID_VALUE.
    [[nodiscard]] AuxiliaryLines limits() const;
    /// Writes numbers into the boxes. Raises no signal.
    void setLimits(const AuxiliaryLines& limits);

    /// Whether the mean is shown as a line.
    [[nodiscard]] bool isMeanShown() const;

  Q_SIGNALS:
    /// The user has ticked or cleared "anzeigen".
    void limitsToggled();
    /// The user has edited a limit.
    void firstLimitEdited();
    void secondLimitEdited();
    /// The user has ticked or cleared "Mittelwert".
    void meanToggled();

  private:
    void enableLimits();

    QCheckBox* Check1;
    QLineEdit* Text3;
    QLineEdit* Text4;
    QLabel* Label6;
    QLabel* Label7;
    QCheckBox* Check2;
};

} // namespace kelvrum
