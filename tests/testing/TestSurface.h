// SPDX-License-Identifier: GPL-3.0-or-later
// A recording with fixed text sizes, and questions about what was drawn on it.
#pragma once

#include "drawing/RecordedDrawing.h"

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
class TestSurface final : public RecordingSurface {
  public:
    static constexpr int CHARACTER = 6;
    static constexpr int BOLD_CHARACTER = 7;
    static constexpr int LINE_HEIGHT = 12;

    explicit TestSurface(Extent size = {1000, 600}, double scale = 1);

    // What was drawn, each kind in the order of drawing.
    [[nodiscard]] std::vector<Colour> backgrounds() const;
    [[nodiscard]] std::vector<RecordedLine> drawnLines() const;
    [[nodiscard]] std::vector<RecordedBox> boxes() const;
    [[nodiscard]] std::vector<RecordedText> texts() const;
    [[nodiscard]] std::vector<RecordedEllipse> ellipses() const;
    [[nodiscard]] std::vector<RecordedPie> pies() const;

    /// How many lines, boxes and texts were drawn.
    [[nodiscard]] std::size_t primitives() const;
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
    [[nodiscard]] std::optional<Box> clip() const;
};

} // namespace kelvrum::testing
