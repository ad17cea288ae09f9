// SPDX-License-Identifier: GPL-3.0-or-later
// The columns of the batch print dialog.
#pragma once

#include <QString>
#include <vector>

class QWidget;

namespace kelvrum {

// The runs of blanks place the words over their columns; the columns are laid out by them.
inline constexpr const char* SCALE_CAPTION = "auto      -      manuell";
inline constexpr const char* MEAN_HEADING = "Mittelwert";
inline constexpr const char* MEAN_CAPTION = "anzeigen";
inline constexpr const char* LIMIT_CAPTION = "anzeigen        grün                rot";

/// Pixels of the dialog.
namespace batch {
inline constexpr int MARGIN = 14;
inline constexpr int CONTROL_HEIGHT = 20;
inline constexpr int FIELD_WIDTH = 60;
inline constexpr int DASH_WIDTH = 12;
inline constexpr int CHOICE_WIDTH = 92;
} // namespace batch

/// Left edges, and the widths that depend on texts and font, in pixels.
struct BatchColumns {
    int nameWidth = 0;
    int tick = 0; // width of a check box without caption
    int scale = 0;
    int chAuto = 0;
    int tMin = 0;
    int strich = 0;
    int tMax = 0;
    int interval = 0;
    int limits = 0;
    int chShowLines = 0;
    int aMin = 0;
    int aMax = 0;
    int mean = 0;
    int chShowMittel = 0;
    int width = 0; // of the dialog
};

/// Lays the columns out for the font and style of a dialog and the names of its channels.
BatchColumns layOutColumns(const QWidget& dialog, const std::vector<QString>& names);

} // namespace kelvrum
