// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ScrollFrame.h"

#include "app/ColumnDesign.h"
#include "data/RangeSteps.h"
#include "util/Controls.h"

#include <QPushButton>
#include <array>

namespace kelvrum {

namespace {

struct ScrollChoice {
    const char* caption;
    int unit; // item data of its row
};
constexpr std::array<ScrollChoice, 4> SCROLL_UNITS = {{
    {"Minuten", SCROLL_MINUTE},
    {"Stunden", SCROLL_HOUR},
    {"Tage", SCROLL_DAY},
    {"Monate", SCROLL_MONTH},
}};
constexpr int ROW_DAYS = 2;

} // namespace

ScrollFrame::ScrollFrame(QWidget* parent)
    : QGroupBox(QStringLiteral("Scrollen"), parent)
    , selScroll(makeControl<QComboBox>(this, "selScroll", column::row(19))) {
    setObjectName(QStringLiteral("Frame6"));
    setGeometry(column::LEFT, 258, column::WIDTH, 66);
    fillChoices(*selScroll, SCROLL_UNITS, &ScrollChoice::unit);
    ignorePassingWheel(*selScroll);
    const auto button = [this](const char* name, int x, const char* caption, int count) {
        const QRect place(x, 41, 51, column::CONTROL_HEIGHT);
        auto* made = makeControl<QPushButton>(this, name, place, QString::fromUtf8(caption));
        connect(made, &QPushButton::clicked, this, [this, count] { Q_EMIT scrolled(count); });
    };
    button("Command7", column::INNER_LEFT, "<-", -1);
    button("Command8", column::INNER_LEFT + 53, "->", +1);
}

int ScrollFrame::unit() const { return selScroll->currentData().toInt(); }

void ScrollFrame::start() { selScroll->setCurrentIndex(ROW_DAYS); }

} // namespace kelvrum
