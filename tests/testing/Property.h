// SPDX-License-Identifier: GPL-3.0-or-later
// Properties that hold for every input: tried with many generated inputs; a failure is reported with a small
// input that breaks them.
//
// A test passes its own seed and count. The environment variables KELVRUM_PROPERTY_SEED and
// KELVRUM_PROPERTY_COUNT take their place, to try others or to see one failed case again.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace kelvrum::testing {

/// Made numbers, the same for the same seed with every standard library.
class Numbers {
  public:
    explicit Numbers(std::uint64_t seed)
        : engine_(seed) {}

    /// A whole number from 0 on, below the limit.
    std::uint64_t below(std::uint64_t limit) { return engine_() % limit; }
    /// A whole number, both ends included.
    int whole(int low, int high) {
        return low + static_cast<int>(below(static_cast<std::uint64_t>(high - low) + 1));
    }
    double between(double low, double high) {
        constexpr int BITS = 53;
        return low + (high - low) * (static_cast<double>(engine_() >> (64 - BITS)) / (1ULL << BITS));
    }
    bool oneIn(int n) { return below(static_cast<std::uint64_t>(n)) == 0; }
    template<typename List>
    auto oneOf(const List& list) {
        return *std::next(std::begin(list), static_cast<std::ptrdiff_t>(below(std::size(list))));
    }
    /// Any 64 bits.
    std::uint64_t bits() { return engine_(); }

  private:
    std::mt19937_64 engine_;
};

/// A number of the environment, or the one given.
inline std::uint64_t propertySetting(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr || *text == '\0' ? otherwise : std::strtoull(text, nullptr, 10);
}

/// The numbers to try in the place of one, nearest to nothing first; all of them are nearer to it.
template<typename Number>
std::vector<Number> smallerNumbers(Number v) {
    const auto size = [](Number n) { return n < 0 ? -n : n; };
    std::vector<Number> candidates = {0, 1};
    if (size(v) > 2) { // else there would be ever more digits
        candidates.push_back(v / 2);
    }
    if constexpr (std::is_floating_point_v<Number>) {
        candidates.push_back(std::trunc(v));
    } else {
        candidates.push_back(v > 0 ? v - 1 : v + 1);
    }
    std::erase_if(candidates, [&](Number n) { return !(size(n) < size(v)); });
    return candidates;
}

/// Parts of a list to try in its place: without ever shorter stretches of it, then with one element made
/// smaller.
template<typename Element, typename Smaller>
std::vector<std::vector<Element>> smallerLists(const std::vector<Element>& list, Smaller smaller) {
    constexpr std::size_t MAX_ELEMENTS = 40; // whose elements are made smaller one by one
    std::vector<std::vector<Element>> candidates;
    for (std::size_t length = list.size(); length > 0; length /= 2) {
        for (std::size_t at = 0; at < list.size(); at += length) {
            auto rest = list;
            const auto first = rest.begin() + static_cast<std::ptrdiff_t>(at);
            rest.erase(first, first + static_cast<std::ptrdiff_t>(std::min(length, list.size() - at)));
            candidates.push_back(std::move(rest));
        }
        if (candidates.size() > 4 * MAX_ELEMENTS) {
            break;
        }
    }
    for (std::size_t i = 0; i < list.size() && list.size() <= MAX_ELEMENTS; ++i) {
        for (const Element& element : smaller(list[i])) {
            candidates.push_back(list);
            candidates.back()[i] = element;
        }
    }
    return candidates;
}

/// What a check says of a value; an exception is a finding too.
template<typename Value, typename Check>
std::string findingOf(const Value& value, Check check) {
    try {
        return check(value);
    } catch (const std::exception& error) {
        return std::string("throws: ") + error.what();
    }
}

/// Makes `count` values with generate(Numbers&) and calls check(value), which returns an empty text or what
/// is wrong. A value that breaks the property is made smaller as long as one of shrink(value) breaks it too.
/// Returns an empty text, or the finding with the value (where it can be written to a stream) and how to see
/// it again.
template<typename Generate, typename Shrink, typename Check>
std::string forAll(std::uint64_t seed, std::uint64_t count, Generate generate, Shrink shrink, Check check) {
    constexpr int MAX_TRIES = 3000; // at making a value smaller
    seed = propertySetting("KELVRUM_PROPERTY_SEED", seed);
    count = propertySetting("KELVRUM_PROPERTY_COUNT", count);
    for (std::uint64_t i = 0; i < count; ++i) {
        Numbers numbers(seed + i);
        auto value = generate(numbers);
        std::string finding = findingOf(value, check);
        if (finding.empty()) {
            continue;
        }
        int tries = 0;
        int steps = 0;
        for (bool smaller = true; smaller && tries < MAX_TRIES;) {
            smaller = false;
            for (auto& candidate : shrink(value)) {
                if (++tries > MAX_TRIES) {
                    break;
                }
                std::string found = findingOf(candidate, check);
                if (!found.empty()) {
                    value = std::move(candidate);
                    finding = std::move(found);
                    smaller = true;
                    ++steps;
                    break;
                }
            }
        }
        std::ostringstream report;
        report << finding;
        if constexpr (requires { report << value; }) {
            report << "\nfor " << value;
        }
        report << "\nmade smaller " << steps << " times; again with KELVRUM_PROPERTY_SEED=" << seed + i
               << " KELVRUM_PROPERTY_COUNT=1";
        return report.str();
    }
    return {};
}

} // namespace kelvrum::testing
