// SPDX-License-Identifier: GPL-3.0-or-later
// A second channel as a user without a mouse chooses it, and what it leaves in the diagram.
#pragma once

#include "diagram/PolarSys.h"
#include "diagram/SeriesTable.h"
#include "tests/app/WindowFixture.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace kelvrum::testing {

// Rows of the channel list, and of the intervals.
inline constexpr int WIND_ROW = 1;
inline constexpr int DUST_ROW = 2;
inline constexpr int RAIN_ROW = 3;
inline constexpr int HOUR_ROW = 4;

/// Opens the diagram's menu by its key and walks through the submenu to an entry.
void chooseSecond(const WindowFixture& fixture, const char* entry);

/// The entries of the submenu, the ticked one with a star.
QStringList offered(const WindowFixture& fixture);

/// The values of a row in its columns, and those of them that are valid.
std::vector<double> rowOf(const PolarSys& KS, SeriesTable::Row row);
std::vector<double> validOf(std::vector<double> values);

/// Checks that the diagram is as without a second channel.
void expectWithout(const PolarSys& KS);

/// What "Werte kopieren" puts into the clipboard.
QString copied(const WindowFixture& fixture);

} // namespace kelvrum::testing
