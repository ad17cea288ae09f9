// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EvaluationModel.h"

#include <utility>

namespace kelvrum {

EvaluationModel::EvaluationModel(Columns columns, QObject* parent)
    : QAbstractTableModel(parent)
    , columns_(columns) {}

void EvaluationModel::setTable(EvaluationTable table) {
    beginResetModel();
    table_ = std::move(table);
    endResetModel();
}

int EvaluationModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.rows.size());
}

int EvaluationModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.header.size());
}

QVariant EvaluationModel::alignment(int column) const {
    const bool right = column > 0 && columns_ == Columns::numbers;
    return QVariant::fromValue(Qt::Alignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter));
}

QVariant EvaluationModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        const auto& row = table_.rows[static_cast<std::size_t>(index.row())];
        return QString::fromStdString(row[static_cast<std::size_t>(index.column())]);
    }
    return role == Qt::TextAlignmentRole ? alignment(index.column()) : QVariant();
}

QVariant EvaluationModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return QString::fromStdString(table_.header[static_cast<std::size_t>(section)]);
    }
    return role == Qt::TextAlignmentRole ? alignment(section) : QVariant();
}

EvaluationTable summaryTable(const EvaluationText& text) {
    EvaluationTable table;
    table.header = {"Kennzahl", "Wert"};
    for (const EvaluationEntry& entry : text.summary) {
        table.rows.push_back({entry.label, entry.value});
    }
    return table;
}

} // namespace kelvrum
