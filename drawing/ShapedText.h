// SPDX-License-Identifier: GPL-3.0-or-later
// Fast layout of numbers and times, which lists mostly consist of.
#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QRawFont>
#include <array>
#include <optional>
#include <string_view>

class QPaintDevice;

namespace kelvrum {

/// Lays out texts of digits, signs, separators and blanks in one font, exactly as the toolkit does. Each pair
/// of characters is laid out by the toolkit once and looked up from then on.
class ShapedText {
  public:
    /// For a device, or for the screen without one.
    explicit ShapedText(const QFont& font, QPaintDevice* device = nullptr);

    /// Whether a text has only characters that are laid out here.
    static bool covers(std::string_view text);

    /// Height of a line, and of its part above the base line, as the toolkit's metrics say.
    [[nodiscard]] int height() const { return height_; }
    [[nodiscard]] int ascent() const { return ascent_; }

    /// The width of a text that is covered.
    double width(std::string_view text);

    /// A covered text as glyphs on its base line, without the blanks at its ends.
    QGlyphRun glyphs(std::string_view text);

  private:
    static constexpr std::string_view COVERED = "0123456789 .,:+-/";
    static constexpr std::size_t CHARACTERS = COVERED.size();

    static std::size_t indexOf(char character) { return COVERED.find(character); }

    /// From the left edge of `character` to that of the one after it; 0 for the text's last one.
    double advance(char character, char next);
    double measured(std::string_view text) const;
    quint32 glyph(char character);

    QFont font_;
    QPaintDevice* device_;
    QRawFont raw_;
    int height_ = 0;
    int ascent_ = 0;
    std::array<std::optional<double>, CHARACTERS*(CHARACTERS + 1)> advances_;
    std::array<quint32, CHARACTERS> glyphs_{};
};

} // namespace kelvrum
