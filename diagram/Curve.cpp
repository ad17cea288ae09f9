#include "diagram/Curve.h"

#include <limits>

namespace kelvrum {

double sampleInterval(std::span<const double> times) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < times.size(); ++i) {
        const double distance = times[i] - times[i - 1];
        if (distance > 0 && distance < least) {
            least = distance;
        }
    }
    return std::isfinite(least) ? least : 0;
}

} // namespace kelvrum
