#include "diagram/DiagramState.h"

#include "diagram/SavedProperties.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvrum {

namespace {

constexpr double MANY_TURNS = 100 * TWO_PI;
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
    SavedProperties::defaults(*this);
    showMittel_ = false;
    hilfslinie1_ = 0;
    hilfslinie2_ = 0;
    ycenter_ = 0;
    y1MinLow_ = 0;
    mFont_ = {};
    for (std::string* text :
         {&einheit_, &achseText_, &headLine_, &headLine2_, &fussnote_, &richtungRein_, &richtungRaus_}) {
        text->clear();
    }
    emptyLists();
}

void DiagramState::setDiagTyp(std::int32_t kind) {
    diagTyp_ = kind;
    markChanged("DiagTyp");
}

void DiagramState::setBogenmass(std::int32_t unit) {
    bogenmass_ = unit;
    markChanged("Bogenmass");
}

void DiagramState::setAngelOffset(double angle) {
    if (const auto radians = toRadians(angle)) {
        angelOffset_ = *radians;
        markChanged("AngelOffset");
        repaintNow();
    }
}

void DiagramState::setLongRaster(std::int32_t rings) {
    if (rings < 1) {
        throw InvalidPropertyValue();
    }
    longRaster_ = rings;
    markChanged("LongRaster");
    requestRepaint();
}

void DiagramState::setRadRaster(std::int32_t classes) {
    if (classes < 1) {
        throw InvalidPropertyValue();
    }
    radRaster_ = classes;
    markChanged("RadRaster");
    requestRepaint();
}

void DiagramState::setY1Low(double value) {
    y1Low_ = value;
    markChanged("Y1Low");
}

void DiagramState::setY1High(double value) {
    y1High_ = value;
    markChanged("Y1High");
}

double DiagramState::Y1MinLow() {
    setY1Low(y1MinLow_); // the accessor is tied to Y1Low on purpose
    return 0;
}

void DiagramState::setY1MinLow(double value) {
    y1MinLow_ = value;
    markChanged("Y1Low"); // not "Y1MinLow", on purpose
}

void DiagramState::setY2Low(double value) {
    y2Low_ = value;
    markChanged("Y2Low");
}

void DiagramState::setY2High(double value) {
    y2High_ = value;
    markChanged("Y2High");
}

void DiagramState::setXLow(DateTime value) {
    xLow_ = value;
    markChanged("XLow");
}

void DiagramState::setXHigh(DateTime value) {
    xHigh_ = value;
    markChanged("XHigh");
}

void DiagramState::setD1(Colour colour) {
    d1_ = colour;
    markChanged("D1");
}

void DiagramState::setD2(Colour colour) {
    d2_ = colour;
    markChanged("D2");
}

void DiagramState::setXaxe(Colour colour) {
    xaxe_ = colour;
    markChanged("Xaxe");
}

void DiagramState::setY1axe(Colour colour) {
    y1axe_ = colour;
    markChanged("Y1axe");
}

void DiagramState::setY2axe(Colour colour) {
    y2axe_ = colour;
    markChanged("Y2axe");
}

void DiagramState::setBgCol(Colour colour) {
    bgCol_ = colour;
    markChanged("BgCol");
    backgroundChanged();
}

void DiagramState::setSkalaFont(const Font& font) {
    mFont_ = font;
    markChanged("SkalaFont");
}

void DiagramState::setEnabledState(bool enabled) {
    applyEnabled(enabled);
    markChanged("Enabled");
}

double DiagramState::speed(std::int16_t Index) const {
    requireIndex(Index, speedList_.size());
    return speedList_[static_cast<std::size_t>(Index)];
}

void DiagramState::setSpeed(std::int16_t Index, double value) {
    requireIndex(Index, speedList_.size());
    speedList_[static_cast<std::size_t>(Index)] = value;
}

double DiagramState::Direction(std::int16_t Index) const {
    requireIndex(Index, directionList_.size());
    return fromRadians(directionList_[static_cast<std::size_t>(Index)]);
}

void DiagramState::setDirection(std::int16_t Index, double angle) {
    requireIndex(Index, directionList_.size());
    if (const auto radians = toRadians(angle)) {
        directionList_[static_cast<std::size_t>(Index)] = *radians;
    }
}

std::int16_t DiagramState::ListCount() const { return narrow(listCount_); }

std::int16_t DiagramState::ListIndex() const { return narrow(listIndex_); }

void DiagramState::setListIndex(std::int16_t Index) {
    listIndex_ = Index;
    markChanged("ListIndex");
}

void DiagramState::emptyLists() {
    columnInterval_ = 0;
    speedList_.assign(1, 0);
    directionList_.assign(1, 0);
    listIndex_ = -1;
    listCount_ = 0;
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
        requireIndex(*Index, speedList_.size());
    } else {
        Index = listCount_++;
        speedList_.resize(static_cast<std::size_t>(listCount_));
        directionList_.resize(static_cast<std::size_t>(listCount_));
    }
    listIndex_ = *Index;
    const auto at = static_cast<std::size_t>(*Index);
    speedList_[at] = Geschwindigkeit;
    if (Richtung) {
        if (const auto radians = toRadians(*Richtung)) {
            directionList_[at] = *radians;
        }
    }
    requestRepaint();
}

double DiagramState::NormWinkel(double angle) {
    if (!std::isfinite(angle)) {
        return 0;
    }
    if (std::fabs(angle) > MANY_TURNS) {
        angle = std::fmod(angle, TWO_PI); // the loops below must end at once
    }
    while (angle >= TWO_PI) {
        angle -= TWO_PI;
    }
    while (angle < 0) {
        angle += TWO_PI;
    }
    return angle < TWO_PI ? angle : 0; // a tiny negative angle rounds up to the full turn
}

std::optional<double> DiagramState::toRadians(double angle) const {
    switch (bogenmass_) {
    case UNIT_RADIANS:
        return angle;
    case UNIT_DEGREES:
        return angle * DEGREES_TO_RADIANS;
    case UNIT_GON:
        return angle * GON_TO_RADIANS;
    default:
        return std::nullopt;
    }
}

double DiagramState::fromRadians(double angle) const {
    switch (bogenmass_) {
    case UNIT_RADIANS:
        return angle;
    case UNIT_DEGREES:
        return angle * RADIANS_TO_DEGREES;
    case UNIT_GON:
        return angle * RADIANS_TO_GON;
    default:
        return 0;
    }
}

} // namespace kelvrum
