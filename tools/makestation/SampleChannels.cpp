// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/SampleChannels.h"

namespace kelvrum::sample {

// clang-format off
const std::array<SampleChannel, QUANTITIES> SAMPLE_CHANNELS = {{
    // number, name, short name, unit, comment, tag, limits, mode, paired, KGW limits, derived, step, spread
    { 1, "Vertikalwind", "Vertikalwind", "m/s", "Ultraschall-Anemometer", "WV",
        -5, 5, MODE_MEAN, 0, 0, 0, false, 0.01, 0.6},
    { 2, "Windrichtung", "Windrichtung", "Grad", "Windfahne, gewichtet mit der Geschwindigkeit", "WR",
        0, 360, MODE_WIND_DIRECTION, 4, 0, 0, false, 1, 12},
    { 4, "Windgeschwindigkeit", "Windgeschwindigk.", "m/s", "Schalenkreuz, Anlauf 0,35 m/s", "WG",
        0, 25, MODE_MEAN, 0, 6, 10, false, 0.1, 0.8},
    { 5, "Eichfaktor Wind", "Eichfaktor Wind", "", "Vergleich mit dem Prüfgerät", "WE",
        0.9, 1.1, MODE_MEAN, 0, 0, 0, false, 0.0001, 0},
    { 6, "Windgeschwindigkeit korrigiert", "Wind korrigiert", "m/s", "Geschwindigkeit x Eichfaktor x Faktor", "WK",
        0, 25, MODE_MEAN, 0, 6, 10, true, 0, 0.8},
    { 7, "Staub PM10", "Staub PM10", "µg/m³", "Streulicht", "SP",
        0, 150, MODE_MEAN, 0, 40, 50, false, 0.1, 4},
    { 8, "Lufttemperatur", "Lufttemperatur", "°C", "Pt100 in 2 m Höhe, belüftet", "LT",
        -20, 40, MODE_MEAN, 0, -5, 30, false, 0.01, 0.2},
    { 9, "Luftfeuchte", "Luftfeuchte", "%", "Kapazitiver Fühler", "LF",
        0, 100, MODE_MEAN, 0, 0, 0, false, 0.1, 0.6},
    {10, "Luftdruck", "Luftdruck", "hPa", "Auf Meereshöhe umgerechnet", "LD",
        960, 1050, MODE_MEAN, 0, 0, 0, false, 0.1, 0.1},
    {12, "Niederschlag", "Niederschlag", "mm", "Kippwaage, 0,1 mm je Kippung", "NS",
        0, 10, MODE_SUM, 0, 0, 0, false, 0.1, 0},
    {13, "Windböe", "Windböe", "m/s", "Stärkste Sekunde der Minute", "WB",
        0, 40, MODE_MEAN, 0, 14, 20, false, 0.1, 0.4},
    {14, "Staub PM2,5", "Staub PM2,5", "µg/m³", "Streulicht", "SF",
        0, 100, MODE_MEAN, 0, 15, 25, false, 0.1, 2},
    {15, "Staub PM10 korrigiert", "PM10 korrigiert", "µg/m³", "Staub PM10 x Faktor", "SK",
        0, 150, MODE_MEAN, 0, 40, 50, true, 0, 4},
}};
// clang-format on

} // namespace kelvrum::sample
