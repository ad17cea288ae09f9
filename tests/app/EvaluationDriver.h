// SPDX-License-Identifier: GPL-3.0-or-later
// The window "Auswertung" of a window under test.
#pragma once

#include "tests/app/WindowFixture.h"

#include <functional>

class QWidget;

namespace kelvrum::testing {

/// Opens it, looks at it when the figures are there, and closes it. Throws std::runtime_error when
/// there was no such window.
void inEvaluation(const WindowFixture& fixture, const std::function<void(QWidget&)>& look);

} // namespace kelvrum::testing
