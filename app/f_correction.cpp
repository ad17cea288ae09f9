// SPDX-License-Identifier: GPL-3.0-or-later
// The menu "Korrekturfaktoren".
#include "app/f.h"
#include "correction/CorrectionMenu.h"
#include "correction/fChange.h"

#include <QMenu>

namespace kelvrum {

bool f::checkMenu(bool allowed) {
    const CorrectionMenu state = correctionMenu(allowed, station_.WindFactor);
    if (state.visible) {
        menu_.menKor->menuAction()->setVisible(*state.visible);
    }
    menu_.menKor->setEnabled(state.enabled);
    return state.enabled;
}

void f::correct(CorrectionMode mode) {
    loader_.whenIdle(mode == CorrectionMode::wind ? "menWind" : "menStaub",
                     [this, mode] { openCorrection(mode); });
}

void f::openCorrection(CorrectionMode mode) {
    double& lastFactor = mode == CorrectionMode::wind ? lastWindFactor_ : lastDustFactor_;
    fChange dialog({station_, mode, range(), lastFactor, [this] { LoadData(); }, *environment_.dialogs},
                   this);
    dialog.exec();
}

} // namespace kelvrum
