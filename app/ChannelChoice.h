// SPDX-License-Identifier: GPL-3.0-or-later
// The list of channels.
#pragma once

#include "config/ChannelList.h"

#include <QItemSelectionModel>
#include <QListWidget>
#include <cstdint>
#include <vector>

namespace kelvrum {

/// One channel is selected at all times, unless there is none. A click on the selected one chooses it again.
class ChannelChoice : public QListWidget {
    Q_OBJECT

  public:
    explicit ChannelChoice(QWidget* parent);

    /// New channels; the first one is selected. Raises no signal.
    void fill(const std::vector<ListedChannel>& channels);

    /// The number of the selected channel; 0 = none.
    [[nodiscard]] std::int32_t channel() const;

  Q_SIGNALS:
    /// The user has chosen a channel, possibly the same one again.
    void chosen();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;

  private:
    void selectCurrent();
    void keepSelection();
    void followSelection();
    void click(QListWidgetItem* item);

    bool pressChose_ = false; // the press of the mouse has chosen another channel
};

} // namespace kelvrum
