// A surface that keeps every primitive instead of drawing it.
#pragma once

#include "drawing/Surface.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum::testing {

/// A line as it was drawn, with the pen and the clip of that moment.
struct RecordedLine {
    Segment at;
    Colour pen = BLACK;
    std::optional<Box> clip;
};

struct RecordedBox {
    Box at;
    Colour colour = BLACK;
    std::optional<Box> clip;
};

struct RecordedText {
    Dot at;
    Extent extent;
    std::string text;
    Colour pen = BLACK;
    Font font;
    std::optional<Box> clip;
};

struct RecordedEllipse {
    Box at;
    Colour pen = BLACK;
    std::optional<Colour> fill;
};

struct RecordedPie {
    Box at;
    Dot from;
    Dot to;
    Colour pen = BLACK;
    Colour fill = BLACK;
};

/// Every character (code point) is 6 units wide, a bold one 7, and a line is 12 units high, whatever the
/// font.
class RecordingSurface final : public Surface {
  public:
    static constexpr int CHARACTER = 6;
    static constexpr int BOLD_CHARACTER = 7;
    static constexpr int LINE_HEIGHT = 12;

    explicit RecordingSurface(Extent size = {1000, 600}, double scale = 1)
        : size_(size)
        , scale_(scale) {}

    [[nodiscard]] Extent size() const override { return size_; }
    [[nodiscard]] double scale() const override { return scale_; }
    void clear(Colour background) override { backgrounds.push_back(background); }
    void setPen(Colour colour) override { pen_ = colour; }
    void setClip(std::optional<Box> box) override { clip_ = box; }
    void moveTo(Dot to) override { current_ = to; }
    void lineTo(Dot to) override;
    void lines(std::span<const Segment> segments) override;
    void fill(std::span<const Box> areas, Colour colour) override;
    void ellipse(const Box& box, std::optional<Colour> fill) override {
        ellipses.push_back({box, pen_, fill});
        order.emplace_back("ellipse");
    }
    void pie(const Box& box, Dot from, Dot to, Colour fill) override {
        pies.push_back({box, from, to, pen_, fill});
        order.emplace_back("pie");
    }
    void setFont(const Font& font) override { font_ = font; }
    void text(Dot at, std::string_view text) override;
    Extent textExtent(std::string_view text) override;

    // What was drawn, in the order of drawing.
    std::vector<Colour> backgrounds;
    std::vector<RecordedLine> drawn;
    std::vector<RecordedBox> boxes;
    std::vector<RecordedText> texts;
    std::vector<RecordedEllipse> ellipses;
    std::vector<RecordedPie> pies;
    std::vector<std::string> order; // of ellipses and pies

    /// How many lines, boxes and texts were drawn.
    [[nodiscard]] std::size_t primitives() const { return drawn.size() + boxes.size() + texts.size(); }
    /// The lines of one colour.
    [[nodiscard]] std::vector<Segment> linesOf(Colour pen) const;
    /// The boxes of one colour.
    [[nodiscard]] std::vector<Box> boxesOf(Colour colour) const;
    /// The only drawing of a text; nothing when it was drawn never or more than once.
    [[nodiscard]] std::optional<RecordedText> only(std::string_view text) const;
    /// All texts that are not empty, in a pen's colour.
    [[nodiscard]] std::vector<std::string> wordsOf(Colour pen) const;
    /// The y of each line that runs level over the whole width of its clip: limit and mean lines.
    [[nodiscard]] std::vector<int> levels() const;
    /// The clip at the end.
    [[nodiscard]] std::optional<Box> clip() const { return clip_; }

  private:
    Extent size_;
    double scale_;
    Colour pen_ = BLACK;
    std::optional<Box> clip_;
    Font font_;
    Dot current_;
};

} // namespace kelvrum::testing
