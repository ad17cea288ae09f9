// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the corrections of wind and dust are offered.
#pragma once

#include <optional>

namespace kelvrum {

/// The state of the menu "Korrekturfaktoren".
struct CorrectionMenu {
    bool enabled = false;
    std::optional<bool> visible; // nothing: stays as it is

    bool operator==(const CorrectionMenu&) const = default;
};

/// The menu is enabled and shown when it is allowed, the station has a wind factor and the current folder
/// holds a file "faktoren.cfg". Without that file it is hidden; not allowed or without a factor it is
/// disabled only.
CorrectionMenu correctionMenu(bool allowed, double windFactor);

} // namespace kelvrum
