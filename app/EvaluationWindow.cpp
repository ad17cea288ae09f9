// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EvaluationWindow.h"

#include "app/EvaluationModel.h"
#include "util/BusyPointer.h"
#include "util/Controls.h"

#include <QCheckBox>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QShowEvent>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace kelvrum {

namespace {

constexpr int TABLE_ROW_HEIGHT = 18;
constexpr QSize SIZE(1200, 670);

template<typename Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QString::fromUtf8(name));
    return control;
}

} // namespace

EvaluationWindow::EvaluationWindow(Owner owner, QWidget* parent)
    : QDialog(parent)
    , owner_(std::move(owner)) {
    setObjectName(QStringLiteral("Auswertung"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setFont(controlFont());
    buildControls();
    text_ = evaluationText(evaluate(owner_.request, {}), owner_.subject, owner_.texts);
    setWindowTitle(QString::fromStdString(text_.title)); // the rest follows with the figures
    resize(SIZE);
}

QTableView* EvaluationWindow::makeView(const char* name, const QString& described) {
    auto* view = named(new QTableView(this), name);
    view->setAccessibleName(described);
    makeReport(*view, TABLE_ROW_HEIGHT);
    view->setAlternatingRowColors(true);
    view->horizontalHeader()->setHighlightSections(false);
    return view;
}

void EvaluationWindow::buildControls() {
    chkMinuten =
        named(new QCheckBox(QStringLiteral("&nur Intervalle mit mindestens 75 % der Minuten")), "chkMinuten");
    lblLesen = named(new QLabel(QStringLiteral("Lese Daten ...")), "lblLesen");
    lblGrenzwerte = named(new QLabel, "lblGrenzwerte");
    lblFuss = named(new QLabel, "lblFuss");
    lblFuss->setWordWrap(true);
    vwKennzahlen = makeView("vwKennzahlen", QStringLiteral("Kennzahlen"));
    vwKennzahlen->setModel(new EvaluationModel(EvaluationModel::Columns::texts, vwKennzahlen));
    vwKennzahlen->horizontalHeader()->setStretchLastSection(true);
    tabTabellen = named(new QTabWidget, "tabTabellen");
    cmdKopieren = named(new QPushButton(QStringLiteral("&Kopieren")), "cmdKopieren");
    cmdDrucken = named(new QPushButton(QStringLiteral("&Drucken")), "cmdDrucken");
    cmdSchliessen = named(new QPushButton(QStringLiteral("&Schließen")), "cmdSchliessen");
    cmdSchliessen->setDefault(true);

    auto* top = new QHBoxLayout;
    top->addWidget(chkMinuten);
    top->addStretch();
    top->addWidget(lblLesen);
    divider_ = new QSplitter(Qt::Horizontal);
    divider_->addWidget(vwKennzahlen);
    divider_->addWidget(tabTabellen);
    divider_->setStretchFactor(1, 1);
    divider_->setChildrenCollapsible(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {cmdKopieren, cmdDrucken, cmdSchliessen}) {
        buttons->addWidget(button);
    }
    auto* all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(divider_, 1);
    all->addWidget(lblGrenzwerte);
    all->addWidget(lblFuss);
    all->addLayout(buttons);

    for (QWidget* control : {static_cast<QWidget*>(chkMinuten), static_cast<QWidget*>(cmdKopieren),
                             static_cast<QWidget*>(cmdDrucken)}) {
        control->setEnabled(false); // until there are figures
    }
    connect(chkMinuten, &QCheckBox::clicked, this, &EvaluationWindow::showFigures);
    connect(cmdKopieren, &QPushButton::clicked, this, &EvaluationWindow::copy);
    connect(cmdDrucken, &QPushButton::clicked, this, [this] { owner_.print(text_, *this); });
    connect(cmdSchliessen, &QPushButton::clicked, this, &QDialog::reject);
}

void EvaluationWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!std::exchange(started_, true)) {
        QMetaObject::invokeMethod(this, &EvaluationWindow::read, Qt::QueuedConnection);
    }
}

void EvaluationWindow::done(int result) {
    closed_ = true;
    QDialog::done(result);
}

/// One reading gives the figures of both states of the check box.
void EvaluationWindow::read() {
    const BusyPointer busy;
    EvaluationRequest onlyCovered = owner_.request;
    onlyCovered.onlyCovered = true;
    Evaluator all(owner_.request);
    Evaluator covered(onlyCovered);
    const auto consume = [&](std::span<const IntervalReading> intervals) {
        all.add(intervals);
        covered.add(intervals);
    };
    const ReadingStep step = [this] {
        QCoreApplication::processEvents();
        return !closed_;
    };
    if (closed_ || owner_.read(consume, step) == ReadStatus::givenUp || closed_) {
        return;
    }
    all_ = all.result();
    covered_ = covered.result();
    lblLesen->hide();
    chkMinuten->setEnabled(true);
    cmdKopieren->setEnabled(true);
    cmdDrucken->setEnabled(true);
    showFigures();
    chkMinuten->setFocus();
}

void EvaluationWindow::showFigures() {
    text_ = evaluationText(chkMinuten->isChecked() ? covered_ : all_, owner_.subject, owner_.texts);
    static_cast<EvaluationModel*>(vwKennzahlen->model())->setTable(summaryTable(text_));
    vwKennzahlen->resizeColumnToContents(0);
    if (!std::exchange(divided_, true)) {
        divideWidth();
    }
    lblGrenzwerte->setText(QString::fromStdString(text_.limits));
    lblFuss->setText(QString::fromStdString(text_.foot));
    showTables();
}

/// The summary gets what it needs, but not more than half, and the tables all the rest.
void EvaluationWindow::divideWidth() {
    constexpr int SPARE = 4; // pixels
    const bool scrolls = vwKennzahlen->verticalHeader()->length() > vwKennzahlen->viewport()->height();
    const int bar = scrolls ? vwKennzahlen->verticalScrollBar()->sizeHint().width() : 0;
    const QAbstractItemView& view = *vwKennzahlen; // the width is protected in the table view
    const int wanted = vwKennzahlen->columnWidth(0) + view.sizeHintForColumn(1) + bar +
                       2 * vwKennzahlen->frameWidth() + SPARE;
    const int summary = std::min(wanted, divider_->width() / 2);
    divider_->setSizes({summary, divider_->width() - summary});
}

/// One tab for each table; the tables of both states of the check box are the same ones.
void EvaluationWindow::showTables() {
    for (std::size_t i = 0; i < text_.tables.size(); ++i) {
        const int tab = static_cast<int>(i);
        const QString title = captionOf(QString::fromStdString(text_.tables[i].title));
        if (tab == tabTabellen->count()) {
            QTableView* view = makeView("", title);
            view->setObjectName(QStringLiteral("vwTabelle(%1)").arg(tab));
            view->setModel(new EvaluationModel(EvaluationModel::Columns::numbers, view));
            tabTabellen->addTab(view, title);
        }
        auto* view = static_cast<QTableView*>(tabTabellen->widget(tab));
        static_cast<EvaluationModel*>(view->model())->setTable(text_.tables[i]);
        view->resizeColumnsToContents();
    }
}

void EvaluationWindow::copy() const {
    QGuiApplication::clipboard()->setText(QString::fromStdString(tabSeparated(text_)));
}

} // namespace kelvrum
