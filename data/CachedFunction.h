// SPDX-License-Identifier: GPL-3.0-or-later
// A cache of the results of a function of one number, for arguments that recur.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace kelvrum {

/// Returns what Function{}(argument) returns, bit for bit, but calls it only for arguments that are new. An
/// instrument delivers few different values (whole degrees, tenths of metres per second), so nearly all of
/// them have occurred before. When most are new nevertheless, the cache pauses for some uses. Each argument
/// has one place among `PLACES` and takes it from whichever was there.
template<typename Function, std::size_t PLACES = 8192>
class CachedFunction {
  public:
    using Result = std::invoke_result_t<Function, double>;

    CachedFunction()
        : places_(PLACES, Place{0, Function{}(std::bit_cast<double>(std::uint64_t{0}))}) {}

    /// Calls work(function) once, where function(argument) returns a result. The work should call it about a
    /// thousand times: at its end the share of new arguments decides whether the cache pauses.
    template<typename Work>
    void use(Work work) {
        if (pause_ > 0) {
            --pause_;
            work(Function{});
            return;
        }
        std::size_t used = 0;
        std::size_t fresh = 0;
        work([&](double argument) {
            const auto bits = std::bit_cast<std::uint64_t>(argument);
            Place& place = places_[((bits ^ (bits >> 32)) * SPREAD) >> SHIFT];
            ++used;
            if (place.argument != bits) {
                place = {bits, Function{}(argument)};
                ++fresh;
            }
            return place.result;
        });
        pause_ = 2 * fresh > used ? PAUSE : 0;
    }

  private:
    static_assert(PLACES > 1 && std::has_single_bit(PLACES));
    // Knuth's multiplicative hashing: the upper bits of the product depend on all bits below them. The upper
    // half of the argument is folded in first, so that neighbouring angles spread too.
    static constexpr std::uint64_t SPREAD = 0x9E3779B97F4A7C15; // 2^64 divided by the golden ratio
    static constexpr int SHIFT = 64 - std::countr_zero(PLACES);

    static constexpr int PAUSE = 7; // uses: short enough to cache many values, long enough to cost little

    struct Place {
        std::uint64_t argument; // its bits: 0 and -0 differ, and a NaN equals itself
        Result result;
    };

    std::vector<Place> places_;
    int pause_ = 0; // uses until the next attempt
};

} // namespace kelvrum
