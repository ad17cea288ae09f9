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
bool number(double v) { return std::isfinite(v); }
bool int32(double v) { return isWhole(v, -2147483648.0, 2147483647.0); }
bool gridCount(double v) { return isWhole(v, 1, 2147483647.0); }
bool colour(double v) { return isWhole(v, 0, 4294967295.0); }
bool boolean(double v) { return v == 0 || v == 1; }

std::string exactNumber(double v) {
    std::array<char, 400> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), v);
    return {text.data(), result.ptr};
}

} // namespace

std::span<const SavedProperties::Entry> SavedProperties::entries() {
    using State = DiagramState;
    using Int = std::int32_t;
    static const std::array<Entry, 18> table = {{
        {"RadRaster", 12, gridCount, [](const State& s) -> double { return s.radRaster_; },
         [](State& s, double v) { s.radRaster_ = static_cast<Int>(v); }},
        {"LongRaster", 10, gridCount, [](const State& s) -> double { return s.longRaster_; },
         [](State& s, double v) { s.longRaster_ = static_cast<Int>(v); }},
        {"Enabled", 1, boolean, [](const State& s) -> double { return s.enabledState() ? 1 : 0; },
         [](State& s, double v) { s.applyEnabled(v != 0); }},
        {"Bogenmass", 0, int32, [](const State& s) -> double { return s.bogenmass_; },
         [](State& s, double v) { s.bogenmass_ = static_cast<Int>(v); }},
        {"AngelOffset", -1.5707963267949, number, [](const State& s) { return s.angelOffset_; },
         [](State& s, double v) { s.angelOffset_ = v; }},
        {"DiagTyp", 0, int32, [](const State& s) -> double { return s.diagTyp_; },
         [](State& s, double v) { s.diagTyp_ = static_cast<Int>(v); }},
        {"Y1Low", 0, number, [](const State& s) { return s.y1Low_; },
         [](State& s, double v) { s.y1Low_ = v; }},
        {"Y1High", 100, number, [](const State& s) { return s.y1High_; },
         [](State& s, double v) { s.y1High_ = v; }},
        {"Y2Low", 0, number, [](const State& s) { return s.y2Low_; },
         [](State& s, double v) { s.y2Low_ = v; }},
        {"Y2High", 100, number, [](const State& s) { return s.y2High_; },
         [](State& s, double v) { s.y2High_ = v; }},
        {"XLow", 37257, number, [](const State& s) { return s.xLow_; },
         [](State& s, double v) { s.xLow_ = v; }},
        {"XHigh", 37258, number, [](const State& s) { return s.xHigh_; },
         [](State& s, double v) { s.xHigh_ = v; }},
        {"D1", RED, colour, [](const State& s) -> double { return s.d1_; },
         [](State& s, double v) { s.d1_ = static_cast<Colour>(v); }},
        {"D2", BLUE, colour, [](const State& s) -> double { return s.d2_; },
         [](State& s, double v) { s.d2_ = static_cast<Colour>(v); }},
        {"Xaxe", BLACK, colour, [](const State& s) -> double { return s.xaxe_; },
         [](State& s, double v) { s.xaxe_ = static_cast<Colour>(v); }},
        {"Y1axe", RED, colour, [](const State& s) -> double { return s.y1axe_; },
         [](State& s, double v) { s.y1axe_ = static_cast<Colour>(v); }},
        {"Y2axe", BLUE, colour, [](const State& s) -> double { return s.y2axe_; },
         [](State& s, double v) { s.y2axe_ = static_cast<Colour>(v); }},
        {"BgCol", WHITE, colour, [](const State& s) -> double { return s.bgCol_; },
         [](State& s, double v) {
             s.bgCol_ = static_cast<Colour>(v);
             s.backgroundChanged();
         }},
    }};
    return table;
}

void SavedProperties::defaults(DiagramState& state) {
    for (const Entry& entry : entries()) {
        entry.set(state, entry.standard);
    }
}

std::string SavedProperties::save(const DiagramState& state) {
    std::string text;
    for (const Entry& entry : entries()) {
        text.append(entry.key).append("=").append(exactNumber(entry.get(state))).append("\n");
    }
    return text;
}

void SavedProperties::load(std::string_view text, DiagramState& state) {
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
        entry.set(state, usable ? found->second : entry.standard);
    }
}

} // namespace kelvrum
