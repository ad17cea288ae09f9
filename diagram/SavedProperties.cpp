// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/SavedProperties.h"

#include "util/Numbers.h"
#include "util/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <map>

namespace kelvrum {

namespace {

bool isWhole(double v, double low, double high) { return v >= low && v <= high && std::floor(v) == v; }
bool isNumber(double v) { return std::isfinite(v); }
bool isInt32(double v) { return isWhole(v, -2147483648.0, 2147483647.0); }
bool isGridCount(double v) { return isWhole(v, 1, 2147483647.0); }
bool isColour(double v) { return isWhole(v, 0, 4294967295.0); }
bool isBoolean(double v) { return v == 0 || v == 1; }

std::string exactNumber(double v) {
    std::array<char, 400> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), v);
    return {text.data(), result.ptr};
}

} // namespace

std::span<const SavedProperties::Entry> SavedProperties::entries() {
    using State = DiagramProperties;
    using Int = std::int32_t;
    static const std::array<Entry, 18> table = {{
        {"RadRaster", isGridCount, [](const State& s) -> double { return s.RadRaster; },
         [](State& s, double v) { s.RadRaster = static_cast<Int>(v); }},
        {"LongRaster", isGridCount, [](const State& s) -> double { return s.LongRaster; },
         [](State& s, double v) { s.LongRaster = static_cast<Int>(v); }},
        {"Enabled", isBoolean, [](const State& s) -> double { return s.Enabled ? 1 : 0; },
         [](State& s, double v) { s.Enabled = v != 0; }},
        {"Bogenmass", isInt32, [](const State& s) -> double { return s.Bogenmass; },
         [](State& s, double v) { s.Bogenmass = static_cast<Int>(v); }},
        {"AngelOffset", isNumber, [](const State& s) { return s.AngelOffset; },
         [](State& s, double v) { s.AngelOffset = v; }},
        {"DiagTyp", isInt32, [](const State& s) -> double { return s.DiagTyp; },
         [](State& s, double v) { s.DiagTyp = static_cast<Int>(v); }},
        {"Y1Low", isNumber, [](const State& s) { return s.Y1Low; }, [](State& s, double v) { s.Y1Low = v; }},
        {"Y1High", isNumber, [](const State& s) { return s.Y1High; },
         [](State& s, double v) { s.Y1High = v; }},
        {"Y2Low", isNumber, [](const State& s) { return s.Y2Low; }, [](State& s, double v) { s.Y2Low = v; }},
        {"Y2High", isNumber, [](const State& s) { return s.Y2High; },
         [](State& s, double v) { s.Y2High = v; }},
        {"XLow", isNumber, [](const State& s) { return s.XLow; }, [](State& s, double v) { s.XLow = v; }},
        {"XHigh", isNumber, [](const State& s) { return s.XHigh; }, [](State& s, double v) { s.XHigh = v; }},
        {"D1", isColour, [](const State& s) -> double { return s.D1; },
         [](State& s, double v) { s.D1 = static_cast<Colour>(v); }},
        {"D2", isColour, [](const State& s) -> double { return s.D2; },
         [](State& s, double v) { s.D2 = static_cast<Colour>(v); }},
        {"Xaxe", isColour, [](const State& s) -> double { return s.Xaxe; },
         [](State& s, double v) { s.Xaxe = static_cast<Colour>(v); }},
        {"Y1axe", isColour, [](const State& s) -> double { return s.Y1axe; },
         [](State& s, double v) { s.Y1axe = static_cast<Colour>(v); }},
        {"Y2axe", isColour, [](const State& s) -> double { return s.Y2axe; },
         [](State& s, double v) { s.Y2axe = static_cast<Colour>(v); }},
        {"BgCol", isColour, [](const State& s) -> double { return s.BgCol; },
         [](State& s, double v) { s.BgCol = static_cast<Colour>(v); }},
    }};
    return table;
}

double SavedProperties::Entry::standard() const { return get(DiagramProperties()); }

std::string SavedProperties::save(const DiagramProperties& properties) {
    std::string text;
    for (const Entry& entry : entries()) {
        text.append(entry.key).append("=").append(exactNumber(entry.get(properties))).append("\n");
    }
    return text;
}

void SavedProperties::load(std::string_view text, DiagramProperties& properties) {
    std::map<std::string_view, double> values;
    for (const std::string_view line : split(text, '\n')) {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) {
            continue;
        }
        if (const auto value = wholeNumber(line.substr(equals + 1))) {
            values.emplace(trimBlanks(line.substr(0, equals)), *value);
        }
    }
    for (const Entry& entry : entries()) {
        const auto found = values.find(entry.key);
        const bool usable = found != values.end() && entry.accepts(found->second);
        entry.set(properties, usable ? found->second : entry.standard());
    }
}

} // namespace kelvrum
