// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/PageNotes.h"

#include "diagram/DiagramLayout.h"
#include "util/Numbers.h"

namespace kelvrum {

namespace {

// Millimetres below the part of the page that the diagram uses.
constexpr double NOTES_DROP = 3;
constexpr double FOOT_DROP = 8;
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
    if (!notes.left.empty()) {
        page.text({left, foot + dots(NOTES_DROP)}, notes.left);
    }
    if (!notes.right.empty()) {
        page.text({right - page.textExtent(notes.right).width, foot + dots(NOTES_DROP)}, notes.right);
    }
    if (polar && !notes.polarFoot.empty()) {
        const int middle = (page.size().width - page.textExtent(notes.polarFoot).width) / 2;
        page.text({middle, foot + dots(FOOT_DROP)}, notes.polarFoot);
    }
}

} // namespace kelvrum
