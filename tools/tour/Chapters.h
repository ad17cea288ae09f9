// SPDX-License-Identifier: GPL-3.0-or-later
// The stops of the tour. Each starts on a fresh window and writes its pictures into a folder.
#pragma once

#include "tools/tour/Stage.h"

#include <QString>

namespace kelvrum::tour {

/// The window as a whole, its range, its averages, its data list, its menu.
void showViews(const SampleFolder& station, const QString& pictures);

/// The scale, the limits, every kind of diagram and the menu of kinds.
void showDiagrams(const SampleFolder& station, const QString& pictures);

/// The readout, the calendar with its marks, two channels.
void showReading(const SampleFolder& station, const QString& pictures);

/// Project selection, correction factor, evaluation, batch print.
void showDialogs(const SampleFolder& station, const QString& pictures);

/// A printed diagram.
void showPage(const SampleFolder& station, const QString& pictures);

} // namespace kelvrum::tour
