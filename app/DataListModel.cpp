#include "app/DataListModel.h"

#include <cmath>
#include <utility>

namespace kelvrum {

namespace {
/// Smaller values are shown as 0: they stand for a measured zero.
constexpr double SHOWN_AS_ZERO = 1e-200;
} // namespace

DataListModel::DataListModel(LocaleTexts texts, QObject* parent)
    : QAbstractTableModel(parent)
    , texts_(std::move(texts)) {}

void DataListModel::setColumns(std::vector<ListColumn> columns) {
    beginResetModel();
    columns_ = std::move(columns);
    times_ = {};
    values_ = {};
    recordValues_ = {};
    recordWidth_ = 0;
    shown_ = 0;
    endResetModel();
}

void DataListModel::clear() {
    if (shown_ > 0) {
        beginRemoveRows({}, 0, shown_ - 1);
        shown_ = 0;
        endRemoveRows();
    }
    times_ = {}; // a long list gives its memory back
    values_ = {};
    recordValues_ = {};
    recordWidth_ = 0;
}

void DataListModel::append(DateTime time, double value) {
    if (recordWidth_ > 0) {
        clear(); // rows of one kind only
    }
    times_.push_back(time);
    values_.push_back(value);
}

void DataListModel::setDayRows(DayRows rows) {
    clear();
    times_ = std::move(rows.times);
    recordValues_ = std::move(rows.values);
    recordWidth_ = rows.channels;
}

void DataListModel::show() {
    const int rows = static_cast<int>(rowsThere());
    if (rows > shown_) {
        beginInsertRows({}, shown_, rows - 1);
        shown_ = rows;
        endInsertRows();
    }
}

int DataListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

int DataListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString DataListModel::text(int row, int column) const {
    const auto r = static_cast<std::size_t>(row);
    const auto c = static_cast<std::size_t>(column);
    if (c == 0) {
        return QString::fromStdString(rowTime(times_[r], texts_));
    }
    if (recordWidth_ == 0) {
        const double v = std::fabs(values_[r]) > SHOWN_AS_ZERO ? values_[r] : 0;
        return QString::fromStdString(shownNumber(v, texts_));
    }
    return QString::fromStdString(shownNumber(recordValues_[r * recordWidth_ + c - 1], texts_));
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
