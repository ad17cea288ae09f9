// SPDX-License-Identifier: GPL-3.0-or-later
// The correction dialog.
#pragma once

#include "config/StationConfig.h"
#include "correction/Recalculation.h"
#include "util/DateTime.h"
#include "util/Dialogs.h"

#include <QDialog>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvrum {

/// Takes a correction factor and recomputes the corrected channel over the main window's range.
class fChange : public QDialog {
    Q_OBJECT

  public:
    /// What the dialog needs from its owner; the references must outlive it.
    struct Owner {
        const StationConfig& station;
        CorrectionMode mode;
        TimeRange range;
        double& lastFactor;            // of this mode: shown at first, set by "Berechnen"
        std::function<void()> refresh; // the main window's view
        Dialogs& dialogs;
    };

    explicit fChange(Owner owner, QWidget* parent = nullptr);

    /// Closing waits until a running recalculation has ended and its values are shown.
    void reject() override;

  private:
    void factorEdited();
    void calculate();
    void showRunning();

    Owner owner_;
    double currentFactor_;
    bool running_ = false;
    QLineEdit* Text1 = nullptr;
    QPushButton* OKButton = nullptr;
    QPushButton* CancelButton = nullptr;
    QLabel* wait_ = nullptr;
};

} // namespace kelvrum
