// SPDX-License-Identifier: GPL-3.0-or-later
// An edit field for a number.
#pragma once

#include <QLineEdit>

namespace kelvrum {

/// Turns red while its text is no number. Numbers are aligned to the right.
class NumberField : public QLineEdit {
    Q_OBJECT

  public:
    explicit NumberField(const QString& text = {}, QWidget* parent = nullptr);

  private:
    void colourEntry();
};

} // namespace kelvrum
