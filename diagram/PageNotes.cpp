// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/PageNotes.h"

#include "diagram/DiagramLayout.h"
#include "drawing/FittedText.h"
#include "util/Numbers.h"

namespace kelvrum {

namespace {

// Millimetres below the part of the page that the diagram uses.
constexpr double NOTES_DROP = 3;
constexpr double FOOT_DROP = 8;
constexpr double GAP = 4; // between the two notes
constexpr std::size_t MAX_FOOT_LINES = 3;
constexpr double POINTS = 8;

} // namespace

void drawPageNotes(Surface& page, const PageNotes& notes, bool polar) {
    const DiagramLayout layout = DiagramLayout::page();
    const auto dots = [&page](double length) {
        return static_cast<int>(roundHalfEven(length * page.scale()));
    };
    const int foot = page.size().height - dots(layout.foot);
    const int left = dots(layout.left);
    const int right = page.size().width - dots(layout.right);
    page.setPen(BLACK);
    page.setFont({"Arial", POINTS, false, false});
    const int rightStart = right - page.textExtent(notes.right).width;
    if (!notes.left.empty()) {
        page.text({left, foot + dots(NOTES_DROP)}, cutText(page, notes.left, rightStart - dots(GAP) - left));
    }
    if (!notes.right.empty()) {
        page.text({rightStart, foot + dots(NOTES_DROP)}, notes.right);
    }
    if (polar && !notes.polarFoot.empty()) {
        const int room = page.size().width - 2 * dots(layout.right);
        int y = foot + dots(FOOT_DROP);
        for (const std::string& line : wrapText(page, notes.polarFoot, room, MAX_FOOT_LINES)) {
            const Extent extent = page.textExtent(line);
            page.text({(page.size().width - extent.width) / 2, y}, line);
            y += extent.height;
        }
    }
}

} // namespace kelvrum
