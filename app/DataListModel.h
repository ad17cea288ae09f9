// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the data list: the interval values of one channel, or the raw records of day files.
#pragma once

#include "config/ChannelList.h"
#include "data/DayList.h"
#include "data/Reading.h"
#include "util/Format.h"

#include <QAbstractTableModel>
#include <span>
#include <string>
#include <vector>

namespace kelvrum {

/// The rows of a data list as they were when they were copied.
struct ListRows {
    LocaleTexts texts;
    std::vector<IntervalValue> values; // either these ...
    DayRows records;                   // ... or these
    std::size_t columns = 0;

    [[nodiscard]] std::size_t count() const { return records.empty() ? values.size() : records.count(); }
    /// A row's cells, separated by "|".
    [[nodiscard]] std::string text(std::size_t row) const;
};

/// Keeps numbers only; texts are made for the cells that are on the screen.
class DataListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit DataListModel(LocaleTexts texts, QObject* parent = nullptr);

    /// New columns; all rows are removed.
    void setColumns(std::vector<ListColumn> columns);

    /// Removes all rows. Their memory is kept for the next ones.
    void clear();

    /// Releases the memory of removed rows.
    void releaseMemory();

    /// Reserves memory for this many rows of time and value.
    void expect(std::size_t rows);

    /// Memory for up to this many further rows of time and value, valid until the next call; removes the
    /// records of day files. The first rows written there are added with `added`; the views see them with the
    /// next `show`.
    std::span<IntervalValue> room(std::size_t rows);
    void added(std::size_t rows) { count_ += rows; }

    /// Replaces the rows by records of day files. The views see them with the next `show`.
    void setDayRows(DayRows rows);

    /// Lets the views see what was appended or set.
    void show();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The text of a cell, as it is shown.
    [[nodiscard]] QString text(int row, int column) const;

    [[nodiscard]] ListRows copy() const;

  private:
    LocaleTexts texts_;
    std::vector<ListColumn> columns_;
    std::vector<IntervalValue> rows_; // either the first of these ...
    std::size_t count_ = 0;           // so many of them
    DayRows records_;                 // ... or these
    int shown_ = 0;                   // rows that the views know
};

} // namespace kelvrum
