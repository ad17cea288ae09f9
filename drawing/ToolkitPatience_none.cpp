// SPDX-License-Identifier: GPL-3.0-or-later
// Without CUPS the toolkit's queries cannot be limited.
#include "drawing/ToolkitPatience.h"

namespace kelvrum {

ToolkitPatience::ToolkitPatience() = default;

ToolkitPatience::~ToolkitPatience() = default;

void ToolkitPatience::renew() { isConnected_ = false; }

bool ToolkitPatience::waitsOn() { return true; }

void ToolkitPatience::detour() {}

void ToolkitPatience::watch() {}

} // namespace kelvrum
