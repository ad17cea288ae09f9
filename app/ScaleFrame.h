// SPDX-License-Identifier: GPL-3.0-or-later
// The frame "Skalierung": the range of the left value axis.
#pragma once

#include <QGroupBox>

class QLabel;
class QLineEdit;
class QRadioButton;

namespace kelvrum {

/// An automatic scale or one from a minimum to a maximum. A text that is no number turns its box red and
/// changes nothing; the last number is restored when the box loses the focus.
class ScaleFrame : public QGroupBox {
    Q_OBJECT

  public:
    explicit ScaleFrame(QWidget* parent);

    [[nodiscard]] bool isAutomatic() const;
    /// The manual scale. Minimum and maximum are not compared with each other.
    [[nodiscard]] double minimum() const { return minimum_; }
    [[nodiscard]] double maximum() const { return maximum_; }

    /// The manual scale is 0 to 100.
    void start();

  Q_SIGNALS:
    /// The user has clicked "Automatisch" or "Manuell".
    void chosen();
    /// The user has typed another minimum or maximum.
    void minimumEdited(double value);
    void maximumEdited(double value);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void enableBounds();
    void edit(QLineEdit& box);
    void leave(QLineEdit& box);

    double minimum_ = 0;
    double maximum_ = 100;
    QRadioButton* Option1;
    QRadioButton* Option2;
    QLineEdit* Text1;
    QLineEdit* Text2;
    QLabel* Label4;
    QLabel* Label5;
};

} // namespace kelvrum
