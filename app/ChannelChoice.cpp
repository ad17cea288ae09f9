// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ChannelChoice.h"

#include "app/ColumnDesign.h"

#include <QSignalBlocker>

namespace kelvrum {

ChannelChoice::ChannelChoice(QWidget* parent)
    : QListWidget(parent) {
    setObjectName(QStringLiteral("selChan"));
    setGeometry(column::LEFT, 2, column::WIDTH, 108);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle); // names often differ at their end
    connect(this, &QListWidget::currentRowChanged, this, [this] {
        pressChose_ = true;
        selectCurrent();
        Q_EMIT chosen();
    });
    connect(this, &QListWidget::itemClicked, this, &ChannelChoice::click);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &ChannelChoice::keepSelection);
    // Once the change is complete: a click and a key select first and make the row the current one then.
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &ChannelChoice::followSelection,
            Qt::QueuedConnection);
}

void ChannelChoice::fill(const std::vector<ListedChannel>& channels) {
    const QSignalBlocker silent(this);
    clear();
    for (const ListedChannel& entry : channels) {
        auto* item = new QListWidgetItem(QString::fromStdString(entry.name), this);
        item->setData(Qt::UserRole, entry.channel);
        item->setToolTip(item->text()); // a long name does not fit the column
    }
    setCurrentRow(count() > 0 ? 0 : -1);
}

std::int32_t ChannelChoice::channel() const {
    const QListWidgetItem* item = currentItem();
    return item == nullptr ? 0 : item->data(Qt::UserRole).toInt();
}

void ChannelChoice::mousePressEvent(QMouseEvent* event) {
    pressChose_ = false;
    QListWidget::mousePressEvent(event);
}

/// Called after the press has chosen a row: in the reading that followed, the user may have chosen another
/// one.
void ChannelChoice::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    QListWidget::setSelection(rect, command);
    selectCurrent();
}

void ChannelChoice::selectCurrent() {
    const QListWidgetItem* shown = currentItem();
    if (shown != nullptr && (!shown->isSelected() || selectionModel()->selectedRows().size() > 1)) {
        selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
    }
}

void ChannelChoice::keepSelection() {
    QListWidgetItem* shown = currentItem();
    if (shown != nullptr && !selectionModel()->hasSelection()) {
        shown->setSelected(true);
    }
}

/// A screen reader selects a row without making it the current one, and leaves the old one selected.
void ChannelChoice::followSelection() {
    for (QListWidgetItem* item : selectedItems()) {
        if (item != currentItem()) {
            setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
            return;
        }
    }
}

void ChannelChoice::click(QListWidgetItem* item) {
    setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
    if (!pressChose_) {
        Q_EMIT chosen();
    }
}

} // namespace kelvrum
