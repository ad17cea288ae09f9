// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/NumberField.h"

#include "util/Controls.h"

#include <QPalette>

namespace kelvrum {

NumberField::NumberField(const QString& text, QWidget* parent)
    : QLineEdit(text, parent) {
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textChanged, this, [this] { colourEntry(); });
}

void NumberField::colourEntry() {
    QPalette colours;
    if (!numberIn(*this)) {
        colours.setColor(QPalette::Base, QColor(255, 0, 0));
    }
    setPalette(colours);
}

} // namespace kelvrum
