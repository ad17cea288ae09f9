// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the picture: what the overlay, the actions of the range and the diagram's input do to the window.
#include "app/ChannelChoice.h"
#include "app/DateFrame.h"
#include "app/DiagramInput.h"
#include "app/IntervalFrame.h"
#include "app/KindMenu.h"
#include "app/ListView.h"
#include "app/RangeActions.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/f.h"
#include "data/RangeChoice.h"
#include "diagram/CopiedText.h"
#include "diagram/LineScale.h"
#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"
#include "util/BusyPointer.h"
#include "util/Pickers.h"
#include "util/VectorRegisters.h"

#include "config/ConfigForms.h"
#include <QAction>
#include <QCoreApplication>
#include <QTimer>
#include <algorithm>

namespace kelvrum {

void f::buildReading() {
    PolarSys& KS = view_->diagram();
    const auto shownRange = [this] { return range(); };
    overlay_ = new ReadoutOverlay(KS, environment_.texts);
    auto* input = new DiagramInput(
        KS, *overlay_, shownRange, [this] { return interval(); }, [this] { finishEdits(); });
    connect(input, &DiagramInput::rangeChosen, this, &f::showRange);
    ranges_ = new RangeActions(*this, shownRange, [this] { finishEdits(); });
    connect(ranges_, &RangeActions::rangeChosen, this, &f::showRange);
    connect(input, &DiagramInput::jumpWanted, this,
            [this](bool last) { jumpTo(last ? StoredEnd::last : StoredEnd::first); });
    connect(&KS, &PolarSys::drawn, this, &f::showHint);
    connect(&KS, &PolarSys::drawn, this, &f::showRose);

    for (const auto side : {DateFrame::Side::start, DateFrame::Side::end}) {
        connect(&date_->datePicker(side), &DatePicker::monthOpened, this, &f::wantMarks);
    }

    menKS->addSeparator();
    ranges_->appendTo(*menKS);
    const auto addJump = [this](const char* name, const char* caption, StoredEnd end) {
        QAction* action = menKS->addAction(QString::fromUtf8(caption));
        action->setObjectName(QString::fromUtf8(name));
        connect(action, &QAction::triggered, this, [this, end] { jumpTo(end); });
    };
    addJump("menErster", "&Erster Wert", StoredEnd::first);
    addJump("menLetzter", "Le&tzter Wert", StoredEnd::last);
    addSecond();
    addCopies();
    connect(input, &DiagramInput::copyWanted, this, &f::copyPicture);
}

void f::showRange(const TimeRange& range) {
    date_->setRange(range);
    LoadData();
}

ReadoutSeries f::seriesOf(std::int32_t channel) const {
    const ChannelInfo& info = station_.ChannelTable.at(channel);
    return {info.Name, info.Unit, info.Mode == MODE_WIND_DIRECTION};
}

/// Tells the views what they show. Directions have their points of the compass.
void f::nameSeries() {
    const ReadoutSeries series = seriesOf(selChan->channel());
    overlay_->setSeries(series, secondSeries());
    view_->list().setValueHeader(hasDayFiles(station_) ? QString()
                                                       : QString::fromStdString(valueHeader(series)));
}

bool f::isNewest(unsigned requests) const {
    return loader_.requests() == requests && !loader_.isLoading() && isVisible();
}

/// Brings the first or last stored value of the channel into view; the range keeps its length. A newer
/// request ends the search.
void f::jumpTo(StoredEnd end) {
    finishEdits();
    loader_.whenIdle(end == StoredEnd::first ? "menErster" : "menLetzter", [this, end] {
        const BusyPointer busy;
        const unsigned requests = loader_.requests();
        const StationConfig station = station_; // another project may be opened meanwhile
        const ReadingStep step = [this, requests] {
            QCoreApplication::processEvents();
            return isNewest(requests);
        };
        const auto found = findStored(station, selChan->channel(), end, openAndAnswer(), step);
        if (!found || !found->time) {
            return;
        }
        const DateTime value = *found->time;
        // One file is read: a range that began in the year before would end with that year.
        const DateTime earliest = station.Kind == ConfigKind::ini ? yearStart(value) : FIRST_DATE;
        showRange(end == StoredEnd::first ? rangeFrom(value, range(), interval())
                                          : rangeUpTo(value, range(), interval(), earliest));
    });
}

void f::noteView() {
    const PolarSys& KS = view_->diagram();
    const auto y1 = seriesInUse(KS.DataCount()).y1;
    const bool isRose = KS.DiagTyp() == KIND_POLAR;
    facts_ = {};
    facts_.range = range();
    facts_.dayFiles = hasDayFiles(station_);
    facts_.hasValues = isRose ? KS.sampleCount() > 0 : std::any_of(y1.begin(), y1.end(), isValidPoint);
    const bool isTold = optView->isDiagramChosen() && selChan->channel() != 0;
    isLookedUp_ = facts_.hasValues && isTold;
    if (!isLookedUp_ && isTold) {
        // After the view is shown; a newer request drops it.
        QTimer::singleShot(0, this, [this, requests = loader_.requests()] {
            if (isNewest(requests)) {
                loader_.whenIdle("hint", [this] { lookUpHint(); });
            }
        });
    }
}

/// Other waiting tasks run first; the lookup then starts again.
void f::lookUpHint() {
    const std::int32_t channel = selChan->channel();
    if (isLookedUp_ || !optView->isDiagramChosen() || channel == 0) {
        return;
    }
    const unsigned requests = loader_.requests();
    const StationConfig station = station_;
    const ReadingStep step = [this, requests] {
        QCoreApplication::processEvents();
        return isNewest(requests) && !loader_.hasWaiting();
    };
    ViewFacts facts = facts_;
    facts.hasFile = hasFile(station, channel);
    bool isComplete = step();
    if (isComplete && facts.hasFile && (facts.dayFiles || !cutAtNewYear(facts.range))) {
        const auto last = findStored(station, channel, StoredEnd::last, openAndAnswer(), step);
        isComplete = last.has_value();
        facts.lastStored = last ? last->time : std::nullopt;
    }
    if (!isNewest(requests)) {
        return;
    }
    if (!isComplete) {
        loader_.whenIdle("hint", [this] { lookUpHint(); });
        return;
    }
    facts_ = facts;
    isLookedUp_ = true;
    showHint();
}

/// The hint belongs to the picture that is shown, and to its scale.
void f::showHint() {
    const PolarSys& KS = view_->diagram();
    ViewFacts facts = facts_;
    if (const auto& line = KS.lineShown()) {
        cleanVectorRegisters(); // the picture has just been drawn
        const auto y1 = seriesInUse(KS.DataCount()).y1;
        const double low = std::min(line->left.low, line->left.high);
        const double high = std::max(line->left.low, line->left.high);
        facts.allOutside = KS.DataCount() > 0 && std::none_of(y1.begin(), y1.end(), [&](double v) {
                               return isValidPoint(v) && v >= low && v <= high;
                           });
    }
    overlay_->setHint(isLookedUp_ ? QString::fromStdString(viewHint(facts, environment_.texts)) : QString());
}

RoseText f::roseShown(const TimeRange& range, std::int64_t intervals, std::int64_t calms) const {
    return roseText(shownTime(range.from), shownTime(range.to), interval_->caption().toStdString(), intervals,
                    calms);
}

void f::showRose() {
    const auto& rose = view_->diagram().polarShown();
    overlay_->setNotes(rose ? noteForms(roseShown(facts_.range, rose->samples, rose->classes.calm))
                            : std::vector<std::vector<std::string>>());
}

} // namespace kelvrum
