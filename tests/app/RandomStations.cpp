// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/RandomStations.h"

#include "tests/app/WindowFixture.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace kelvrum::testing {

namespace {

/// Records of a day, one every `step` minutes, some of them without a value.
std::string dayFile(int day, int step, std::size_t fields) {
    std::string bytes;
    for (int minute = 0; minute < 1440; minute += step) {
        std::vector<float> values;
        for (std::size_t i = 0; i < fields; ++i) {
            const auto wave = static_cast<float>(std::sin(minute / 100.0 + static_cast<double>(i)));
            const bool marked = minute % 130 < 20 && i % 2 == 0;
            values.push_back(marked ? 99999900.0F : 20 + static_cast<float>(day) * wave);
        }
        values[0] = minute % 70 == 0 ? 0 : values[0];
        values[0] = minute % 350 == 10 ? std::numeric_limits<float>::quiet_NaN() : values[0];
        if (minute < 300 || minute > 420) {
            bytes += dayRecord(2020, 6, day, minute, values);
        }
    }
    return bytes;
}

std::string randomBytes(std::size_t count) {
    std::mt19937 numbers(1); // always the same file
    std::string bytes;
    while (bytes.size() < count) {
        bytes += static_cast<char>(numbers() & 0xFFU);
    }
    return bytes;
}

std::uint64_t setting(const char* name, std::uint64_t usual) {
    bool ok = false;
    const std::uint64_t value = qEnvironmentVariable(name).toULongLong(&ok);
    return ok ? value : usual;
}

/// Lays all of them; returns the files that the user may choose.
QStringList layStations(const TempFolder& root) {
    const MadeStation nord = madeStation();
    std::vector<std::string> files = {root.write("Nord/QEL.ini", nord.ini)};
    for (const auto& [channel, minutes] : nord.minutes) {
        const std::string number = std::string(channel < 10 ? "0" : "").append(std::to_string(channel));
        root.write("Nord/Data/Kanal" + number + "_2020.chn", channelFile(minutes));
    }
    const std::vector<std::string> narrow = {"Ozon", "-", "Druck", "Feuchte"};
    files.push_back(root.write("Schmal/VARNIX.CFG", varnixFile("Schmal", narrow, false)));
    root.write("Schmal/20200618.KMH", dayFile(18, 2, 3));
    root.write("Schmal/20200619.KMH", dayFile(19, 5, 3));
    root.write("Schmal/20200619b.kmh", dayFile(19, 60, 3)); // a second file of the day
    const std::vector<std::string> wide = {"-", "Temperatur", "Wind"};
    files.push_back(root.write("Breit/varnix.cfg", varnixFile("Breit", wide, true)));
    root.write("Breit/20200618.KMH", dayFile(18, 3, 6));
    root.write("Breit/20200619.KMH", dayFile(19, 10, 6) + "torn");
    files.push_back(root.write("Kaputt/QEL.ini", randomBytes(5000)));
    files.push_back(root.write("Kaputt/VARNIX.CFG", varnixFile("Kaputt", narrow, false).substr(0, 6544)));
    files.push_back(root.at("Fort/QEL.ini")); // is not there
    QStringList result;
    for (const std::string& file : files) {
        result << QString::fromStdString(file);
    }
    return QStringList(4, result[0]) + QStringList(2, result[1]) + QStringList(2, result[2]) + result;
}

} // namespace

RandomStations::RandomStations()
    : files_(layStations(root_))
    , current_(root_.path()) {}

Environment RandomStations::environment() const {
    Environment environment;
    environment.today = [] { return TEST_DAY; };
    environment.programFolder = QString::fromStdString(root_.at("Nord"));
    environment.dialogs = dialogs_;
    return environment;
}

std::uint64_t randomSeed() { return setting("KELVRUM_RANDOM_SEED", 20200618); }

std::uint64_t randomActions(std::uint64_t usual) { return setting("KELVRUM_RANDOM_ACTIONS", usual); }

} // namespace kelvrum::testing
