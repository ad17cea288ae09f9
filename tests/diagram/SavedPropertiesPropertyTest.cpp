// SPDX-License-Identifier: GPL-3.0-or-later
// Loading what was saved, for any values that the saved properties take.
#include "diagram/SavedProperties.h"

#include "tests/diagram/TestDiagram.h"
#include "tests/testing/Property.h"

#include <gtest/gtest.h>

#include <bit>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

/// A value for each saved property, in their order.
using Values = std::vector<double>;

double madeValue(Numbers& numbers, const SavedProperties::Entry& entry) {
    for (;;) {
        const double v =
            numbers.oneOf(std::array{entry.standard(), numbers.between(-10, 10), 1.0 * numbers.whole(0, 1),
                                     1.0 * static_cast<double>(numbers.below(1ULL << 32)),
                                     1.0 * numbers.whole(-999, 999), std::bit_cast<double>(numbers.bits())});
        if (entry.accepts(v)) {
            return v;
        }
    }
}

Values madeValues(Numbers& numbers) {
    Values values;
    for (const SavedProperties::Entry& entry : SavedProperties::entries()) {
        values.push_back(madeValue(numbers, entry));
    }
    return values;
}

/// One property back at its default, or smaller.
std::vector<Values> plainerValues(const Values& values) {
    std::vector<Values> plainer;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const SavedProperties::Entry& entry = SavedProperties::entries()[i];
        if (values[i] == entry.standard()) {
            continue;
        }
        plainer.push_back(values);
        plainer.back()[i] = entry.standard();
        for (const double v : smallerNumbers(values[i])) {
            if (entry.accepts(v) && v != entry.standard()) {
                plainer.push_back(values);
                plainer.back()[i] = v;
            }
        }
    }
    return plainer;
}

TEST(SavedPropertiesProperties, LoadingWhatWasSavedGivesTheSameProperties) {
    const auto check = [](const Values& values) -> std::string {
        TestDiagram saved;
        DiagramProperties properties;
        for (std::size_t i = 0; i < values.size(); ++i) {
            SavedProperties::entries()[i].set(properties, values[i]);
        }
        saved.setProperties(properties);
        const std::string text = SavedProperties::save(saved.properties());
        TestDiagram loaded;
        loadSaved(text, loaded);
        for (const SavedProperties::Entry& entry : SavedProperties::entries()) {
            const double before = entry.get(saved.properties());
            const double after = entry.get(loaded.properties());
            if (std::bit_cast<std::uint64_t>(before) != std::bit_cast<std::uint64_t>(after)) {
                return std::string(entry.key) + " is " + std::to_string(after) + " after\n" + text;
            }
        }
        return SavedProperties::save(loaded.properties()) == text ? ""
                                                                  : "the second text differs from\n" + text;
    };
    EXPECT_EQ(forAll(1, 1000, madeValues, plainerValues, check), "");
}

} // namespace
} // namespace kelvrum
