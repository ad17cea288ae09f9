// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as the saved properties of the diagram.
#include "diagram/SavedProperties.h"
#include "tests/diagram/TestDiagram.h"
#include "tests/fuzz/Fuzzing.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelvrum;
    using fuzzing::require;
    testing::TestDiagram diagram;
    testing::loadSaved({reinterpret_cast<const char*>(data), size}, diagram);
    for (const SavedProperties::Entry& entry : SavedProperties::entries()) {
        const double value = entry.get(diagram.properties());
        require(std::isfinite(value) && entry.accepts(value), "every property holds a value that it takes");
    }
    require(diagram.RadRaster() >= 1 && diagram.LongRaster() >= 1,
            "there is at least one ring and one class");
    const std::string saved = SavedProperties::save(diagram.properties());
    testing::TestDiagram again;
    testing::loadSaved(saved, again);
    require(SavedProperties::save(again.properties()) == saved, "what was saved loads as it was");
    return 0;
}
