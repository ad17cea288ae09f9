// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a sample station; the only place that reads a clock.
#include "tools/makestation/CommandLine.h"

#include <ctime>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char* argv[]) {
    const std::time_t now = std::time(nullptr);
    const std::tm wall = *std::localtime(&now);
    const kelvrum::DateTime moment = kelvrum::dateSerial(wall.tm_year + 1900, wall.tm_mon + 1, wall.tm_mday) +
                                     kelvrum::timeSerial(wall.tm_hour, wall.tm_min);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return kelvrum::sample::makeStation(arguments, moment, std::cerr);
}
