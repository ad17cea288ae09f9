// SPDX-License-Identifier: GPL-3.0-or-later
// The dimensions of the left column, and the labels of its fields.
#pragma once

#include "util/Controls.h"

#include <QLabel>
#include <QRect>

namespace kelvrum::column {

// Pixels of the window's inner area.
inline constexpr int LEFT = 2;
inline constexpr int WIDTH = 114;

// Pixels within a frame.
inline constexpr int INNER_LEFT = 5;
inline constexpr int INNER_WIDTH = 104;
inline constexpr int CONTROL_HEIGHT = 20;

/// A control as wide as its frame.
inline QRect row(int y) { return {INNER_LEFT, y, INNER_WIDTH, CONTROL_HEIGHT}; }

/// A button or option as wide as its frame.
inline QRect option(int y) { return {INNER_LEFT, y, INNER_WIDTH, 17}; }

/// The label at the left of a field, whose key brings the focus to the field.
inline QLabel* makeLabel(QWidget* parent, const char* name, int y, const char* caption, QWidget* field) {
    auto* label = makeControl<QLabel>(parent, name, QRect(INNER_LEFT, y, 62, CONTROL_HEIGHT),
                                      QString::fromUtf8(caption));
    label->setBuddy(field);
    return label;
}

} // namespace kelvrum::column
