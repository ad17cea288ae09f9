// SPDX-License-Identifier: GPL-3.0-or-later
// The context menu of the diagram.
#pragma once

#include <QMenu>
#include <cstdint>

namespace kelvrum {

/// Offers the kinds of diagram.
class KindMenu : public QMenu {
    Q_OBJECT

  public:
    explicit KindMenu(QWidget* diagram);

    /// Ticks the kind that is shown, and offers the polar diagram or not.
    void showKinds(std::int32_t shown, bool polar);

  Q_SIGNALS:
    /// The user has chosen a DiagramKind.
    void kindChosen(std::int32_t kind);

  private:
    QActionGroup* kinds_;
};

} // namespace kelvrum
