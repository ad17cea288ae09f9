// The rows of the data list: the interval values of one channel, or the raw records of day files.
#pragma once

#include "config/ChannelList.h"
#include "data/DayList.h"
#include "util/DateTime.h"
#include "util/Format.h"

#include <QAbstractTableModel>
#include <vector>

namespace kelvrum {

/// Keeps numbers only; texts are made for the cells that are on the screen.
class DataListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit DataListModel(LocaleTexts texts, QObject* parent = nullptr);

    /// New columns; all rows are removed.
    void setColumns(std::vector<ListColumn> columns);

    /// Removes all rows.
    void clear();

    /// Adds a row of time and value. The views see it with the next `show`.
    void append(DateTime time, double value);

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

  private:
    [[nodiscard]] std::size_t rowsThere() const { return times_.size(); }

    LocaleTexts texts_;
    std::vector<ListColumn> columns_;
    std::vector<DateTime> times_;
    std::vector<double> values_;      // one for each row ...
    std::vector<float> recordValues_; // ... or the fields of a record, recordWidth_ for each row
    std::size_t recordWidth_ = 0;     // 0: rows of time and value
    int shown_ = 0;                   // rows that the views know
};

} // namespace kelvrum
