// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/TestSurface.h"

#include <algorithm>
#include <memory>

namespace kelvrum::testing {

namespace {

class FixedMeter final : public TextMeter {
  public:
    explicit FixedMeter(double scale)
        : scale_(scale) {}
    void setFont(const Font& font) override { bold_ = font.Bold; }
    Extent extent(std::string_view text) override {
        const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
        const auto characters =
            std::count_if(text.begin(), text.end(), [&](char c) { return !continues(c); });
        const int width =
            static_cast<int>(characters) * (bold_ ? TestSurface::BOLD_CHARACTER : TestSurface::CHARACTER);
        return {static_cast<int>(width * scale_), static_cast<int>(TestSurface::LINE_HEIGHT * scale_)};
    }

  private:
    double scale_;
    bool bold_ = false;
};

/// What the primitives before have set.
struct Settings {
    Colour pen = BLACK;
    std::optional<Box> clip;
    Font font;
};

/// Calls `see(primitive, settings)` for each primitive of type T.
template<typename T, typename See>
void each(const RecordedDrawing& drawing, See see) {
    Settings settings;
    for (const Primitive& primitive : drawing.primitives) {
        if (const auto* pen = std::get_if<drawn::Pen>(&primitive)) {
            settings.pen = pen->colour;
        } else if (const auto* clip = std::get_if<drawn::Clip>(&primitive)) {
            settings.clip = clip->box;
        } else if (const auto* font = std::get_if<drawn::TextFont>(&primitive)) {
            settings.font = font->font;
        }
        if (const auto* wanted = std::get_if<T>(&primitive)) {
            see(*wanted, settings);
        }
    }
}

} // namespace

TestSurface::TestSurface(Extent size, double scale)
    : RecordingSurface(size, scale, std::make_unique<FixedMeter>(scale)) {}

std::vector<Colour> TestSurface::backgrounds() const {
    std::vector<Colour> found;
    each<drawn::Clear>(drawing(), [&](const auto& it, const auto&) { found.push_back(it.background); });
    return found;
}

std::vector<RecordedLine> TestSurface::drawnLines() const {
    std::vector<RecordedLine> found;
    Settings settings;
    for (const Primitive& primitive : drawing().primitives) {
        if (const auto* pen = std::get_if<drawn::Pen>(&primitive)) {
            settings.pen = pen->colour;
        } else if (const auto* box = std::get_if<drawn::Clip>(&primitive)) {
            settings.clip = box->box;
        } else if (const auto* line = std::get_if<drawn::Line>(&primitive)) {
            found.push_back({line->at, settings.pen, settings.clip});
        } else if (const auto* batch = std::get_if<drawn::Lines>(&primitive)) {
            for (const Segment& segment : batch->at) {
                found.push_back({segment, settings.pen, settings.clip});
            }
        }
    }
    return found;
}

std::vector<RecordedBox> TestSurface::boxes() const {
    std::vector<RecordedBox> found;
    each<drawn::Fill>(drawing(), [&](const auto& it, const Settings& settings) {
        for (const Box& box : it.at) {
            found.push_back({box, it.colour, settings.clip});
        }
    });
    return found;
}

std::vector<RecordedText> TestSurface::texts() const {
    std::vector<RecordedText> found;
    FixedMeter meter(scale());
    each<drawn::Text>(drawing(), [&](const auto& it, const Settings& settings) {
        meter.setFont(settings.font);
        found.push_back({it.at, meter.extent(it.text), it.text, settings.pen, settings.font, settings.clip});
    });
    return found;
}

std::vector<RecordedEllipse> TestSurface::ellipses() const {
    std::vector<RecordedEllipse> found;
    each<drawn::Ellipse>(drawing(), [&](const auto& it, const Settings& settings) {
        found.push_back({it.at, settings.pen, it.fill});
    });
    return found;
}

std::vector<RecordedPie> TestSurface::pies() const {
    std::vector<RecordedPie> found;
    each<drawn::Pie>(drawing(), [&](const auto& it, const Settings& settings) {
        found.push_back({it.at, it.from, it.to, settings.pen, it.fill});
    });
    return found;
}

std::size_t TestSurface::primitives() const { return drawnLines().size() + boxes().size() + texts().size(); }

std::vector<Segment> TestSurface::linesOf(Colour pen) const {
    std::vector<Segment> found;
    for (const RecordedLine& line : drawnLines()) {
        if (line.pen == pen) {
            found.push_back(line.at);
        }
    }
    return found;
}

std::vector<Box> TestSurface::boxesOf(Colour colour) const {
    std::vector<Box> found;
    for (const RecordedBox& box : boxes()) {
        if (box.colour == colour) {
            found.push_back(box.at);
        }
    }
    return found;
}

std::optional<RecordedText> TestSurface::only(std::string_view text) const {
    std::optional<RecordedText> found;
    for (const RecordedText& one : texts()) {
        if (one.text == text) {
            if (found) {
                return {};
            }
            found = one;
        }
    }
    return found;
}

std::vector<std::string> TestSurface::wordsOf(Colour pen) const {
    std::vector<std::string> found;
    for (const RecordedText& one : texts()) {
        if (one.pen == pen && !one.text.empty()) {
            found.push_back(one.text);
        }
    }
    return found;
}

std::vector<int> TestSurface::levels() const {
    std::vector<int> found;
    for (const auto& [at, pen, clip] : drawnLines()) {
        if (clip && at.from.y == at.to.y && at.from.x == clip->left && at.to.x == clip->right - 1) {
            found.push_back(at.from.y);
        }
    }
    return found;
}

std::optional<Box> TestSurface::clip() const {
    std::optional<Box> last;
    each<drawn::Clip>(drawing(), [&](const auto& it, const auto&) { last = it.box; });
    return last;
}

} // namespace kelvrum::testing
