// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that stay on the picture: the hint at the foot of the plot and the notes beside a rose.
#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"
#include "diagram/RoseNotes.h"

#include <QFontMetrics>
#include <QLabel>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <utility>

namespace kelvrum {

namespace {

// Pixels.
constexpr int NOTES_GAP = 6; // between the notes and the edges of the control

QString joined(const std::vector<std::string>& lines) {
    QStringList texts;
    for (const std::string& line : lines) {
        texts << QString::fromStdString(line);
    }
    return texts.join(QLatin1Char('\n'));
}

} // namespace

void ReadoutOverlay::setHint(const QString& hint) {
    hint_->setText(hint);
    hint_->setVisible(!hint.isEmpty());
    placeHint();
}

QString ReadoutOverlay::hint() const { return hint_->text(); }

/// At the foot of the plot, or of what is visible of the control where there is no plot. The notes are above
/// it.
void ReadoutOverlay::placeHint() {
    QRect area = rect().adjusted(0, 0, 0, -COVERED_FOOT);
    if (hasPlot()) {
        const PlotArea& plot = diagram_.lineShown()->plot;
        area = QRect(
            QPoint(static_cast<int>(plot.left / ratio()) + 1, 0),
            QPoint(static_cast<int>(plot.right / ratio()) - 1, static_cast<int>(plot.bottom / ratio()) - 2));
    }
    const int height =
        hint_->isHidden() ? hint_->fontMetrics().height() : std::max(hint_->heightForWidth(area.width()), 0);
    hint_->setGeometry(area.left(), area.bottom() - height, area.width(), height);
    showNotes();
}

void ReadoutOverlay::setNotes(std::vector<std::vector<std::string>> forms) {
    forms_ = std::move(forms);
    showNotes();
}

QString ReadoutOverlay::notes() const { return forms_.empty() ? QString() : joined(forms_.front()); }

void ReadoutOverlay::showNotes() {
    notes_->setVisible(
        diagram_.polarShown() &&
        std::any_of(forms_.begin(), forms_.end(), [this](const auto& lines) { return showForm(lines); }));
}

/// Shows lines where they have room, above the hint's line, which a rose without values has.
bool ReadoutOverlay::showForm(const std::vector<std::string>& lines) {
    const QFontMetrics metrics(notes_->font());
    NotesSize size;
    size.lineHeight = dots(metrics.lineSpacing());
    for (const std::string& line : lines) {
        size.widths.push_back(dots(metrics.horizontalAdvance(QString::fromStdString(line))));
    }
    const PolarDrawing& rose = *diagram_.polarShown();
    const int bottom = height() - COVERED_FOOT - NOTES_GAP - hint_->height();
    const Box area{dots(NOTES_GAP), rose.geometry.top + dots(NOTES_GAP), dots(width() - NOTES_GAP),
                   dots(bottom)};
    const auto place = placeNotes(size, rose, area, dots(NOTES_GAP) / 2);
    if (!place) {
        return false;
    }
    notes_->setText(joined(lines));
    notes_->setAlignment(Qt::AlignTop | (place->isRight ? Qt::AlignRight : Qt::AlignLeft));
    const Box& block = place->block;
    notes_->setGeometry(static_cast<int>(std::lround(block.left / ratio())),
                        static_cast<int>(std::lround(block.top / ratio())),
                        static_cast<int>(std::ceil((block.right - block.left) / ratio())),
                        notes_->sizeHint().height());
    return true;
}

} // namespace kelvrum
