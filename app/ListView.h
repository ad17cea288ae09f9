// The view of the data list.
#pragma once

#include <QTableView>

namespace kelvrum {

/// A report list: no grid, no row numbers, whole rows selected, rows of one fixed height. The selected rows
/// are copied with the keys of "copy", as tab-separated text below their header.
class ListView : public QTableView {
    Q_OBJECT

  public:
    explicit ListView(QWidget* parent = nullptr);

    /// The selected rows in list order, below the header; lines end in a line feed. Empty without a
    /// selection.
    [[nodiscard]] QString selectedText() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace kelvrum
