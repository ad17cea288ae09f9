// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/PolarSys.h"

#include "diagram/AccessibleDiagram.h"
#include "diagram/LineDiagram.h"
#include "diagram/PictureExport.h"
#include "diagram/PolarDiagram.h"
#include "drawing/PainterSurface.h"
#include "drawing/PrintJob.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <exception>
#include <utility>

namespace kelvrum {

namespace {

/// The picture whose proportions the page has, in pixels: on a square the rose is round.
constexpr Extent POLAR_PAGE{500, 500};

/// Whether a kind of diagram draws anything.
bool isDrawn(std::int32_t kind) { return kind >= KIND_LINE && kind <= KIND_LINE_4; }

} // namespace

PolarSys::PolarSys(LocaleTexts texts, QWidget* parent)
    : QWidget(parent)
    , texts_(std::move(texts)) {
    setAttribute(Qt::WA_OpaquePaintEvent); // the picture covers the whole control
    initialise();
    makeReadoutsAccessible();
}

void PolarSys::Draw() {
    drawPicture();
    update();
}

void PolarSys::setPrintJob(const PrintJob& job) { printJob_ = job.watched(); }

void PolarSys::PrintDiag(bool& finish) {
    const std::shared_ptr<PrintJob> job = printJob_.lock();
    if (!job) {
        throw PrintError("Es ist kein Drucker eingerichtet.");
    }
    try {
        Surface& page = job->newPage(QPageLayout::Landscape);
        if (DiagTyp() == KIND_POLAR) {
            printPolarDiagram(page, POLAR_PAGE, *this, texts_);
        } else if (isDrawn(DiagTyp())) {
            drawLineDiagram(page, *this, DiagramLayout::page(), texts_);
        }
        drawPageNotes(page, notes_, DiagTyp() == KIND_POLAR);
        if (finish) {
            job->end();
        }
    } catch (const std::exception&) {
        job->abandon();
        throw;
    }
}

bool PolarSys::drawOn(Surface& surface) {
    if (DiagTyp() == KIND_POLAR) {
        drawPolarDiagram(surface, *this, texts_);
    } else if (isDrawn(DiagTyp())) {
        drawLineDiagram(surface, *this, DiagramLayout{}, texts_);
    }
    return isDrawn(DiagTyp());
}

void PolarSys::SavePic(const QString& FileName) {
    const QPixmap picture = pb_.isNull() ? blankPicture() : pb_; // drawing meanwhile does not change it
    savePicture(picture, FileName);
}

QSize PolarSys::pictureSize() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

QPixmap PolarSys::blankPicture() const {
    QPixmap blank(pictureSize());
    blank.fill(toQColor(BgCol()));
    return blank;
}

void PolarSys::drawPicture() {
    stale_ = false;
    const QSize wanted = pictureSize();
    if (wanted.isEmpty()) {
        return;
    }
    const double ratio = devicePixelRatioF();
    pb_.setDevicePixelRatio(1);
    if (pb_.size() != wanted) {
        const QPixmap before = std::exchange(pb_, blankPicture());
        if (!isDrawn(DiagTyp())) { // the old picture stays
            QPainter(&pb_).drawPixmap(0, 0, before);
        }
    }
    try {
        paintPicture(wanted, ratio);
    } catch (const std::exception&) {
        // The drawing ended with a run-time error; what has been drawn stays.
    }
    pb_.setDevicePixelRatio(ratio);
    Q_EMIT drawn();
}

void PolarSys::paintPicture(const QSize& wanted, double ratio) {
    switch (DiagTyp()) {
    case KIND_POLAR: {
        PainterSurface surface(pb_, {wanted.width(), wanted.height()}, ratio);
        lineShown_.reset();
        polarShown_.reset(); // an error leaves it so
        polarShown_ = drawPolarDiagram(surface, *this, texts_);
        ++drawings_;
        break;
    }
    case KIND_LINE:
    case KIND_PRECIPITATION:
    case KIND_DIRECTION:
    case KIND_LINE_4: {
        PainterSurface surface(pb_, {wanted.width(), wanted.height()}, ratio);
        polarShown_.reset();
        lineShown_ = drawLineDiagram(surface, *this, DiagramLayout{}, texts_);
        ++drawings_;
        break;
    }
    default:
        break;
    }
}

void PolarSys::paintEvent(QPaintEvent* /*event*/) {
    if (stale_ || pb_.size() != pictureSize()) { // requested, or resized since
        drawPicture();
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, pb_);
    if (hasFocus() && focusByKey_) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void PolarSys::focusInEvent(QFocusEvent* event) {
    const Qt::FocusReason reason = event->reason();
    focusByKey_ =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    QWidget::focusInEvent(event);
}

void PolarSys::mousePressEvent(QMouseEvent* event) {
    focusByKey_ = false;
    update();
    QWidget::mousePressEvent(event);
}

void PolarSys::requestRepaint() {
    stale_ = true;
    update();
}

void PolarSys::backgroundChanged() {
    QPalette colours = palette();
    colours.setColor(QPalette::Window, toQColor(BgCol()));
    setPalette(colours);
}

} // namespace kelvrum
