// SPDX-License-Identifier: GPL-3.0-or-later
// Diagrams for tests: a state that records what it asks of its window, and series from literal columns.
#pragma once

#include "diagram/DiagramState.h"
#include "diagram/SavedProperties.h"
#include "diagram/SeriesTable.h"

#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelvrum {

// How a failed test shows them.
inline std::ostream& operator<<(std::ostream& out, const Font& font) {
    return out << font.Name << ' ' << font.Size << (font.Bold ? " bold" : "")
               << (font.Italic ? " italic" : "");
}

namespace testing {

/// Midnight of 1 January 2024, where the series of the tests start.
inline constexpr DateTime DAY = 45292;

struct Column {
    DateTime time;
    double y1;
    double y2 = NoValue;
};

/// Puts the columns into the shared table and tells the state their number.
inline void fillSeries(DiagramState& state, std::span<const Column> columns) {
    SeriesTable& table = seriesTable();
    table.clear();
    table.resize(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        table.set(i, columns[i].time, columns[i].y1, columns[i].y2);
    }
    state.SetArray(static_cast<std::int32_t>(columns.size()));
}

inline void fillSeries(DiagramState& state, std::initializer_list<Column> columns) {
    fillSeries(state, std::span(columns.begin(), columns.size()));
}

/// Sets the saved properties of a control from a text.
inline void loadSaved(std::string_view text, DiagramState& control) {
    DiagramProperties properties = control.properties();
    SavedProperties::load(text, properties);
    control.setProperties(properties);
}

/// A control without a window. The shared table is empty at its start and its end.
class TestDiagram : public DiagramState {
  public:
    TestDiagram() { seriesTable().clear(); }
    ~TestDiagram() override { seriesTable().clear(); }

    /// What the setters requested, in order: "changed KEY", "repaint", "repaint at once", "background".
    std::vector<std::string> events;

    /// The events since the last call.
    std::vector<std::string> take() { return std::exchange(events, {}); }

  protected:
    void requestRepaint() override { events.emplace_back("repaint"); }
    void repaintNow() override { events.emplace_back("repaint at once"); }
    void markChanged(std::string_view key) override { events.push_back("changed " + std::string(key)); }
    void backgroundChanged() override { events.emplace_back("background"); }
};

} // namespace testing
} // namespace kelvrum
