// SPDX-License-Identifier: GPL-3.0-or-later
#include "correction/CorrectionMenu.h"

#include "util/Paths.h"

namespace kelvrum {

CorrectionMenu correctionMenu(bool allowed, double windFactor) {
    if (!allowed || windFactor == 0) {
        return {};
    }
    const bool marked = fileExists("faktoren.cfg");
    return {marked, marked};
}

} // namespace kelvrum
