// SPDX-License-Identifier: GPL-3.0-or-later
// The diagram control without its window, which PolarSys adds: the given properties with their conversions,
// errors and quirks as a face over values.
#pragma once

#include "diagram/Angles.h"
#include "diagram/DiagramFeed.h"
#include "diagram/DiagramProperties.h"
#include "diagram/PolarSamples.h"
#include "diagram/SeriesTable.h"
#include "util/DateTime.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// A property was given a value that it does not take; it keeps the one it had.
class InvalidPropertyValue : public std::runtime_error {
  public:
    static constexpr std::int32_t NUMBER = -2147217060; // 0x8004115C

    InvalidPropertyValue()
        : std::runtime_error("Ungültiger Eigenschaftswert") {}
    [[nodiscard]] std::int32_t number() const { return NUMBER; }
};

/// Getters bear the properties' names, setters "set" and the name (setEnabledState for Enabled). Angles cross
/// the interface in the unit of Bogenmass and are kept in radians.
class DiagramState : public DiagramFeed {
  public:
    DiagramState() = default;
    DiagramState(const DiagramState&) = delete;
    DiagramState& operator=(const DiagramState&) = delete;
    virtual ~DiagramState() = default;

    /// All defaults, empty lists, the shared table back to 3 x 1.
    void initialise();

    /// All properties. To borrow a control is to keep them and to set them again: nothing is marked or
    /// repainted.
    [[nodiscard]] DiagramProperties properties() const;
    void setProperties(const DiagramProperties& properties);
    [[nodiscard]] const PolarSamples& samples() const { return samples_; }
    /// The columns of the shared table that are in use.
    [[nodiscard]] Series series() const;

    // --- kind and polar grid ---
    [[nodiscard]] std::int32_t DiagTyp() const { return properties_.DiagTyp; }
    void setDiagTyp(std::int32_t kind);
    [[nodiscard]] std::int32_t Bogenmass() const { return properties_.Bogenmass; }
    void setBogenmass(std::int32_t unit);
    /// Screen angle of direction 0. Repaints at once.
    [[nodiscard]] double AngelOffset() const { return fromRadians(properties_.AngelOffset, Bogenmass()); }
    void setAngelOffset(double angle);
    /// Number of rings and of direction classes, at least 1; less throws InvalidPropertyValue. Repaint.
    [[nodiscard]] std::int32_t LongRaster() const { return properties_.LongRaster; }
    void setLongRaster(std::int32_t rings);
    [[nodiscard]] std::int32_t RadRaster() const { return properties_.RadRaster; }
    void setRadRaster(std::int32_t classes);
    /// Inert on purpose: setting does nothing, reading gives no object.
    [[nodiscard]] const void* Xcenter() const { return nullptr; }
    void setXcenter(const void* /*ignored*/) {}
    [[nodiscard]] std::int32_t Ycenter() const { return properties_.Ycenter; }
    void setYcenter(std::int32_t y) { properties_.Ycenter = y; }

    // --- axes ---
    [[nodiscard]] double Y1Low() const { return properties_.Y1Low; }
    void setY1Low(double value);
    [[nodiscard]] double Y1High() const { return properties_.Y1High; }
    void setY1High(double value);
    /// Smallest height of the automatic left range. Kept quirk: setting it marks "Y1Low" as changed, and
    /// reading it copies the stored value into Y1Low and yields 0. properties() has it as it is.
    double Y1MinLow();
    void setY1MinLow(double value);
    [[nodiscard]] double Y2Low() const { return properties_.Y2Low; }
    void setY2Low(double value);
    [[nodiscard]] double Y2High() const { return properties_.Y2High; }
    void setY2High(double value);
    [[nodiscard]] DateTime XLow() const { return properties_.XLow; }
    void setXLow(DateTime value);
    [[nodiscard]] DateTime XHigh() const { return properties_.XHigh; }
    void setXHigh(DateTime value);

    // --- lines ---
    [[nodiscard]] bool showMittel() const { return properties_.showMittel; }
    void setShowMittel(bool show) { properties_.showMittel = show; }
    /// Auxiliary lines on the left scale; 0 = none.
    [[nodiscard]] double Hilfslinie1() const { return properties_.Hilfslinie1; }
    void setHilfslinie1(double value) { properties_.Hilfslinie1 = value; }
    [[nodiscard]] double Hilfslinie2() const { return properties_.Hilfslinie2; }
    void setHilfslinie2(double value) { properties_.Hilfslinie2 = value; }

    // --- colours ---
    [[nodiscard]] Colour D1() const { return properties_.D1; }
    void setD1(Colour colour);
    [[nodiscard]] Colour D2() const { return properties_.D2; }
    void setD2(Colour colour);
    [[nodiscard]] Colour Xaxe() const { return properties_.Xaxe; }
    void setXaxe(Colour colour);
    [[nodiscard]] Colour Y1axe() const { return properties_.Y1axe; }
    void setY1axe(Colour colour);
    [[nodiscard]] Colour Y2axe() const { return properties_.Y2axe; }
    void setY2axe(Colour colour);
    [[nodiscard]] Colour BgCol() const { return properties_.BgCol; }
    void setBgCol(Colour colour);

    // --- texts ---
    [[nodiscard]] const std::string& Einheit() const { return properties_.Einheit; }
    void setEinheit(std::string_view text) { properties_.Einheit = text; }
    [[nodiscard]] const std::string& AchseText() const { return properties_.AchseText; }
    void setAchseText(std::string_view text) { properties_.AchseText = text; }
    [[nodiscard]] const std::string& HeadLine() const { return properties_.HeadLine; }
    void setHeadLine(std::string_view text) { properties_.HeadLine = text; }
    [[nodiscard]] const std::string& HeadLine2() const { return properties_.HeadLine2; }
    void setHeadLine2(std::string_view text) { properties_.HeadLine2 = text; }
    [[nodiscard]] const std::string& Fussnote() const { return properties_.Fussnote; }
    void setFussnote(std::string_view text) { properties_.Fussnote = text; }
    [[nodiscard]] const std::string& RichtungRein() const { return properties_.RichtungRein; }
    void setRichtungRein(std::string_view text) { properties_.RichtungRein = text; }
    [[nodiscard]] const std::string& RichtungRaus() const { return properties_.RichtungRaus; }
    void setRichtungRaus(std::string_view text) { properties_.RichtungRaus = text; }
    [[nodiscard]] const Font& SkalaFont() const { return properties_.SkalaFont; }
    void setSkalaFont(const Font& font);

    [[nodiscard]] bool Enabled() const { return enabledState(); }
    void setEnabledState(bool enabled);

    // --- polar lists ---
    // An index outside of the list throws std::out_of_range; nothing is written then.
    [[nodiscard]] double speed(std::int16_t Index) const;
    void setSpeed(std::int16_t Index, double value);
    [[nodiscard]] double Direction(std::int16_t Index) const;
    void setDirection(std::int16_t Index, double angle);
    /// Narrowed to 16 bits: beyond 32767 reading throws std::overflow_error.
    [[nodiscard]] std::int16_t ListCount() const;
    [[nodiscard]] std::int16_t ListIndex() const;
    void setListIndex(std::int16_t Index);
    /// The samples themselves for the drawing: magnitudes, and directions in radians.
    [[nodiscard]] const std::vector<double>& speedList() const { return samples_.speed; }
    [[nodiscard]] const std::vector<double>& directionList() const { return samples_.direction; }
    [[nodiscard]] std::int32_t sampleCount() const { return samples_.count; }

    // --- use of the shared table ---
    [[nodiscard]] std::int32_t DataCount() const { return dataCount_; }
    [[nodiscard]] std::int32_t DataIndex() const { return dataIndex_; }

    /// The interval of the columns in days, to be set after SetArray by callers that know it; 0: it follows
    /// from the columns.
    void setColumnInterval(double days) { columnInterval_ = days; }
    [[nodiscard]] double columnInterval() const { return columnInterval_; }

    /// Empties the polar lists and the shared table, then requests a repaint.
    void Clear();
    /// Sets how many columns of the shared table are valid; the caller has filled them.
    void SetArray(std::int32_t DataCount);
    /// Appends a column to the shared table, or sets column `Index`. Throws std::out_of_range when there is
    /// no such column; nothing is written then.
    void AddData(DateTime Zeit, double Y1, std::optional<double> Y2 = {},
                 std::optional<std::int32_t> Index = {});
    /// Appends a sample to the polar lists, or sets element `Index`. Throws std::out_of_range when there is
    /// no such element; nothing is written then. Requests a repaint.
    void AddItem(double Geschwindigkeit, std::optional<double> Richtung = {},
                 std::optional<std::int32_t> Index = {});

    // --- filled by a reading ---
    void startSeries(const DiagramTexts& texts) override;
    void showSeries(std::size_t columns, double interval) override;
    void startSamples(const DiagramTexts& texts) override;
    void addSamples(std::span<const PolarSample> samples) override;

    /// NormWinkel of Angles.h.
    static double NormWinkel(double angle) { return kelvrum::NormWinkel(angle); }

  protected:
    // What only a control with a window can do.
    virtual void requestRepaint() {}
    virtual void repaintNow() {}
    virtual void markChanged(std::string_view /*key*/) {}
    virtual void backgroundChanged() {}
    [[nodiscard]] virtual bool enabledState() const { return properties_.Enabled; }
    virtual void applyEnabled(bool enabled) { properties_.Enabled = enabled; }

  private:
    void emptyLists();
    void setTexts(const DiagramTexts& texts);

    DiagramProperties properties_;
    PolarSamples samples_;
    double columnInterval_ = 0;
    std::int32_t dataCount_ = 0;
    std::int32_t dataIndex_ = -1;
};

} // namespace kelvrum
