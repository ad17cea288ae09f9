// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/Controls.h"

#include "util/Numbers.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QTableView>

namespace kelvrum {

namespace {

constexpr int FONT_PIXELS = 11;

/// Keeps the wheel from a control without the focus; its parent gets the wheel instead.
class PassingWheel : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
            event->ignore();
            return true;
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

QFont controlFont() {
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif); // as in the diagram, so that the toolkit loads one font for both
    font.setPixelSize(FONT_PIXELS);
    return font;
}

QString captionOf(QString text) { return text.replace(QLatin1Char('&'), QLatin1String("&&")); }

QString numberText(double v) { return QString::fromStdString(plainNumber(v)); }

std::optional<double> numberIn(const QLineEdit& field) { return wholeNumber(field.text().toStdString()); }

void showNumber(QLineEdit& field, double v) {
    field.setText(numberText(v));
    field.home(false);
}

void ignorePassingWheel(QWidget& control) {
    control.setFocusPolicy(Qt::StrongFocus);
    control.installEventFilter(new PassingWheel(&control));
}

void followScreenReader(QComboBox& choice) {
    const QAbstractItemView* list = choice.view();
    QItemSelectionModel* marked = list->selectionModel();
    const auto follow = [&choice, list, marked](const QItemSelection& selected) {
        const QModelIndexList rows = selected.indexes();
        // While the list is open, marking a row is not yet choosing it.
        if (rows.isEmpty() || list->isVisible() || !choice.isEnabled() ||
            rows.first().row() == choice.currentIndex()) {
            return;
        }
        marked->select(rows.first(), QItemSelectionModel::ClearAndSelect);
        choice.setCurrentIndex(rows.first().row());
        Q_EMIT choice.activated(rows.first().row());
    };
    QObject::connect(marked, &QItemSelectionModel::selectionChanged, &choice, follow);
}

void makeReport(QTableView& view, int rowHeight) {
    view.setShowGrid(false);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setWordWrap(false);
    view.setTabKeyNavigation(false);
    QHeaderView& rows = *view.verticalHeader();
    rows.hide();
    rows.setSectionResizeMode(QHeaderView::Fixed);
    rows.setMinimumSectionSize(rowHeight);
    rows.setDefaultSectionSize(rowHeight);
}

} // namespace kelvrum
