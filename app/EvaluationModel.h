// SPDX-License-Identifier: GPL-3.0-or-later
// A table of an evaluation for a view.
#pragma once

#include "evaluation/EvaluationText.h"

#include <QAbstractTableModel>

namespace kelvrum {

/// Shows texts: the first column to the left, the others as numbers to the right or as texts to the left.
class EvaluationModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum class Columns { texts, numbers };

    explicit EvaluationModel(Columns columns, QObject* parent = nullptr);

    void setTable(EvaluationTable table);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    [[nodiscard]] QVariant alignment(int column) const;

    Columns columns_;
    EvaluationTable table_;
};

/// The summary as a table of two columns.
EvaluationTable summaryTable(const EvaluationText& text);

} // namespace kelvrum
