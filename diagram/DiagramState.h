// The state of the diagram control: properties, polar lists and the use count into the SeriesTable.
// It knows no window; PolarSys adds one.
#pragma once

#include "diagram/SeriesTable.h"
#include "drawing/Colour.h"
#include "drawing/Font.h"
#include "util/DateTime.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// What DiagTyp selects. Any other number draws nothing.
enum DiagramKind : std::int32_t {
    KIND_LINE = 0,
    KIND_POLAR = 1,
    KIND_PRECIPITATION = 2,
    KIND_DIRECTION = 3,
    KIND_LINE_4 = 4, // as 0
};

/// Unit of the angles that cross the interface (Bogenmass).
enum AngleUnit : std::int32_t { UNIT_RADIANS = 0, UNIT_DEGREES = 1, UNIT_GON = 2 };

/// Y1Low and Y1High both set to this: the left range follows the data.
inline constexpr double AUTOMATIC_RANGE = 100000005;
/// Y2Low and Y2High both set to this: the right range follows the data.
inline constexpr double AUTOMATIC_RIGHT_RANGE = -1;

inline constexpr double TWO_PI = 6.28318530717959;
inline constexpr double DEGREES_TO_RADIANS = 0.0174532925199433; // pi / 180
inline constexpr double RADIANS_TO_DEGREES = 57.2957795130823;
inline constexpr double GON_TO_RADIANS = 0.015707963267949; // pi / 200
inline constexpr double RADIANS_TO_GON = 63.6619772367581;

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
class DiagramState {
  public:
    DiagramState() = default;
    DiagramState(const DiagramState&) = delete;
    DiagramState& operator=(const DiagramState&) = delete;
    virtual ~DiagramState() = default;

    /// All defaults, empty lists, the shared table back to 3 x 1.
    void initialise();

    // --- kind and polar grid ---
    [[nodiscard]] std::int32_t DiagTyp() const { return diagTyp_; }
    void setDiagTyp(std::int32_t kind);
    [[nodiscard]] std::int32_t Bogenmass() const { return bogenmass_; }
    void setBogenmass(std::int32_t unit);
    /// Screen angle of direction 0. Repaints at once.
    [[nodiscard]] double AngelOffset() const { return fromRadians(angelOffset_); }
    void setAngelOffset(double angle);
    /// The same in radians, whatever the unit of Bogenmass.
    [[nodiscard]] double angelOffsetRadians() const { return angelOffset_; }
    /// Number of rings and of direction classes, at least 1; less throws InvalidPropertyValue. Repaint.
    [[nodiscard]] std::int32_t LongRaster() const { return longRaster_; }
    void setLongRaster(std::int32_t rings);
    [[nodiscard]] std::int32_t RadRaster() const { return radRaster_; }
    void setRadRaster(std::int32_t classes);
    /// Inert on purpose: setting does nothing, reading gives no object.
    [[nodiscard]] const void* Xcenter() const { return nullptr; }
    void setXcenter(const void* /*ignored*/) {}
    [[nodiscard]] std::int32_t Ycenter() const { return ycenter_; }
    void setYcenter(std::int32_t y) { ycenter_ = y; }

    // --- axes ---
    [[nodiscard]] double Y1Low() const { return y1Low_; }
    void setY1Low(double value);
    [[nodiscard]] double Y1High() const { return y1High_; }
    void setY1High(double value);
    /// Smallest height of the automatic left range. Kept quirk: setting it marks "Y1Low" as changed, and
    /// reading it copies the stored value into Y1Low and yields 0. The drawing takes storedY1MinLow.
    double Y1MinLow();
    void setY1MinLow(double value);
    [[nodiscard]] double storedY1MinLow() const { return y1MinLow_; }
    [[nodiscard]] double Y2Low() const { return y2Low_; }
    void setY2Low(double value);
    [[nodiscard]] double Y2High() const { return y2High_; }
    void setY2High(double value);
    [[nodiscard]] DateTime XLow() const { return xLow_; }
    void setXLow(DateTime value);
    [[nodiscard]] DateTime XHigh() const { return xHigh_; }
    void setXHigh(DateTime value);

    // --- lines ---
    [[nodiscard]] bool showMittel() const { return showMittel_; }
    void setShowMittel(bool show) { showMittel_ = show; }
    /// Auxiliary lines on the left scale; 0 = none.
    [[nodiscard]] double Hilfslinie1() const { return hilfslinie1_; }
    void setHilfslinie1(double value) { hilfslinie1_ = value; }
    [[nodiscard]] double Hilfslinie2() const { return hilfslinie2_; }
    void setHilfslinie2(double value) { hilfslinie2_ = value; }

    // --- colours ---
    [[nodiscard]] Colour D1() const { return d1_; }
    void setD1(Colour colour);
    [[nodiscard]] Colour D2() const { return d2_; }
    void setD2(Colour colour);
    [[nodiscard]] Colour Xaxe() const { return xaxe_; }
    void setXaxe(Colour colour);
    [[nodiscard]] Colour Y1axe() const { return y1axe_; }
    void setY1axe(Colour colour);
    [[nodiscard]] Colour Y2axe() const { return y2axe_; }
    void setY2axe(Colour colour);
    [[nodiscard]] Colour BgCol() const { return bgCol_; }
    void setBgCol(Colour colour);

    // --- texts ---
    [[nodiscard]] const std::string& Einheit() const { return einheit_; }
    void setEinheit(std::string_view text) { einheit_ = text; }
    [[nodiscard]] const std::string& AchseText() const { return achseText_; }
    void setAchseText(std::string_view text) { achseText_ = text; }
    [[nodiscard]] const std::string& HeadLine() const { return headLine_; }
    void setHeadLine(std::string_view text) { headLine_ = text; }
    [[nodiscard]] const std::string& HeadLine2() const { return headLine2_; }
    void setHeadLine2(std::string_view text) { headLine2_ = text; }
    [[nodiscard]] const std::string& Fussnote() const { return fussnote_; }
    void setFussnote(std::string_view text) { fussnote_ = text; }
    [[nodiscard]] const std::string& RichtungRein() const { return richtungRein_; }
    void setRichtungRein(std::string_view text) { richtungRein_ = text; }
    [[nodiscard]] const std::string& RichtungRaus() const { return richtungRaus_; }
    void setRichtungRaus(std::string_view text) { richtungRaus_ = text; }
    [[nodiscard]] const Font& SkalaFont() const { return mFont_; }
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
    [[nodiscard]] const std::vector<double>& speedList() const { return speedList_; }
    [[nodiscard]] const std::vector<double>& directionList() const { return directionList_; }
    [[nodiscard]] std::int32_t sampleCount() const { return listCount_; }

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
    /// Appends a column to the shared table, or sets column `Index`, which must exist.
    void AddData(DateTime Zeit, double Y1, std::optional<double> Y2 = {},
                 std::optional<std::int32_t> Index = {});
    /// Appends a sample to the polar lists, or sets element `Index`, which must exist. Requests a repaint.
    void AddItem(double Geschwindigkeit, std::optional<double> Richtung = {},
                 std::optional<std::int32_t> Index = {});

    /// Folds an angle in radians into [0, 2 pi). An angle already there comes back unchanged; a NaN and the
    /// infinities give 0, as do tiny negative angles.
    static double NormWinkel(double angle);

  protected:
    // What only a control with a window can do.
    virtual void requestRepaint() {}
    virtual void repaintNow() {}
    virtual void markChanged(std::string_view /*key*/) {}
    virtual void backgroundChanged() {}
    [[nodiscard]] virtual bool enabledState() const { return enabled_; }
    virtual void applyEnabled(bool enabled) { enabled_ = enabled; }

  private:
    friend class SavedProperties;

    /// From and to the unit of Bogenmass. An unknown unit converts nothing: toRadians gives nothing,
    /// fromRadians 0.
    [[nodiscard]] std::optional<double> toRadians(double angle) const;
    [[nodiscard]] double fromRadians(double angle) const;
    void emptyLists();

    std::int32_t diagTyp_ = KIND_LINE;
    std::int32_t bogenmass_ = UNIT_RADIANS;
    double angelOffset_ = -1.5707963267949; // radians: direction 0 points up
    std::int32_t longRaster_ = 10;
    std::int32_t radRaster_ = 12;
    std::int32_t ycenter_ = 0;
    double y1Low_ = 0;
    double y1High_ = 100;
    double y1MinLow_ = 0;
    double y2Low_ = 0;
    double y2High_ = 100;
    DateTime xLow_ = 37257;  // 2002-01-01
    DateTime xHigh_ = 37258; // 2002-01-02
    bool showMittel_ = false;
    double hilfslinie1_ = 0;
    double hilfslinie2_ = 0;
    Colour d1_ = RED;
    Colour d2_ = BLUE;
    Colour xaxe_ = BLACK;
    Colour y1axe_ = RED;
    Colour y2axe_ = BLUE;
    Colour bgCol_ = WHITE;
    std::string einheit_;
    std::string achseText_;
    std::string headLine_;
    std::string headLine2_;
    std::string fussnote_;
    std::string richtungRein_;
    std::string richtungRaus_;
    Font mFont_;
    bool enabled_ = true;

    std::vector<double> speedList_ = {0};
    std::vector<double> directionList_ = {0}; // radians
    std::int32_t listCount_ = 0;
    std::int32_t listIndex_ = -1;
    double columnInterval_ = 0;
    std::int32_t dataCount_ = 0;
    std::int32_t dataIndex_ = -1;
};

} // namespace kelvrum
