// SPDX-License-Identifier: GPL-3.0-or-later
// Opens the window "Auswertung" as a person does.
#pragma once

#include "tests/app/WindowFixture.h"

#include <functional>

class QWidget;

namespace kelvrum::testing {

/// Presses F6, looks at the window when the figures are there, and closes it. Throws std::runtime_error when
/// there was no such window.
void inEvaluation(const WindowFixture& fixture, const std::function<void(QWidget&)>& look);

} // namespace kelvrum::testing
