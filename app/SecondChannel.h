// SPDX-License-Identifier: GPL-3.0-or-later
// The second channel of the diagram: its menu, and what it changes in the diagram's look.
#pragma once

#include "config/ChannelList.h"
#include "diagram/ReadoutText.h"
#include "drawing/Colour.h"

#include <QObject>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QActionGroup;
class QMenu;

namespace kelvrum {

class PolarSys;

/// The user's choice for as long as the project is open; none at first. Without one the diagram keeps the
/// look that it was given.
class SecondChannel : public QObject {
    Q_OBJECT

  public:
    /// Rgb 128, 0, 128. This violet differs from the curves, lines, left axis and paper by at least 15 units
    /// (CIEDE2000), also for colour-blind users. The brown 0x0050B0 would look like the mean line or, to
    /// them, like a limit line or the maxima; a violet with more blue would be too close to the first curve.
    static constexpr Colour COLOUR = 0x800080;

    /// Adds the entry "Zweiter Kanal" to a menu.
    SecondChannel(PolarSys& diagram, QMenu& menu);

    /// Offers the channels of another project, none of which is chosen. Raises no signal.
    void fill(const std::vector<ListedChannel>& channels);

    /// The number of the chosen channel; 0 = none.
    [[nodiscard]] std::int32_t channel() const { return channel_; }

    /// After a reading: colours, captions and the right range for the values in row 2. The left caption
    /// has the unit then, so that Einheit is empty.
    void show(const ReadoutSeries& first, const ReadoutSeries& second);

    /// Restores the look that the diagram had before `show`.
    void hide();

    /// The same while other pages are drawn with the diagram; the caller restores its properties afterwards.
    void hideForOthers() const;

  Q_SIGNALS:
    /// The user has chosen another channel or none.
    void chosen();

  private:
    /// What `show` changes.
    struct Look {
        Colour D2 = 0;
        Colour Y2axe = 0;
        double Y2Low = 0;
        double Y2High = 0;
        std::string AchseText;
        std::string Einheit;
    };

    void add(const QString& text, const QString& name, std::int32_t channel);
    void choose(std::int32_t channel);
    void put(const Look& look) const;

    PolarSys& diagram_;
    QMenu* menZweiter_;
    QActionGroup* entries_;
    std::int32_t channel_ = 0;
    std::optional<Look> before_; // while the diagram shows a second channel
};

} // namespace kelvrum
