#include "tests/drawing/RecordingSurface.h"

#include <algorithm>

namespace kelvrum::testing {

void RecordingSurface::lineTo(Dot to) {
    drawn.push_back({{current_, to}, pen_, clip_});
    current_ = to;
}

void RecordingSurface::lines(std::span<const Segment> segments) {
    for (const Segment& segment : segments) {
        drawn.push_back({segment, pen_, clip_});
    }
}

void RecordingSurface::fill(std::span<const Box> areas, Colour colour) {
    for (const Box& box : areas) {
        boxes.push_back({box, colour, clip_});
    }
}

void RecordingSurface::text(Dot at, std::string_view text) {
    texts.push_back({at, textExtent(text), std::string(text), pen_, font_, clip_});
}

Extent RecordingSurface::textExtent(std::string_view text) {
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    const auto characters = std::count_if(text.begin(), text.end(), [&](char c) { return !continues(c); });
    const int width = static_cast<int>(characters) * (font_.Bold ? BOLD_CHARACTER : CHARACTER);
    return {static_cast<int>(width * scale_), static_cast<int>(LINE_HEIGHT * scale_)};
}

std::vector<Segment> RecordingSurface::linesOf(Colour pen) const {
    std::vector<Segment> found;
    for (const RecordedLine& line : drawn) {
        if (line.pen == pen) {
            found.push_back(line.at);
        }
    }
    return found;
}

std::vector<Box> RecordingSurface::boxesOf(Colour colour) const {
    std::vector<Box> found;
    for (const RecordedBox& box : boxes) {
        if (box.colour == colour) {
            found.push_back(box.at);
        }
    }
    return found;
}

std::optional<RecordedText> RecordingSurface::only(std::string_view text) const {
    std::optional<RecordedText> found;
    for (const RecordedText& one : texts) {
        if (one.text == text) {
            if (found) {
                return {};
            }
            found = one;
        }
    }
    return found;
}

std::vector<std::string> RecordingSurface::wordsOf(Colour pen) const {
    std::vector<std::string> found;
    for (const RecordedText& one : texts) {
        if (one.pen == pen && !one.text.empty()) {
            found.push_back(one.text);
        }
    }
    return found;
}

std::vector<int> RecordingSurface::levels() const {
    std::vector<int> found;
    for (const auto& [at, pen, clip] : drawn) {
        if (clip && at.from.y == at.to.y && at.from.x == clip->left && at.to.x == clip->right - 1) {
            found.push_back(at.from.y);
        }
    }
    return found;
}

} // namespace kelvrum::testing
