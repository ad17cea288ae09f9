// SPDX-License-Identifier: GPL-3.0-or-later
// The transparent overlay above the picture of a diagram: readout, band and hint.
#pragma once

#include "diagram/Readout.h"
#include "diagram/ReadoutText.h"
#include "util/Format.h"

#include <QPointF>
#include <QRegion>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <array>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QPainter;

namespace kelvrum {

class PolarSys;

/// Covers a diagram and lets the mouse through to it; what it draws is no part of the picture. It reads the
/// picture that is shown: while the table is filled for the next one, it keeps to a copy of its values.
class ReadoutOverlay : public QWidget {
    Q_OBJECT

  public:
    /// A child of the diagram, named "overlay", that follows its size.
    ReadoutOverlay(PolarSys& diagram, LocaleTexts texts);

    /// How the values are named, from the next readout on.
    void setSeries(ReadoutSeries first, std::optional<ReadoutSeries> second);

    /// The shared table is about to be refilled.
    void keepSeries();

    /// Reads the value under a point of the control; outside of the plot or rose nothing is read out.
    void pointAt(const QPointF& place);
    /// The pointer has left: what it read out goes, what keys read out stays.
    void pointerLeft();

    /// Moves the readout to the previous (−1) or next (+1) value, or sector of a rose. Without a readout it
    /// starts at the last (−1) or first (+1) value of the view, in a rose always at the first sector.
    void step(int direction);
    /// To the value nearest to 24 hours earlier or later.
    void stepDay(int direction);
    void toFirst();
    void toLast();
    /// Marks the value read out; removes the mark if it is already marked.
    void toggleMark();
    /// Hides readout and mark; false when there was none.
    bool dismiss();

    /// The readout in words; empty while it is hidden.
    [[nodiscard]] QString text() const;
    /// The time of the value read out; nothing in a gap and in a rose.
    [[nodiscard]] std::optional<DateTime> readTime() const;
    /// The value of series 1 that is read out.
    [[nodiscard]] std::optional<double> readValue() const;

    /// Whether a point of the control is in the plot of a line diagram.
    [[nodiscard]] bool isInPlot(const QPointF& place) const;
    /// The time of a point of the control, of points beside the plot that of its edge; nothing without a line
    /// diagram or its time scale.
    [[nodiscard]] std::optional<DateTime> timeAt(const QPointF& place) const;

    /// Marks a range in the plot with its two times, or removes the band.
    void setBand(const std::optional<TimeRange>& band);
    [[nodiscard]] const std::optional<TimeRange>& band() const { return band_; }

    /// One line at the foot of the plot; empty: none.
    void setHint(const QString& hint);
    [[nodiscard]] QString hint() const;

    /// Notes in a corner beside a rose, as lines, and shorter forms of them: the first that leaves rings and
    /// letters free is shown, none where there is no room. Nothing: no notes.
    void setNotes(std::vector<std::vector<std::string>> forms);
    /// The first form, whether there is room for it or not.
    [[nodiscard]] QString notes() const;

  Q_SIGNALS:
    /// The readout has changed. While the pointer moves this is delayed until it pauses; hiding a readout
    /// that was never reported is not reported either.
    void readOut();

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// What is to be drawn of the readout, in device pixels.
    struct Marks {
        std::optional<int> line; // x of the vertical line
        std::optional<int> mark; // and of that of the mark
        std::vector<Dot> rings;
        std::optional<Box> field;
    };

    void pictureDrawn();
    /// Whether a line diagram with a time scale is shown.
    [[nodiscard]] bool hasPlot() const;
    /// Pixels at the foot of the control that the window's scroll bar covers.
    static constexpr int COVERED_FOOT = 16;
    const SeriesReader& reader();
    [[nodiscard]] double ratio() const { return devicePixelRatioF(); }
    [[nodiscard]] Dot deviceDot(const QPointF& place) const;

    /// Reads out a value, or the gap at time t.
    void read(const std::optional<ReadValue>& value, DateTime t);
    void readIfAny(const std::optional<ReadValue>& value);
    void readSector(std::int64_t index);
    void tell(std::vector<std::string> lines);
    void report();
    void clearReadout();

    // --- ReadoutOverlay_notes.cpp ---
    void placeHint();
    void showNotes();
    [[nodiscard]] bool showForm(const std::vector<std::string>& lines);

    // --- ReadoutOverlay_paint.cpp ---
    void layOut();
    void addRings(Marks& marks, const ReadValue& value);
    [[nodiscard]] int dots(int pixels) const;
    [[nodiscard]] Extent fieldSize() const;
    [[nodiscard]] Box placedField(Dot anchor) const;
    [[nodiscard]] QRegion region() const;
    [[nodiscard]] Box bandBox() const;
    void paintBand(QPainter& painter) const;
    void paintBandTimes(QPainter& painter) const;
    void paintLines(QPainter& painter) const;
    void paintField(QPainter& painter, const Box& field) const;

    PolarSys& diagram_;
    LocaleTexts texts_;
    ReadoutSeries first_;
    std::optional<ReadoutSeries> second_;

    SeriesReader reader_;
    Series read_;
    bool isRead_ = false;                     // reader_ is that of the picture
    std::array<std::vector<double>, 3> kept_; // the picture's values while the table is filled
    bool isKept_ = false;
    bool isLost_ = false; // they were not kept

    std::optional<Readout> readout_;
    DateTime readTime_ = 0;              // of the value read out, or of the gap
    std::optional<std::int64_t> sector_; // read out in a rose
    Dot sectorPlace_;                    // next to which its field is
    std::optional<ReadValue> mark_;
    std::optional<QPointF> pointer_; // of the readout; nothing: the readout is by key
    std::vector<std::string> lines_;
    bool isReported_ = false; // the readout shown, or an earlier one not yet withdrawn
    Marks marks_;
    std::optional<TimeRange> band_;
    QLabel* hint_;
    QLabel* notes_;
    std::vector<std::vector<std::string>> forms_; // of the notes
    QTimer pause_;                                // of the pointer
};

} // namespace kelvrum
