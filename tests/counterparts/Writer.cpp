// SPDX-License-Identifier: GPL-3.0-or-later
// A process to be killed: it runs the program's own code on files.
//     kelvrum_writer wind FOLDER FACTOR     corrects the station in FOLDER/ over two years
//     kelvrum_writer dust FOLDER FACTOR
//     kelvrum_writer save FILE NUMBER       saves settings to FILE again and again, starting with that number
// It writes a line when it begins, and the message of a failure; the exit code is 0 after success.
#include "batchprint/SettingsFile.h"
#include "tests/counterparts/WriterTasks.h"

#include <cstdlib>
#include <iostream>
#include <string>

namespace {

using namespace kelvrum;
using namespace kelvrum::testing;

int correct(CorrectionMode mode, const std::string& folder, double factor) {
    const auto message = recalculate(killedStation(folder), {mode, killedRange(), factor});
    std::cout << message.value_or("") << std::flush;
    return message ? EXIT_FAILURE : EXIT_SUCCESS;
}

int save(const std::string& file, int number) {
    constexpr int SAVINGS = 5000; // more than a killer lets it finish
    for (int i = 0; i < SAVINGS; ++i) {
        static_cast<void>(saveSettings(rowsOfSaving(number + i), file)); // on a full disk all of them fail
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        return EXIT_FAILURE;
    }
    const std::string task = argv[1];
    std::cout << "begun\n" << std::flush;
    if (task == "save") {
        return save(argv[2], std::stoi(argv[3]));
    }
    return correct(task == "wind" ? CorrectionMode::wind : CorrectionMode::dust, argv[2], std::stod(argv[3]));
}
