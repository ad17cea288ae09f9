// SPDX-License-Identifier: GPL-3.0-or-later
// The frame "Zoom".
#pragma once

#include <QGroupBox>

class QLabel;
class QPushButton;

namespace kelvrum {

/// The zoom factor is read by nothing but its own two buttons, on purpose: a step lays the window out anew
/// and changes nothing else.
class ZoomFrame : public QGroupBox {
    Q_OBJECT

  public:
    explicit ZoomFrame(QWidget* parent);

    /// Back to the factor 1. The buttons stay as they are.
    void start();

  Q_SIGNALS:
    /// A button has changed the factor.
    void zoomed();
    /// The slider has been moved.
    void slid();

  private:
    void zoomBy(int steps);

    int zoom_ = 1; // 1 to 25
    QPushButton* Command1;
    QLabel* lZoom;
    QPushButton* Command2;
};

} // namespace kelvrum
