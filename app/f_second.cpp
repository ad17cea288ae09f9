// SPDX-License-Identifier: GPL-3.0-or-later
// A second channel in the main window's diagram.
#include "app/ChannelChoice.h"
#include "app/KindMenu.h"
#include "app/SecondChannel.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/f.h"
#include "diagram/DiagramSummary.h"
#include "diagram/PolarSys.h"

namespace kelvrum {

void f::addSecond() {
    second_ = new SecondChannel(view_->diagram(), *menKS);
    connect(second_, &SecondChannel::chosen, this, [this] {
        if (takesSecond()) {
            LoadData();
        }
    });
}

/// The list and the polar diagram show one channel.
bool f::takesSecond() const {
    return selChan->channel() != 0 && optView->isDiagramChosen() && view_->diagram().DiagTyp() != KIND_POLAR;
}

std::int32_t f::secondShown() const { return takesSecond() ? second_->channel() : 0; }

std::optional<ReadoutSeries> f::secondSeries() const {
    const std::int32_t channel = secondShown();
    return channel == 0 ? std::nullopt : std::optional(seriesOf(channel));
}

/// While a second channel is shown, the first one's unit is part of its caption.
std::string f::summary() const {
    const PolarSys& KS = view_->diagram();
    DiagramProperties shown = KS.properties();
    const auto second = secondSeries();
    if (second) {
        shown.Einheit = seriesOf(selChan->channel()).unit;
    }
    return diagramSummary(shown, KS.series(), KS.sampleCount(), second, environment_.texts);
}

} // namespace kelvrum
