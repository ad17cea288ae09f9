// SPDX-License-Identifier: GPL-3.0-or-later
// The choice between data list and diagram.
#pragma once

#include <QObject>

class QRadioButton;
class QWidget;

namespace kelvrum {

/// The two option buttons optView(0) and optView(1), children of the window's inner area.
class ViewSwitch : public QObject {
    Q_OBJECT

  public:
    explicit ViewSwitch(QWidget* area);

    [[nodiscard]] bool isDiagramChosen() const;

    /// "Liniendiagramm" is chosen. Raises no signal.
    void start();

  Q_SIGNALS:
    /// The user has clicked a button, possibly the selected one.
    void chosen();

  private:
    QRadioButton* list_;
    QRadioButton* diagram_;
};

} // namespace kelvrum
