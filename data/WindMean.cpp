// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/WindMean.h"

#include "data/CachedFunction.h"
#include "util/Validity.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kelvrum {

namespace {

constexpr double TO_RADIANS = 0.0174532925199433;
constexpr double TO_DEGREES = 57.2957795130823;

/// The direction of a vector of length r > 0: arcsine of x / r by the arctangent, turned to the lower half
/// plane for a negative y. Degrees, 0 to 360.
double directionOf(double x, double y, double r) {
    const double q = x / r;
    double d = std::fabs(q) < 1 ? std::atan(q / std::sqrt(1 - q * q)) * TO_DEGREES : 90 * q;
    if (y < 0) {
        d = 180 - d;
    }
    return d < 0 ? d + 360 : d;
}

struct SineCosine {
    double sine = 0;
    double cosine = 0;
};

/// Of an angle in radians.
struct SineCosineOf {
    SineCosine operator()(double angle) const { return {std::sin(angle), std::cos(angle)}; }
};

/// In radians.
struct ArctangentOf {
    double operator()(double tangent) const { return std::atan(tangent); }
};

/// The smallest of several fractions, without a division for each.
struct Fraction {
    double part = 1;
    double whole = 1;

    void lower(double otherPart, double otherWhole) {
        if (!(otherPart * whole >= part * otherWhole)) {
            part = otherPart;
            whole = otherWhole;
        }
    }
};

/// Wind vectors as X and Y, taken through each step together: loops without branches and calls are many times
/// faster than one vector after the other, and round the same.
class WindVectors {
  public:
    /// The mean of each block of `minutes` minutes, of few blocks; as many directions as speeds.
    void means(std::span<const double> directions, std::span<const double> speeds, std::size_t minutes,
               std::span<double> results) {
        makeRoom(std::max(directions.size(), results.size()));
        setMinutes(directions, speeds);
        if (minutes != 1) {
            addUp(minutes, results.size());
        }
        turnToDirections(results);
        if (minutes != 1) { // a single minute is never in doubt
            for (std::size_t i = 0; i < results.size(); ++i) {
                if (speed_[i] == DOUBTFUL) {
                    results[i] = windMeanByMinutes(directions.subspan(i * minutes, minutes),
                                                   speeds.subspan(i * minutes, minutes));
                }
            }
        }
    }

  private:
    // Instead of a sum of speeds, which is above 0.
    static constexpr double NOT_USED = 0;
    static constexpr double DOUBTFUL = -1;

    void makeRoom(std::size_t count) {
        if (x_.size() < count) {
            for (std::vector<double>* part : {&x_, &y_, &speed_, &sine_, &tangent_}) {
                part->resize(count);
            }
        }
    }

    /// One vector for each minute; directions in degrees.
    void setMinutes(std::span<const double> directions, std::span<const double> speeds) {
        sineCosine_.use([&](auto sineCosineOf) {
            for (std::size_t i = 0; i < directions.size(); ++i) {
                if (isPresent(directions[i]) && isPresent(speeds[i])) {
                    const SineCosine unit = sineCosineOf(directions[i] * TO_RADIANS);
                    x_[i] = unit.sine * speeds[i];
                    y_[i] = unit.cosine * speeds[i];
                    speed_[i] = std::fabs(speeds[i]);
                } else {
                    x_[i] = 0;
                    y_[i] = 0;
                    speed_[i] = NOT_USED;
                }
            }
        });
    }

    /// From one vector for each minute to one for each block.
    void addUp(std::size_t minutes, std::size_t blocks) {
        // The recursion takes the direction from an arcsine, which is coarse close to east and west, and what
        // it loses there grows where the vectors nearly cancel. A block falls back to the recursion when the
        // product of two ratios, each the smallest in the block (y to the length, the length to the sum of
        // the magnitudes), is a hundred-thousandth or less, or when its squares are too small to compare.
        constexpr double COARSE = 1e-10; // squared
        constexpr double SMALLEST_SQUARE = 1e-140;
        for (std::size_t block = 0; block < blocks; ++block) {
            double x = 0;
            double y = 0;
            double speed = NOT_USED;
            Fraction besideEastWest; // squared, as the next one
            Fraction left;           // of the magnitudes
            double smallestSquare = 1;
            for (std::size_t i = block * minutes; i < (block + 1) * minutes; ++i) {
                if (speed_[i] == NOT_USED) {
                    continue;
                }
                x += x_[i];
                y += y_[i];
                speed += speed_[i];
                const double square = x * x + y * y;
                besideEastWest.lower(y * y, square);
                left.lower(square, speed * speed);
                smallestSquare = std::min(smallestSquare, square);
            }
            const bool precise = besideEastWest.part * left.part > COARSE * besideEastWest.whole * left.whole;
            if (!precise || !(smallestSquare > SMALLEST_SQUARE)) {
                speed = speed == NOT_USED ? NOT_USED : DOUBTFUL;
            }
            x_[block] = x;
            y_[block] = y;
            speed_[block] = speed;
        }
    }

    /// The directions as reported, of as many vectors as there are results: by the steps of directionOf.
    void turnToDirections(std::span<double> results) {
        const std::size_t count = results.size();
        for (std::size_t i = 0; i < count; ++i) {
            const double r = std::sqrt(x_[i] * x_[i] + y_[i] * y_[i]);
            const bool hasDirection = r > CANCELLED * speed_[i];
            const double q = x_[i] / r;
            sine_[i] = hasDirection ? q : 0;
            y_[i] = hasDirection ? y_[i] : 0;
            tangent_[i] = sine_[i] / std::sqrt(1 - sine_[i] * sine_[i]);
        }
        arctangent_.use([&](auto arctangentOf) {
            for (std::size_t i = 0; i < count; ++i) {
                tangent_[i] = arctangentOf(tangent_[i]);
            }
        });
        for (std::size_t i = 0; i < count; ++i) { // both sides of each choice, without a branch
            const double ofTangent = tangent_[i] * TO_DEGREES;
            const double ofPole = 90 * sine_[i];
            const double arcsine = std::fabs(sine_[i]) < 1 ? ofTangent : ofPole;
            const double lower = 180 - arcsine;
            const double d = y_[i] < 0 ? lower : arcsine;
            const double more = d + 360;
            const double turned = d < 0 ? more : d;
            const double reported = isNorth(turned) ? 360 : turned;
            results[i] = speed_[i] > NOT_USED ? reported : INVALID_VALUE;
        }
    }

    std::vector<double> x_;
    std::vector<double> y_;
    std::vector<double> speed_;   // sum of the magnitudes added
    std::vector<double> sine_;    // x / r
    std::vector<double> tangent_; // of the direction, then its arctangent
    CachedFunction<SineCosineOf> sineCosine_;
    CachedFunction<ArctangentOf> arctangent_;
};

} // namespace

double windMeanByMinutes(std::span<const double> directions, std::span<const double> speeds) {
    double d = 0;        // running direction, degrees
    double r = 0;        // running magnitude
    double speedSum = 0; // of the magnitudes added so far
    bool used = false;
    const std::size_t minutes = std::min(directions.size(), speeds.size());
    for (std::size_t i = 0; i < minutes; ++i) {
        if (!isPresent(directions[i]) || !isPresent(speeds[i])) {
            continue;
        }
        const double x = std::sin(d * TO_RADIANS) * r + std::sin(directions[i] * TO_RADIANS) * speeds[i];
        const double y = std::cos(d * TO_RADIANS) * r + std::cos(directions[i] * TO_RADIANS) * speeds[i];
        speedSum += std::fabs(speeds[i]);
        r = std::sqrt(x * x + y * y);
        if (r > CANCELLED * speedSum) {
            d = directionOf(x, y, r);
        } else {
            r = 0; // the direction stays
        }
        used = true;
    }
    if (!used) {
        return INVALID_VALUE;
    }
    return isNorth(d) ? 360 : d;
}

struct WindMeans::Memory : WindVectors {};

WindMeans::WindMeans() = default;
WindMeans::~WindMeans() = default;

void WindMeans::of(std::span<const double> directions, std::span<const double> speeds, std::size_t minutes,
                   std::span<double> results) {
    if (speeds.size() < directions.size()) {
        std::fill(results.begin(), results.end(), INVALID_VALUE);
        return;
    }
    if (!memory_) {
        memory_ = std::make_unique<Memory>();
    }
    constexpr std::size_t PIECE_MINUTES =
        1024; // processed together, so that they stay in the processor's cache
    const std::size_t maxBlocks = std::max<std::size_t>(PIECE_MINUTES / std::max<std::size_t>(minutes, 1), 1);
    for (std::size_t block = 0; block < results.size(); block += maxBlocks) {
        const std::size_t blocks = std::min(maxBlocks, results.size() - block);
        memory_->means(directions.subspan(block * minutes, blocks * minutes),
                       speeds.subspan(block * minutes, blocks * minutes), minutes,
                       results.subspan(block, blocks));
    }
}

} // namespace kelvrum
