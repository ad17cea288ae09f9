// SPDX-License-Identifier: GPL-3.0-or-later
// How a reading fills a diagram: all that a reader knows of a control.
#pragma once

#include "diagram/PolarSamples.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace kelvrum {

/// Two horizontal auxiliary lines on the left scale.
struct AuxiliaryLines {
    double first = 0;
    double second = 0;
};

/// What a reading says about the values that it is going to bring.
struct DiagramTexts {
    std::string headLine;
    std::string headLine2;
    std::string unit;
    std::optional<AuxiliaryLines> auxiliaryLines; // nothing: the diagram keeps its lines
};

/// A diagram as its reader sees it. The columns of a series are laid into the shared table; samples are
/// passed here. A reading that is given up or fails after its start leaves a diagram without values.
class DiagramFeed {
  public:
    /// A reading begins that brings columns; a drawing until showSeries has none.
    virtual void startSeries(const DiagramTexts& texts) = 0;

    /// The first `columns` columns of the shared table hold the series; `interval` is theirs in days.
    virtual void showSeries(std::size_t columns, double interval) = 0;

    /// A reading begins that brings samples; those before are gone.
    virtual void startSamples(const DiagramTexts& texts) = 0;

    /// Adds samples.
    virtual void addSamples(std::span<const PolarSample> samples) = 0;

  protected:
    DiagramFeed() = default;
    DiagramFeed(const DiagramFeed&) = default;
    DiagramFeed& operator=(const DiagramFeed&) = default;
    ~DiagramFeed() = default;
};

} // namespace kelvrum
