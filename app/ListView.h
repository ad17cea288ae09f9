// SPDX-License-Identifier: GPL-3.0-or-later
// The view of the data list.
#pragma once

#include <QString>
#include <QTableView>
#include <utility>
#include <vector>

namespace kelvrum {

/// A report list: no grid, no row numbers, whole rows selected, rows of one fixed height. The selected rows
/// are copied with the keys of "copy", as tab-separated text below their header. Its actions are its context
/// menu.
class ListView : public QTableView {
    Q_OBJECT

  public:
    explicit ListView(QWidget* parent = nullptr);

    /// The header of the value column in copies, which then begin with a line about the times. Empty: the
    /// rows are records, copied below the headers of the list.
    void setValueHeader(const QString& header) { valueHeader_ = header; }

    /// The selected rows in list order, below the header; lines end in a line feed. Empty without a
    /// selection.
    [[nodiscard]] QString selectedText() const;

    /// All rows, in the same way.
    [[nodiscard]] QString allText() const;

    /// The list keeps on the screen what it shows, whatever becomes of its rows.
    void keepPicture();

    /// Shows the rows as they are now, from the first one on. They are laid out once and painted once.
    void releasePicture();

    void doItemsLayout() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// Rows from the first to the last of each pair, which ascend.
    [[nodiscard]] QString textOf(const std::vector<std::pair<int, int>>& ranges) const;

    QString valueHeader_;
    bool isPictureKept_ = false;
};

} // namespace kelvrum
