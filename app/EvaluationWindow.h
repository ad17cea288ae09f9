// SPDX-License-Identifier: GPL-3.0-or-later
// The window "Auswertung".
#pragma once

#include "data/Reading.h"
#include "evaluation/Evaluation.h"
#include "evaluation/EvaluationText.h"
#include "util/Format.h"

#include <QDialog>
#include <functional>
#include <span>

class QCheckBox;
class QLabel;
class QPushButton;
class QSplitter;
class QTabWidget;
class QTableView;

namespace kelvrum {

/// Reads once when it appears, and shows the figures: a summary, and tables by calendar and of wind
/// directions. Closed while it reads, it gives up.
class EvaluationWindow : public QDialog {
    Q_OBJECT

  public:
    /// What the window needs from its owner.
    struct Owner {
        EvaluationRequest request; // its `onlyCovered` is the window's own choice
        EvaluationSubject subject;
        LocaleTexts texts;
        /// Reads what is evaluated.
        std::function<ReadStatus(const std::function<void(std::span<const IntervalReading>)>& consume,
                                 const ReadingStep& step)>
            read;
        /// Prints the figures that are shown; reports errors in message boxes of the window.
        std::function<void(const EvaluationText& text, QWidget& window)> print;
    };

    explicit EvaluationWindow(Owner owner, QWidget* parent = nullptr);

    void done(int result) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void buildControls();
    QTableView* makeView(const char* name, const QString& described);
    void read();
    void showFigures();
    void divideWidth();
    void showTables();
    void copy() const;

    Owner owner_;
    Evaluation all_;
    Evaluation covered_; // only intervals with at least 75 % of their minutes
    EvaluationText text_;
    bool started_ = false;
    bool closed_ = false;
    bool divided_ = false; // the user may have moved the divider since

    QCheckBox* chkMinuten = nullptr;
    QLabel* lblLesen = nullptr;
    QLabel* lblGrenzwerte = nullptr;
    QLabel* lblFuss = nullptr;
    QSplitter* divider_ = nullptr;
    QTableView* vwKennzahlen = nullptr;
    QTabWidget* tabTabellen = nullptr;
    QPushButton* cmdKopieren = nullptr;
    QPushButton* cmdDrucken = nullptr;
    QPushButton* cmdSchliessen = nullptr;
};

} // namespace kelvrum
