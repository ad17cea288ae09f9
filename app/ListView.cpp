// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ListView.h"

#include "diagram/CopiedText.h"
#include "util/Controls.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionHeader>
#include <algorithm>
#include <vector>

namespace kelvrum {

namespace {
constexpr int ROW_HEIGHT = 17;
constexpr int COLUMN_WIDTH = 120;

/// Column titles that never turn bold, and so need no room for it: the toolkit would look for the bold face
/// of the font, while the program starts, only to measure them.
class ColumnTitles : public QHeaderView {
  public:
    explicit ColumnTitles(QWidget* parent)
        : QHeaderView(Qt::Horizontal, parent) {
        setSectionsClickable(true);
        setHighlightSections(false);
    }

  protected:
    [[nodiscard]] QSize sectionSizeFromContents(int logicalIndex) const override {
        QStyleOptionHeader option;
        initStyleOption(&option);
        option.section = logicalIndex;
        option.text = model()->headerData(logicalIndex, Qt::Horizontal).toString();
        option.fontMetrics = fontMetrics();
        return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, {}, this);
    }
};

} // namespace

ListView::ListView(QWidget* parent)
    : QTableView(parent) {
    setHorizontalHeader(new ColumnTitles(this));
    setAutoFillBackground(true); // opaque: what it covers is not painted below it
    makeReport(*this, ROW_HEIGHT);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    horizontalHeader()->setDefaultSectionSize(COLUMN_WIDTH);
}

QString ListView::selectedText() const {
    if (model() == nullptr || !selectionModel()->hasSelection()) {
        return {};
    }
    // Ranges of rows, not single cells: a whole year may be selected.
    std::vector<std::pair<int, int>> ranges;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        ranges.emplace_back(range.top(), range.bottom());
    }
    std::sort(ranges.begin(), ranges.end());
    return textOf(ranges);
}

QString ListView::allText() const {
    return model() == nullptr ? QString() : textOf({{0, model()->rowCount() - 1}});
}

QString ListView::textOf(const std::vector<std::pair<int, int>>& ranges) const {
    const int columns = model()->columnCount();
    QString text = valueHeader_.isEmpty() ? QString() : QString::fromUtf8(TIME_NOTE) + QLatin1Char('\n');
    const auto addLine = [&](auto cell) {
        for (int column = 0; column < columns; ++column) {
            text += (column > 0 ? QStringLiteral("\t") : QString()) + cell(column).toString();
        }
        text += QLatin1Char('\n');
    };
    addLine([this](int column) {
        return column == 1 && !valueHeader_.isEmpty() ? QVariant(valueHeader_)
                                                      : model()->headerData(column, Qt::Horizontal);
    });
    int next = 0; // rows before it are there already
    for (const auto& [first, last] : ranges) {
        for (int row = std::max(first, next); row <= last; ++row) {
            addLine([this, row](int column) { return model()->index(row, column).data(); });
        }
        next = std::max(next, last + 1);
    }
    return text;
}

void ListView::keepPicture() {
    isPictureKept_ = true;
    setUpdatesEnabled(false);
}

void ListView::releasePicture() {
    isPictureKept_ = false;
    doItemsLayout();
    scrollToTop();
    setUpdatesEnabled(true);
}

void ListView::doItemsLayout() {
    if (!isPictureKept_) { // the scroll bar of the old rows stays too
        QTableView::doItemsLayout();
    }
}

void ListView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        const QString text = selectedText();
        if (!text.isEmpty()) {
            QGuiApplication::clipboard()->setText(text);
        }
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

} // namespace kelvrum
