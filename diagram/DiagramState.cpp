// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/DiagramState.h"

#include <algorithm>
#include <limits>

namespace kelvrum {

namespace {

constexpr std::int64_t LOWEST_INDEX = std::numeric_limits<std::int32_t>::min();

void requireIndex(std::int64_t index, std::size_t size) {
    if (index < 0 || static_cast<std::uint64_t>(index) >= size) {
        throw std::out_of_range("Index außerhalb des gültigen Bereichs");
    }
}

std::int16_t narrow(std::int32_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
        throw std::overflow_error("Überlauf");
    }
    return static_cast<std::int16_t>(value);
}

} // namespace

void DiagramState::initialise() {
    setProperties({});
    emptyLists();
}

DiagramProperties DiagramState::properties() const {
    DiagramProperties properties = properties_;
    properties.Enabled = enabledState();
    return properties;
}

void DiagramState::setProperties(const DiagramProperties& properties) {
    properties_ = properties;
    applyEnabled(properties.Enabled);
    backgroundChanged();
}

Series DiagramState::series() const {
    Series series = seriesInUse(dataCount_);
    series.interval = columnInterval_;
    return series;
}

void DiagramState::setDiagTyp(std::int32_t kind) {
    properties_.DiagTyp = kind;
    markChanged("DiagTyp");
}

void DiagramState::setBogenmass(std::int32_t unit) {
    properties_.Bogenmass = unit;
    markChanged("Bogenmass");
}

void DiagramState::setAngelOffset(double angle) {
    if (const auto radians = toRadians(angle, Bogenmass())) {
        properties_.AngelOffset = *radians;
        markChanged("AngelOffset");
        repaintNow();
    }
}

void DiagramState::setLongRaster(std::int32_t rings) {
    if (rings < 1) {
        throw InvalidPropertyValue();
    }
    properties_.LongRaster = rings;
    markChanged("LongRaster");
    requestRepaint();
}

void DiagramState::setRadRaster(std::int32_t classes) {
    if (classes < 1) {
        throw InvalidPropertyValue();
    }
    properties_.RadRaster = classes;
    markChanged("RadRaster");
    requestRepaint();
}

void DiagramState::setY1Low(double value) {
    properties_.Y1Low = value;
    markChanged("Y1Low");
}

void DiagramState::setY1High(double value) {
    properties_.Y1High = value;
    markChanged("Y1High");
}

double DiagramState::Y1MinLow() {
    setY1Low(properties_.Y1MinLow); // the accessor is tied to Y1Low on purpose
    return 0;
}

void DiagramState::setY1MinLow(double value) {
    properties_.Y1MinLow = value;
    markChanged("Y1Low"); // not "Y1MinLow", on purpose
}

void DiagramState::setY2Low(double value) {
    properties_.Y2Low = value;
    markChanged("Y2Low");
}

void DiagramState::setY2High(double value) {
    properties_.Y2High = value;
    markChanged("Y2High");
}

void DiagramState::setXLow(DateTime value) {
    properties_.XLow = value;
    markChanged("XLow");
}

void DiagramState::setXHigh(DateTime value) {
    properties_.XHigh = value;
    markChanged("XHigh");
}

void DiagramState::setD1(Colour colour) {
    properties_.D1 = colour;
    markChanged("D1");
}

void DiagramState::setD2(Colour colour) {
    properties_.D2 = colour;
    markChanged("D2");
}

void DiagramState::setXaxe(Colour colour) {
    properties_.Xaxe = colour;
    markChanged("Xaxe");
}

void DiagramState::setY1axe(Colour colour) {
    properties_.Y1axe = colour;
    markChanged("Y1axe");
}

void DiagramState::setY2axe(Colour colour) {
    properties_.Y2axe = colour;
    markChanged("Y2axe");
}

void DiagramState::setBgCol(Colour colour) {
    properties_.BgCol = colour;
    markChanged("BgCol");
    backgroundChanged();
}

void DiagramState::setSkalaFont(const Font& font) {
    properties_.SkalaFont = font;
    markChanged("SkalaFont");
}

void DiagramState::setEnabledState(bool enabled) {
    applyEnabled(enabled);
    markChanged("Enabled");
}

double DiagramState::speed(std::int16_t Index) const {
    requireIndex(Index, samples_.speed.size());
    return samples_.speed[static_cast<std::size_t>(Index)];
}

void DiagramState::setSpeed(std::int16_t Index, double value) {
    requireIndex(Index, samples_.speed.size());
    samples_.speed[static_cast<std::size_t>(Index)] = value;
}

double DiagramState::Direction(std::int16_t Index) const {
    requireIndex(Index, samples_.direction.size());
    return fromRadians(samples_.direction[static_cast<std::size_t>(Index)], Bogenmass());
}

void DiagramState::setDirection(std::int16_t Index, double angle) {
    requireIndex(Index, samples_.direction.size());
    if (const auto radians = toRadians(angle, Bogenmass())) {
        samples_.direction[static_cast<std::size_t>(Index)] = *radians;
    }
}

std::int16_t DiagramState::ListCount() const { return narrow(samples_.count); }

std::int16_t DiagramState::ListIndex() const { return narrow(samples_.last); }

void DiagramState::setListIndex(std::int16_t Index) {
    samples_.last = Index;
    markChanged("ListIndex");
}

void DiagramState::emptyLists() {
    columnInterval_ = 0;
    samples_.speed = std::vector<double>(1); // the memory of a year of winds is released
    samples_.direction = std::vector<double>(1);
    samples_.last = -1;
    samples_.count = 0;
    seriesTable().clear();
    dataIndex_ = -1;
    dataCount_ = 0;
}

void DiagramState::Clear() {
    emptyLists();
    requestRepaint();
}

void DiagramState::SetArray(std::int32_t DataCount) {
    dataCount_ = DataCount;
    columnInterval_ = 0; // the old one was of other columns
    dataIndex_ = static_cast<std::int32_t>(std::max<std::int64_t>(std::int64_t{DataCount} - 1, LOWEST_INDEX));
}

void DiagramState::AddData(DateTime Zeit, double Y1, std::optional<double> Y2,
                           std::optional<std::int32_t> Index) {
    SeriesTable& table = seriesTable();
    if (Index) {
        requireIndex(*Index, table.columns());
    } else {
        requireIndex(dataCount_, std::numeric_limits<std::int32_t>::max());
        Index = dataCount_++;
        table.resize(static_cast<std::size_t>(dataCount_));
    }
    dataIndex_ = *Index;
    table.set(static_cast<std::size_t>(*Index), Zeit, Y1, Y2.value_or(NoValue));
}

void DiagramState::AddItem(double Geschwindigkeit, std::optional<double> Richtung,
                           std::optional<std::int32_t> Index) {
    if (Index) {
        requireIndex(*Index, samples_.speed.size());
    } else {
        Index = samples_.count++;
        samples_.speed.resize(static_cast<std::size_t>(samples_.count));
        samples_.direction.resize(static_cast<std::size_t>(samples_.count));
    }
    samples_.last = *Index;
    const auto at = static_cast<std::size_t>(*Index);
    samples_.speed[at] = Geschwindigkeit;
    if (Richtung) {
        if (const auto radians = toRadians(*Richtung, Bogenmass())) {
            samples_.direction[at] = *radians;
        }
    }
    requestRepaint();
}

void DiagramState::setTexts(const DiagramTexts& texts) {
    setHeadLine(texts.headLine);
    setHeadLine2(texts.headLine2);
    setEinheit(texts.unit);
    if (texts.auxiliaryLines) {
        setHilfslinie1(texts.auxiliaryLines->first);
        setHilfslinie2(texts.auxiliaryLines->second);
    }
}

void DiagramState::startSeries(const DiagramTexts& texts) {
    SetArray(0); // a drawing while the table is being filled shows no half curve
    setTexts(texts);
}

void DiagramState::showSeries(std::size_t columns, double interval) {
    SetArray(static_cast<std::int32_t>(columns));
    setColumnInterval(interval);
}

void DiagramState::startSamples(const DiagramTexts& texts) {
    Clear();
    setTexts(texts);
}

void DiagramState::addSamples(std::span<const PolarSample> samples) {
    const std::int32_t unit = Bogenmass();
    setBogenmass(UNIT_DEGREES);
    for (const PolarSample& sample : samples) {
        AddItem(sample.speed, sample.degrees);
    }
    setBogenmass(unit);
}

} // namespace kelvrum
