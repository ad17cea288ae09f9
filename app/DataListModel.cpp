// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DataListModel.h"

#include <algorithm>
#include <utility>

namespace kelvrum {

namespace {
std::string timeText(const IntervalValue& row, const LocaleTexts& texts) { return rowTime(row.start, texts); }

std::string valueText(const IntervalValue& row, const LocaleTexts& texts) {
    return shownValue(row.value, texts);
}

std::string recordText(const DayRows& records, std::size_t row, std::size_t column,
                       const LocaleTexts& texts) {
    if (column == 0) {
        return rowTime(records.times()[row], texts);
    }
    const std::span<const float> values = records.values(row);
    return values.empty() ? std::string() : shownNumber(values[column - 1], texts);
}

} // namespace

std::string ListRows::text(std::size_t row) const {
    if (records.empty()) {
        return timeText(values[row], texts) + '|' + valueText(values[row], texts);
    }
    std::string cells;
    for (std::size_t column = 0; column < columns; ++column) {
        cells.append(column > 0 ? "|" : "").append(recordText(records, row, column, texts));
    }
    return cells;
}

DataListModel::DataListModel(LocaleTexts texts, QObject* parent)
    : QAbstractTableModel(parent)
    , texts_(std::move(texts)) {}

void DataListModel::setColumns(std::vector<ListColumn> columns) {
    beginResetModel();
    columns_ = std::move(columns);
    rows_ = {};
    count_ = 0;
    records_ = {};
    shown_ = 0;
    endResetModel();
}

void DataListModel::clear() {
    const bool wasShown = shown_ > 0;
    if (wasShown) {
        beginResetModel();
    }
    count_ = 0;
    records_ = {};
    shown_ = 0;
    if (wasShown) {
        endResetModel();
    }
}

std::span<IntervalValue> DataListModel::room(std::size_t rows) {
    if (!records_.empty()) {
        clear(); // rows of one kind only
    }
    if (rows_.size() < count_ + rows) {
        rows_.resize(std::max(count_ + rows, 2 * rows_.size()));
    }
    return std::span(rows_).subspan(count_, rows);
}

void DataListModel::expect(std::size_t rows) {
    if (rows_.size() < rows) {
        rows_.resize(rows);
    }
}

void DataListModel::releaseMemory() {
    if (count_ == 0) {
        rows_ = {};
    }
}

void DataListModel::setDayRows(DayRows rows) {
    clear();
    records_ = std::move(rows);
}

void DataListModel::show() {
    const int rows = static_cast<int>(records_.empty() ? count_ : records_.count());
    if (shown_ == 0 && rows > 0) {
        beginResetModel(); // the views lay out a full list faster than inserted rows
        shown_ = rows;
        endResetModel();
    } else if (rows > shown_) {
        beginInsertRows({}, shown_, rows - 1);
        shown_ = rows;
        endInsertRows();
    }
}

int DataListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

int DataListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

ListRows DataListModel::copy() const {
    const auto values = std::span(rows_).first(count_);
    return {texts_, {values.begin(), values.end()}, records_, columns_.size()};
}

QString DataListModel::text(int row, int column) const {
    const auto r = static_cast<std::size_t>(row);
    const auto c = static_cast<std::size_t>(column);
    if (!records_.empty()) {
        return QString::fromStdString(recordText(records_, r, c, texts_));
    }
    return QString::fromStdString(c == 0 ? timeText(rows_[r], texts_) : valueText(rows_[r], texts_));
}

QVariant DataListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return text(index.row(), index.column());
    }
    if (role == Qt::TextAlignmentRole && index.column() > 0) {
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    }
    return {};
}

QVariant DataListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return QString::fromStdString(columns_[static_cast<std::size_t>(section)].header);
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(
            Qt::Alignment((section > 0 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
    }
    return {};
}

} // namespace kelvrum
