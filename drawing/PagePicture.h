// A page that is kept as what was drawn on it, until it is printed or dropped.
#pragma once

#include "drawing/PainterSurface.h"
#include "drawing/ShapedText.h"
#include "drawing/Surface.h"

#include <QFont>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace kelvrum {

class PagePicture final : public Surface {
  public:
    PagePicture(Extent size, const Resolution& resolution);

    /// Forgets what was drawn.
    void restart();

    /// Draws everything again, in the same order, on a surface of the same resolution.
    void play(Surface& surface) const;

    [[nodiscard]] Extent size() const override { return size_; }
    [[nodiscard]] double scale() const override { return resolution_.scale; }
    void clear(Colour background) override;
    void setPen(Colour colour) override;
    void setClip(std::optional<Box> box) override;
    void moveTo(Dot to) override;
    void lineTo(Dot to) override;
    void lines(std::span<const Segment> segments) override;
    void fill(std::span<const Box> boxes, Colour colour) override;
    void ellipse(const Box& box, std::optional<Colour> fill) override;
    void pie(const Box& box, Dot from, Dot to, Colour fill) override;
    void setFont(const Font& font) override;
    void text(Dot at, std::string_view text) override;
    Extent textExtent(std::string_view text) override;

  private:
    Extent size_;
    Resolution resolution_;
    QFont font_;
    std::map<QString, std::unique_ptr<ShapedText>> shaped_; // by font
    ShapedText* shapedNow_ = nullptr;                       // of the current font
    void useFont(const Font& font);
    std::vector<std::function<void(Surface&)>> steps_;
};

} // namespace kelvrum
