// SPDX-License-Identifier: GPL-3.0-or-later
#include "batchprint/BatchColumns.h"

#include "util/Controls.h"

#include <QCheckBox>
#include <QFontMetrics>
#include <QStyle>
#include <algorithm>

namespace kelvrum {

namespace {

constexpr int COLUMN_GAP = 22;
constexpr int MIN_NAME_WIDTH = 110;
constexpr int MAX_NAME_WIDTH = 300;
constexpr int MIN_GAP = 6; // between controls

/// The middle of a word of a caption, from the caption's left edge.
int middleOf(const char* word, const char* caption, const QFontMetrics& metrics) {
    const QString text = QString::fromUtf8(caption);
    const QString part = QString::fromUtf8(word);
    return metrics.horizontalAdvance(text.left(text.indexOf(part))) + metrics.horizontalAdvance(part) / 2;
}

} // namespace

BatchColumns layOutColumns(const QWidget& dialog, const std::vector<QString>& names) {
    using namespace batch;
    const QFontMetrics metrics(dialog.font());
    BatchColumns at;
    at.tick = dialog.style()->pixelMetric(QStyle::PM_IndicatorWidth) + 2;
    at.nameWidth = MIN_NAME_WIDTH;
    for (const QString& name : names) {
        QCheckBox box(captionOf(name));
        box.setFont(dialog.font());
        const int wanted = box.sizeHint().width();
        at.nameWidth = std::clamp(wanted, at.nameWidth, MAX_NAME_WIDTH);
    }

    at.scale = MARGIN + at.nameWidth + COLUMN_GAP;
    at.chAuto = at.scale + middleOf("auto", SCALE_CAPTION, metrics) - at.tick / 2;
    const int manual = at.scale + middleOf("manuell", SCALE_CAPTION, metrics);
    at.tMin = std::max(manual - FIELD_WIDTH - DASH_WIDTH / 2, at.chAuto + at.tick + MIN_GAP);
    at.strich = at.tMin + FIELD_WIDTH;
    at.tMax = at.strich + DASH_WIDTH;

    at.interval = at.tMax + FIELD_WIDTH + COLUMN_GAP;
    at.limits = at.interval + CHOICE_WIDTH + COLUMN_GAP;
    at.chShowLines = at.limits + middleOf("anzeigen", LIMIT_CAPTION, metrics) - at.tick / 2;
    at.aMin = at.limits + middleOf("grün", LIMIT_CAPTION, metrics) - FIELD_WIDTH / 2;
    at.aMax = at.limits + middleOf("rot", LIMIT_CAPTION, metrics) - FIELD_WIDTH / 2;

    at.mean = at.aMax + FIELD_WIDTH + COLUMN_GAP;
    at.chShowMittel = at.mean + middleOf("anzeigen", MEAN_CAPTION, metrics) - at.tick / 2;
    at.width = at.mean + metrics.horizontalAdvance(QString::fromUtf8(MEAN_HEADING)) + MARGIN;
    return at;
}

} // namespace kelvrum
