// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/ReadoutOverlay.h"

#include "diagram/AccessibleDiagram.h"
#include "diagram/PolarSys.h"

#include <QEvent>
#include <QLabel>
#include <algorithm>
#include <cmath>
#include <utility>

namespace kelvrum {

namespace {

constexpr int POINTER_PAUSE = 300; // milliseconds until a value under the pointer is reported

} // namespace

ReadoutOverlay::ReadoutOverlay(PolarSys& diagram, LocaleTexts texts)
    : QWidget(&diagram)
    , diagram_(diagram)
    , texts_(std::move(texts))
    , hint_(new QLabel(this))
    , notes_(new QLabel(this)) {
    setObjectName(QStringLiteral("overlay"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hint_->setObjectName(QStringLiteral("hint"));
    hint_->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    hint_->setWordWrap(true);                               // one line where the plot is wide enough
    hint_->setStyleSheet(QStringLiteral("color: #606060")); // the picture is white in every palette
    hint_->hide();
    notes_->setObjectName(QStringLiteral("notes"));
    notes_->setTextFormat(Qt::PlainText);
    notes_->setStyleSheet(QStringLiteral("color: black")); // the picture is white in every palette
    notes_->hide();
    pause_.setSingleShot(true);
    pause_.setInterval(POINTER_PAUSE);
    connect(&pause_, &QTimer::timeout, this, &ReadoutOverlay::report);
    connect(&diagram, &PolarSys::drawn, this, &ReadoutOverlay::pictureDrawn);
    diagram.installEventFilter(this);
    setGeometry(diagram.rect());
    reportReadouts(diagram, *this);
    show();
}

bool ReadoutOverlay::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &diagram_ && event->type() == QEvent::Resize) {
        setGeometry(diagram_.rect());
    }
    return QWidget::eventFilter(watched, event);
}

void ReadoutOverlay::setSeries(ReadoutSeries first, std::optional<ReadoutSeries> second) {
    first_ = std::move(first);
    second_ = std::move(second);
}

// --- the picture that is read ---

bool ReadoutOverlay::hasPlot() const {
    const auto& line = diagram_.lineShown();
    return line && line->plot.hasTimeScale() && line->plot.width() > 0 && line->plot.height() > 0;
}

void ReadoutOverlay::keepSeries() {
    if (isKept_ || isLost_) {
        return; // a load after one that was given up: the table is no longer that of the picture
    }
    if (isRead_ || readout_ || pointer_ || mark_) {
        const Series series = seriesInUse(diagram_.DataCount());
        kept_ = {std::vector<double>(series.times.begin(), series.times.end()),
                 std::vector<double>(series.y1.begin(), series.y1.end()),
                 std::vector<double>(series.y2.begin(), series.y2.end())};
        reader_ = SeriesReader({kept_[0], kept_[1], kept_[2]}, diagram_.XLow(), diagram_.columnInterval());
        isRead_ = true;
        isKept_ = true;
    } else {
        isLost_ = true; // what the pointer finds now is outdated
    }
}

const SeriesReader& ReadoutOverlay::reader() {
    const Series live = seriesInUse(diagram_.DataCount());
    const bool moved =
        !isKept_ && (live.times.data() != read_.times.data() || live.times.size() != read_.times.size());
    if (!isRead_ || moved) {
        read_ = live;
        reader_ = SeriesReader(live, diagram_.XLow(), diagram_.columnInterval());
        isRead_ = true;
    }
    return reader_;
}

/// Another picture: the readout stays where its time has a value in it.
void ReadoutOverlay::pictureDrawn() {
    isRead_ = false;
    isKept_ = false;
    isLost_ = false;
    kept_ = {};
    placeHint();
    if (band_) {
        update();
    }
    if (!hasPlot()) {
        mark_.reset();
        if (!diagram_.polarShown()) {
            clearReadout();
        }
    } else if (mark_) {
        mark_ = reader().at(mark_->time, 0);
    }
    if (pointer_) {
        pointAt(QPointF(*pointer_));
    } else if (sector_ && diagram_.polarShown()) {
        readSector(*sector_);
    } else if (readout_ && hasPlot()) {
        const auto value = readout_->value ? reader().at(readout_->value->time, 0) : std::nullopt;
        value ? read(value, value->time) : clearReadout();
    } else {
        clearReadout();
    }
}

// --- pointer ---

Dot ReadoutOverlay::deviceDot(const QPointF& place) const {
    return {static_cast<int>(std::floor(place.x() * ratio())),
            static_cast<int>(std::floor(place.y() * ratio()))};
}

bool ReadoutOverlay::isInPlot(const QPointF& place) const {
    if (!hasPlot()) {
        return false;
    }
    return holds(diagram_.lineShown()->plot.clip(), deviceDot(place));
}

std::optional<DateTime> ReadoutOverlay::timeAt(const QPointF& place) const {
    if (!hasPlot()) {
        return std::nullopt;
    }
    const PlotArea& plot = diagram_.lineShown()->plot;
    return kelvrum::timeAt(plot, std::clamp<double>(deviceDot(place).x, plot.left, plot.right));
}

void ReadoutOverlay::pointAt(const QPointF& place) {
    if (diagram_.polarShown()) {
        const PolarDrawing& rose = *diagram_.polarShown();
        const Dot dot = deviceDot(place);
        const auto sector = sectorAt(rose.geometry, rose.classes, rose.samples, rose.startAngle, dot);
        if (!sector) {
            pointerLeft();
            return;
        }
        pointer_ = place;
        sectorPlace_ = dot;
        readSector(sector->index);
        return;
    }
    if (!isInPlot(place)) {
        pointerLeft();
        return;
    }
    pointer_ = place;
    if (isLost_) {
        return; // read when the next picture is drawn
    }
    const DateTime t = *timeAt(place);
    const double halfDot = 0.5 / diagram_.lineShown()->plot.dotsPerDay;
    read(reader().at(t, halfDot), t);
}

void ReadoutOverlay::pointerLeft() {
    if (pointer_) {
        clearReadout();
    }
}

// --- keys ---

void ReadoutOverlay::step(int direction) {
    if (isLost_) {
        return; // what the pointer is over is read when the next picture is drawn
    }
    pointer_.reset();
    if (diagram_.polarShown()) {
        const auto sectors = static_cast<std::int64_t>(diagram_.polarShown()->classes.counts.size()) - 1;
        if (sectors > 0) {
            const std::int64_t from = sector_ ? *sector_ + direction : 0;
            readSector((from + sectors) % sectors);
        }
        return;
    }
    if (!readout_) {
        direction > 0 ? toFirst() : toLast();
        return;
    }
    readIfAny(direction > 0 ? reader().after(readTime_) : reader().before(readTime_));
}

void ReadoutOverlay::stepDay(int direction) {
    if (hasPlot() && readout_ && !isLost_) {
        pointer_.reset();
        readIfAny(reader().nearest(readTime_ + direction));
    } else if (hasPlot()) {
        step(direction);
    }
}

void ReadoutOverlay::toFirst() {
    if (hasPlot() && !isLost_) {
        pointer_.reset();
        readIfAny(reader().first());
    }
}

void ReadoutOverlay::toLast() {
    if (hasPlot() && !isLost_) {
        pointer_.reset();
        readIfAny(reader().last());
    }
}

void ReadoutOverlay::toggleMark() {
    if (!readout_ || !readout_->value) {
        return;
    }
    const bool isMarked = mark_ && mark_->column == readout_->value->column;
    mark_ = isMarked ? std::nullopt : readout_->value;
    read(readout_->value, readTime_);
}

bool ReadoutOverlay::dismiss() {
    const bool wasShown = readout_ || sector_ || mark_;
    mark_.reset();
    clearReadout();
    return wasShown;
}

// --- what is read out ---

void ReadoutOverlay::readIfAny(const std::optional<ReadValue>& value) {
    if (value) {
        read(value, value->time);
    }
}

void ReadoutOverlay::read(const std::optional<ReadValue>& value, DateTime t) {
    if (!hasPlot()) {
        return;
    }
    Readout next{value, {}, mark_};
    if (value) {
        next.spread = reader().spreadAround(value->column, diagram_.lineShown()->plot);
    }
    readTime_ = t;
    sector_.reset();
    readout_ = next;
    tell(readoutLines(*readout_, first_, second_, texts_));
}

void ReadoutOverlay::readSector(std::int64_t index) {
    const PolarDrawing& rose = *diagram_.polarShown();
    const auto sector = roseSector(rose.classes, rose.samples, index);
    if (!sector) {
        clearReadout();
        return;
    }
    readout_.reset();
    sector_ = index;
    if (!pointer_) { // the field is where the sector ends
        const double width = TWO_PI / static_cast<double>(rose.classes.counts.size() - 1);
        const double angle = rose.startAngle + static_cast<double>(index) * width;
        const PolarGeometry& g = rose.geometry;
        sectorPlace_ = {g.xCentre + static_cast<int>(g.dx(g.rings) * std::cos(angle)),
                        g.yCentre + static_cast<int>(g.dy(g.rings) * std::sin(angle))};
    }
    tell(sectorLines(*sector, texts_));
}

void ReadoutOverlay::tell(std::vector<std::string> lines) {
    const bool isNew = lines != lines_;
    lines_ = std::move(lines);
    layOut();
    if (isNew && pointer_) {
        pause_.start();
    } else if (isNew) {
        pause_.stop();
        report();
    }
}

void ReadoutOverlay::report() {
    isReported_ = !lines_.empty();
    Q_EMIT readOut();
}

void ReadoutOverlay::clearReadout() {
    pointer_.reset();
    readout_.reset();
    sector_.reset();
    pause_.stop();
    if (!lines_.empty()) {
        lines_.clear();
        layOut();
        if (isReported_) {
            report();
        }
    } else {
        layOut(); // a mark alone may go or stay
    }
}

QString ReadoutOverlay::text() const {
    QString text;
    for (const std::string& line : lines_) {
        text += (text.isEmpty() ? QString() : QStringLiteral(", ")) + QString::fromStdString(line);
    }
    return text;
}

std::optional<DateTime> ReadoutOverlay::readTime() const {
    return readout_ && readout_->value ? std::optional(readout_->value->time) : std::nullopt;
}

std::optional<double> ReadoutOverlay::readValue() const {
    return readout_ && readout_->value ? readout_->value->y1 : std::nullopt;
}

// --- band and hint ---

void ReadoutOverlay::setBand(const std::optional<TimeRange>& band) {
    const bool same = band_.has_value() == band.has_value() &&
                      (!band || (band_->from == band->from && band_->to == band->to));
    if (!same) {
        band_ = band;
        update();
    }
}

} // namespace kelvrum
