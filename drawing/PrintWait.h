// SPDX-License-Identifier: GPL-3.0-or-later
// What the user sees of a print job while it is made and sent.
#pragma once

#include "drawing/PrintJob.h"

#include <QElapsedTimer>
#include <QObject>
#include <memory>

class QProgressDialog;
class QWidget;

namespace kelvrum {

/// As long as this lives, a window takes no input, and events run between the steps of a print job. After
/// half a second a dialog shows the progress and offers to cancel the job.
class PrintWait : public QObject {
    Q_OBJECT

  public:
    /// The job's steps are this object's while it lives.
    PrintWait(PrintJob& job, QWidget& window);
    ~PrintWait() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool step(const PrintProgress& progress);
    void showDialog();
    void show(const PrintProgress& progress);

    PrintJob& job_;
    QWidget& window_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceEvents_;
    bool cancelled_ = false;
    std::unique_ptr<QProgressDialog> dialog_;
};

} // namespace kelvrum
