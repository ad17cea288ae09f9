// SPDX-License-Identifier: GPL-3.0-or-later
// The diagram control.
#pragma once

#include "diagram/DiagramState.h"
#include "diagram/LineDiagram.h"
#include "diagram/PageNotes.h"
#include "diagram/PolarDiagram.h"
#include "util/Format.h"

#include <QPixmap>
#include <QWidget>
#include <memory>
#include <optional>
#include <utility>

namespace kelvrum {

class PrintJob;

/// Draws a time series or a polar diagram, chosen by DiagTyp, on the picture `pb`, which always fills the
/// control. A mere repaint of the window shows the finished picture again and draws nothing anew.
class PolarSys : public QWidget, public DiagramState {
    Q_OBJECT

  public:
    explicit PolarSys(LocaleTexts texts, QWidget* parent = nullptr);

    /// Draws the picture at once.
    void Draw();

    /// The job that PrintDiag prints into, as long as it exists.
    void setPrintJob(const PrintJob& job);

    /// What PrintDiag writes below the diagram; nothing at first.
    void setPageNotes(PageNotes notes) { notes_ = std::move(notes); }

    /// Draws the diagram on a new page of the print job, landscape. With `finish` the job is ended
    /// afterwards; otherwise it stays open for further pages. Throws PrintError, or what the drawing throws;
    /// the job is closed then.
    void PrintDiag(bool& finish);

    /// Saves the picture that was drawn last under a file name; see savePicture.
    void SavePic(const QString& FileName);

    /// The picture as it was drawn last, in device pixels.
    [[nodiscard]] const QPixmap& picture() const { return pb_; }

    /// Draws what DiagTyp says on another surface; the picture stays. False when that kind draws nothing.
    /// Throws what the drawing throws.
    bool drawOn(Surface& surface);

    /// How often the picture was drawn since the control was made.
    [[nodiscard]] int drawings() const { return drawings_; }

    /// Where things are in the picture, in its device pixels: of a line diagram or of a polar one; nothing
    /// while it shows the other kind, or has not been drawn.
    [[nodiscard]] const std::optional<LineDrawing>& lineShown() const { return lineShown_; }
    [[nodiscard]] const std::optional<PolarDrawing>& polarShown() const { return polarShown_; }

  Q_SIGNALS:
    /// The picture was drawn anew.
    void drawn();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

    void requestRepaint() override;
    void repaintNow() override { Draw(); }
    void backgroundChanged() override;
    /// The control's own state, regardless of the window around it.
    [[nodiscard]] bool enabledState() const override { return isEnabledTo(parentWidget()); }
    void applyEnabled(bool enabled) override { QWidget::setEnabled(enabled); }

  private:
    /// The size of the picture in device pixels.
    [[nodiscard]] QSize pictureSize() const;
    [[nodiscard]] QPixmap blankPicture() const;
    void drawPicture();
    /// Draws what DiagTyp says on pb_; another kind leaves it as it is.
    void paintPicture(const QSize& wanted, double ratio);

    LocaleTexts texts_;
    std::weak_ptr<PrintJob> printJob_;
    PageNotes notes_;
    QPixmap pb_;
    bool stale_ = true; // the picture is to be drawn before it is shown
    int drawings_ = 0;
    std::optional<LineDrawing> lineShown_;
    std::optional<PolarDrawing> polarShown_;
    bool focusByKey_ = false; // the focus came with a key: a frame shows where it is
};

} // namespace kelvrum
