// SPDX-License-Identifier: GPL-3.0-or-later
// Loading: from the chosen channel, range and interval to list rows or a diagram.
#include "app/ChannelChoice.h"
#include "app/DataListModel.h"
#include "app/IntervalFrame.h"
#include "app/LimitFrame.h"
#include "app/ListView.h"
#include "app/RangeActions.h"
#include "app/SecondChannel.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/f.h"
#include "config/ConfigForms.h"
#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"
#include "util/BusyPointer.h"
#include "util/Validity.h"
#include "util/VectorRegisters.h"

#include <QCoreApplication>
#include <QLabel>
#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace kelvrum {

namespace {

/// The rows of a list, at most those of a year.
std::size_t rowsExpected(const ReadRequest& request) {
    constexpr double YEAR = 366; // days
    const double days = std::clamp(request.range.to - request.range.from, 0.0, YEAR);
    return static_cast<std::size_t>(days * MINUTES_PER_DAY / std::max(request.interval, 1)) + 1;
}

/// While this lives, the list keeps on the screen what it showed.
class KeptPicture {
  public:
    explicit KeptPicture(ListView& list)
        : list_(list) {
        list_.keepPicture();
    }
    KeptPicture(const KeptPicture&) = delete;
    KeptPicture& operator=(const KeptPicture&) = delete;
    ~KeptPicture() { list_.releasePicture(); }

  private:
    ListView& list_;
};

} // namespace

/// Opens the files of a reading. On a slow share that alone takes long, so events run after it; the reading
/// reacts to them in its next step.
FileOpener f::openAndAnswer() {
    return [this](std::string_view path) {
        auto file = environment_.open(path);
        QCoreApplication::processEvents();
        cleanVectorRegisters(); // the file's values are computed with next
        return file;
    };
}

void f::LoadData() { loader_.load(); }

/// One load, from the controls to the view. Overtaken, it ends before it shows anything.
void f::loadView(const ReadingStep& step) {
    const BusyPointer busy;
    const KeptPicture list(view_->list());
    Label8->show();
    overlay_->keepSeries();
    second_->hide();
    const std::int32_t channel = selChan->channel();
    if (channel == 0) {
        showNothing();
    } else {
        showChannel(channel);
        if (!readViews({channel, {}, range(), interval(), secondShown()}, step) || loader_.isOvertaken()) {
            return;
        }
        if (const auto second = secondSeries()) {
            second_->show(seriesOf(channel), *second);
        }
    }
    checkMenu(true);
    nameSeries();
    noteView();
    SetXHigh();
    ranges_->shown(range());
    describeView();
    Label8->hide();
}

/// Name and description of the diagram for screen readers. The figures of the description need a scan of the
/// whole series, so they are computed only while a screen reader is active.
void f::describeView() {
    PolarSys& KS = view_->diagram();
    KS.setAccessibleName(optView->isDiagramChosen()
                             ? QStringLiteral("Diagramm: ") + QString::fromStdString(KS.HeadLine())
                             : QStringLiteral("Diagramm")); // its headlines may be those of another channel
    if (!hasScreenReader_) {
        return;
    }
    KS.setAccessibleDescription(optView->isDiagramChosen()
                                    ? QString::fromStdString(summary())
                                    : QStringLiteral("Die Werte stehen in der Datenliste."));
}

void f::accessibilityActiveChanged(bool active) {
    hasScreenReader_ = active;
    describeView(); // what is shown already
}

/// Reads what the view shows. The hidden view keeps nothing of an older request. False when the
/// reading was given up.
bool f::readViews(const ReadRequest& request, const ReadingStep& step) {
    PolarSys& KS = view_->diagram();
    DataListModel& rows = view_->rows();
    rows.clear();
    if (hasDayFiles(station_)) {
        return reader_.readSeries(station_, request, diagramSettings(), KS, step) == ReadStatus::complete &&
               FillListVarn(request.range, step);
    }
    if (optView->isDiagramChosen()) {
        rows.releaseMemory();
    }
    if (optView->isDiagramChosen() && KS.DiagTyp() == KIND_POLAR) {
        return reader_.readPolar(station_, request, diagramSettings(), KS, step) == ReadStatus::complete;
    }
    if (optView->isDiagramChosen()) {
        return reader_.readSeries(station_, request, diagramSettings(), KS, step) == ReadStatus::complete;
    }
    KS.SetArray(0);
    rows.expect(rowsExpected(request));
    const auto showValues = [this](std::span<const DateTime> starts, std::span<const double> values) {
        showRows(starts, values);
    };
    const bool complete = reader_.readList(station_, request, showValues, step) == ReadStatus::complete;
    if (complete) {
        rows.show();
    }
    return complete;
}

/// The raw records of a binary station's day files, one row for each; false when the reading was given up.
bool f::FillListVarn(const TimeRange& shown, const ReadingStep& step) {
    // The rows fetch their values when they are painted: no events may run then.
    auto rows = DataReader(environment_.open).readDayList(station_, shown, step);
    if (!rows) {
        return false;
    }
    view_->rows().setDayRows(std::move(*rows));
    view_->rows().show();
    return true;
}

void f::showNothing() {
    PolarSys& KS = view_->diagram();
    channelShown_ = 0;
    setKind(KIND_LINE);
    view_->rows().clear();
    KS.Clear();
    KS.setHeadLine(station_.Title);
    KS.setHeadLine2(station_.Subtitle);
    KS.setEinheit("");
}

void f::ShowValue(DateTime MessZeit, double MessWert) {
    showRows(std::span(&MessZeit, 1), std::span(&MessWert, 1));
    view_->rows().show();
}

/// Lists the intervals that have a value; the view sees them with the model's next `show`.
void f::showRows(std::span<const DateTime> starts, std::span<const double> values) {
    const std::span<IntervalValue> listed = view_->rows().room(values.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < values.size(); ++i) { // copied without a branch for each
        listed[count] = {starts[i], values[i]};
        count += std::fabs(values[i]) < INVALID_VALUE ? 1 : 0;
    }
    view_->rows().added(count);
}

void f::SetXHigh() {
    PolarSys& KS = view_->diagram();
    const TimeRange shown = range();
    KS.setXLow(shown.from);
    KS.setXHigh(shown.to);
    if (isVisible()) { // else the first painting draws
        KS.Draw();
    }
}

/// A channel comes into view as the kind that was chosen for it, else as a line diagram, and its limits are
/// written into the boxes; a reload keeps what the user chose and typed.
void f::showChannel(std::int32_t channel) {
    if (channel == channelShown_) {
        return;
    }
    channelShown_ = channel;
    const auto chosen = kinds_.find(channel);
    setKind(chosen == kinds_.end() ? std::int32_t{KIND_LINE} : chosen->second);
    const ChannelInfo& info = station_.ChannelTable.at(channel);
    limits_->setLimits({info.Limit1, info.Limit2});
}

DiagramSettings f::diagramSettings() const {
    DiagramSettings settings;
    settings.intervalCaption = interval_->caption().toStdString();
    if (limits_->areLimitsShown()) {
        settings.auxiliaryLines = limits_->limits();
    }
    return settings;
}

} // namespace kelvrum
