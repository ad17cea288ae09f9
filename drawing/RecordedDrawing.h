// SPDX-License-Identifier: GPL-3.0-or-later
// A recorded drawing: the pages of a print job until they are sent, and drawings that tests inspect.
#pragma once

#include "drawing/Surface.h"

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace kelvrum {

/// The primitives of a drawing: each is a call of a Surface with its arguments.
namespace drawn {

struct Clear {
    Colour background;
    bool operator==(const Clear&) const = default;
};
struct Pen {
    Colour colour;
    bool operator==(const Pen&) const = default;
};
struct Clip {
    std::optional<Box> box;
    bool operator==(const Clip&) const = default;
};
struct Line {
    Segment at;
    bool operator==(const Line&) const = default;
};
struct Lines {
    std::vector<Segment> at;
    bool operator==(const Lines&) const = default;
};
struct Fill {
    std::vector<Box> at;
    Colour colour;
    bool operator==(const Fill&) const = default;
};
struct Ellipse {
    Box at;
    std::optional<Colour> fill;
    bool operator==(const Ellipse&) const = default;
};
struct Pie {
    Box at;
    Dot from;
    Dot to;
    Colour fill;
    bool operator==(const Pie&) const = default;
};
struct TextFont {
    Font font;
    bool operator==(const TextFont&) const = default;
};
struct Text {
    Dot at;
    std::string text;
    bool operator==(const Text&) const = default;
};

} // namespace drawn

using Primitive = std::variant<drawn::Clear, drawn::Pen, drawn::Clip, drawn::Line, drawn::Lines, drawn::Fill,
                               drawn::Ellipse, drawn::Pie, drawn::TextFont, drawn::Text>;

/// What was drawn, in order.
struct RecordedDrawing {
    std::vector<Primitive> primitives;

    bool operator==(const RecordedDrawing&) const = default;

    /// Draws everything again on a surface of the same resolution.
    void play(Surface& surface) const;
};

/// Measures texts where there is no device to do so.
class TextMeter {
  public:
    TextMeter() = default;
    TextMeter(const TextMeter&) = delete;
    TextMeter& operator=(const TextMeter&) = delete;
    virtual ~TextMeter() = default;

    /// The font of the texts from now on. One is set before the first text is measured.
    virtual void setFont(const Font& font) = 0;
    /// As Surface::textExtent.
    virtual Extent extent(std::string_view text) = 0;
};

/// A surface that keeps what is drawn on it.
class RecordingSurface : public Surface {
  public:
    RecordingSurface(Extent size, double scale, std::unique_ptr<TextMeter> meter);

    [[nodiscard]] const RecordedDrawing& drawing() const { return drawing_; }
    /// Clears the recording and resets the font to the default.
    void restart();

    [[nodiscard]] Extent size() const override { return size_; }
    [[nodiscard]] double scale() const override { return scale_; }
    void clear(Colour background) override;
    void setPen(Colour colour) override;
    void setClip(std::optional<Box> box) override;
    void line(Dot from, Dot to) override;
    void lines(std::span<const Segment> segments) override;
    void fill(std::span<const Box> boxes, Colour colour) override;
    void ellipse(const Box& box, std::optional<Colour> fill) override;
    void pie(const Box& box, Dot from, Dot to, Colour fill) override;
    void setFont(const Font& font) override;
    void text(Dot at, std::string_view text) override;
    Extent textExtent(std::string_view text) override { return meter_->extent(text); }

  private:
    template<typename T>
    void add(T primitive) {
        drawing_.primitives.emplace_back(std::move(primitive));
    }

    Extent size_;
    double scale_;
    std::unique_ptr<TextMeter> meter_;
    RecordedDrawing drawing_;
};

} // namespace kelvrum
