#include "data/WindMean.h"

#include "util/Validity.h"

#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

constexpr double TO_RADIANS = 0.0174532925199433;
constexpr double TO_DEGREES = 57.2957795130823;

/// Vectors whose sum is so small a part of the speeds added so far cancel each other.
constexpr double CANCELLED = 1e-12;

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

/// North is reported as 360, never as 0 nor as a hair beside it.
double asReported(double d, bool used) {
    constexpr double NORTH_TOLERANCE = 1e-9;
    if (!used) {
        return INVALID_VALUE;
    }
    return validate(d <= NORTH_TOLERANCE || d >= 360 - NORTH_TOLERANCE ? 360 : d);
}

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
    return asReported(d, used);
}

double windMean(std::span<const double> directions, std::span<const double> speeds) {
    // The recursion takes the direction from an arcsine, which is coarse close to east and west, and loses
    // it where the vectors nearly cancel. A block whose running vector comes so close to either (as parts of
    // the squared length) goes the recursion's own way.
    constexpr double CLOSE_TO_EAST_WEST = 1e-10;
    constexpr double CLOSE_TO_CANCELLING = 1e-12;
    double x = 0;
    double y = 0;
    double speedSum = 0;
    bool used = false;
    const std::size_t minutes = std::min(directions.size(), speeds.size());
    for (std::size_t i = 0; i < minutes; ++i) {
        if (!isPresent(directions[i]) || !isPresent(speeds[i])) {
            continue;
        }
        const double angle = directions[i] * TO_RADIANS;
        x += std::sin(angle) * speeds[i];
        y += std::cos(angle) * speeds[i];
        speedSum += std::fabs(speeds[i]);
        const double square = x * x + y * y;
        if (!(y * y > CLOSE_TO_EAST_WEST * square) || !(square > CLOSE_TO_CANCELLING * speedSum * speedSum)) {
            return windMeanByMinutes(directions, speeds);
        }
        used = true;
    }
    return asReported(used ? directionOf(x, y, std::sqrt(x * x + y * y)) : 0, used);
}

} // namespace kelvrum
