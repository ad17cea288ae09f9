// Reading the picture: what the overlay, the actions of the range and the diagram's input do to the window.
#include "app/ChannelChoice.h"
#include "app/DateFrame.h"
#include "app/DiagramInput.h"
#include "app/KindMenu.h"
#include "app/RangeActions.h"
#include "app/ViewArea.h"
#include "app/f.h"
#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"

namespace kelvrum {

void f::buildReading() {
    PolarSys& KS = view_->diagram();
    const auto shownRange = [this] { return range(); };
    overlay_ = new ReadoutOverlay(KS, environment_.texts);
    auto* input = new DiagramInput(KS, *overlay_, shownRange, [this] { return interval(); });
    connect(input, &DiagramInput::rangeChosen, this, &f::showRange);
    ranges_ = new RangeActions(*this, shownRange, [this] { finishEdits(); });
    connect(ranges_, &RangeActions::rangeChosen, this, &f::showRange);
    menKS->addSeparator();
    ranges_->appendTo(*menKS);
}

void f::showRange(const TimeRange& range) {
    date_->setRange(range);
    LoadData();
}

/// Tells the overlay what it reads. Directions have their points of the compass.
void f::nameSeries() {
    const ChannelInfo& info = station_.ChannelTable.at(selChan->channel());
    overlay_->setSeries({info.Name, info.Unit, info.Mode == MODE_WIND_DIRECTION}, {});
}

} // namespace kelvrum
