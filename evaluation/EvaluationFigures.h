// SPDX-License-Identifier: GPL-3.0-or-later
// Single figures of an evaluation as texts.
#pragma once

#include "evaluation/EvaluationInput.h"
#include "util/Format.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelvrum {

/// A figure that does not exist.
inline constexpr const char* NO_FIGURE = "–";

/// Writes the figures of one evaluation, all of its values with the same number of decimals.
class EvaluationFigures {
  public:
    /// `greatest` is the greatest magnitude that occurs.
    EvaluationFigures(double greatest, std::string unit, LocaleTexts texts);

    /// A value without and with its unit.
    [[nodiscard]] std::string number(std::optional<double> v) const;
    [[nodiscard]] std::string value(std::optional<double> v) const;
    /// "12,34 mg am 18.06.2026 00:10".
    [[nodiscard]] std::string timed(const std::optional<TimedValue>& v) const;
    /// As typed into a box or written in a configuration, with the unit.
    [[nodiscard]] std::string limit(double v) const;

    [[nodiscard]] std::string time(DateTime t) const { return rowTime(t, texts_); }
    /// "97,22 %" and "97,22".
    [[nodiscard]] std::string percent(std::optional<double> v) const;
    [[nodiscard]] std::string share(std::optional<double> v) const;
    /// Degrees with one decimal.
    [[nodiscard]] std::string degrees(std::optional<double> v) const;
    /// With a format of formatNumber.
    [[nodiscard]] std::string formatted(std::optional<double> v, std::string_view format) const;

    /// "2 d 3 h 15 min"; parts that are 0 are left out.
    [[nodiscard]] static std::string duration(std::int64_t minutes);

    [[nodiscard]] const LocaleTexts& texts() const { return texts_; }

  private:
    [[nodiscard]] std::string withUnit(const std::string& number) const;

    std::string format_;
    std::string unit_;
    LocaleTexts texts_;
};

} // namespace kelvrum
