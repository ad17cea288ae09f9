// SPDX-License-Identifier: GPL-3.0-or-later
// The request, the results and the status of a reading.
#pragma once

#include "util/DateTime.h"
#include "util/Validity.h"
#include "util/VectorRegisters.h"

#include <cstdint>
#include <functional>
#include <string>

namespace kelvrum {

/// What to read.
struct ReadRequest {
    std::int32_t channel = 0;
    std::string suffix; // part of the file name, usually empty
    TimeRange range;
    std::int32_t interval = 1; // minutes in a block
    std::int32_t second = 0;   // a further channel, for row 2 of a diagram's series; 0 = none
};

/// The value of one interval; INVALID_VALUE when it has none.
struct IntervalValue {
    DateTime start = 0;
    double value = INVALID_VALUE;

    bool operator==(const IntervalValue&) const = default;
};

/// Called between the steps of a long reading; false cancels the reading.
using ReadingStep = std::function<bool()>;

/// Runs the step, if there is one; false when it cancels the reading. The step may let windows paint, which
/// slows down the computation that follows unless the vector registers are cleaned.
inline bool runStep(const ReadingStep& step) {
    const bool goOn = !step || step();
    cleanVectorRegisters();
    return goOn;
}

/// How a reading ended.
enum class ReadStatus {
    complete, // to its end or to an error, which ends it like the file's end; nothing is thrown
    givenUp,  // cancelled by a step; drop what was delivered so far
};

} // namespace kelvrum
