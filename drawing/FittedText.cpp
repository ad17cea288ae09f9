// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/FittedText.h"

#include "util/Text.h"

#include <algorithm>

namespace kelvrum {

namespace {

constexpr std::string_view ELLIPSIS = "…";

bool fits(Surface& surface, std::string_view text, int room) {
    return surface.textExtent(text).width <= room;
}

/// The text, or as many of its characters as have room with a mark: its beginning, or both its ends.
std::string shortened(Surface& surface, std::string_view text, int room, bool bothEnds) {
    if (fits(surface, text, room)) {
        return std::string(text);
    }
    std::vector<std::size_t> starts; // of the characters
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isContinuation(text[i])) {
            starts.push_back(i);
        }
    }
    const auto keep = [&](std::size_t count) {
        const std::size_t atEnd = bothEnds ? count / 2 : 0;
        const std::string_view end =
            atEnd > 0 ? text.substr(starts[starts.size() - atEnd]) : std::string_view();
        std::string_view beginning = text.substr(0, starts[count - atEnd]);
        while (beginning.ends_with(' ')) {
            beginning.remove_suffix(1);
        }
        return std::string(beginning).append(ELLIPSIS).append(end);
    };
    std::size_t fitting = 0; // number of characters that fit
    for (std::size_t tooMany = starts.size(); fitting + 1 < tooMany;) {
        const std::size_t middle = fitting + (tooMany - fitting) / 2;
        (fits(surface, keep(middle), room) ? fitting : tooMany) = middle;
    }
    return starts.empty() ? std::string() : keep(fitting);
}

} // namespace

std::string cutText(Surface& surface, std::string_view text, int room) {
    return shortened(surface, text, room, false);
}

std::string fitText(Surface& surface, Font font, std::string_view text, int room, double minPoints) {
    surface.setFont(font);
    while (font.Size > minPoints && !fits(surface, text, room)) {
        font.Size = std::max(font.Size - 1, minPoints);
        surface.setFont(font);
    }
    return shortened(surface, text, room, true);
}

std::vector<std::string> wrapText(Surface& surface, std::string_view text, int room, std::size_t maxLines) {
    std::vector<std::string> lines;
    while (lines.size() + 1 < maxLines && !fits(surface, text, room)) {
        std::size_t end = std::string_view::npos; // of the words that fit
        for (std::size_t at = text.find(' '); at != std::string_view::npos; at = text.find(' ', at + 1)) {
            if (!fits(surface, text.substr(0, at), room)) {
                break;
            }
            end = at;
        }
        if (end == std::string_view::npos) {
            end = std::min(text.find(' '), text.size());
        }
        lines.push_back(cutText(surface, text.substr(0, end), room));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (!text.empty() || lines.empty()) {
        lines.push_back(cutText(surface, text, room));
    }
    return lines;
}

} // namespace kelvrum
