// SPDX-License-Identifier: GPL-3.0-or-later
// Shared by the benchmarks of the window: the year in view, and the output of a program's memory use.
#pragma once

#include <QCoreApplication>
#include <QDate>
#include <QDateEdit>
#include <QSignalBlocker>
#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

namespace kelvrum::bench {

/// A figure of this process in kB, as Linux counts it ("VmRSS:", "VmHWM:"); 0 elsewhere.
inline long memoryFigure(std::string_view key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(key)) {
            return std::stol(line.substr(key.size()));
        }
    }
    return 0;
}
/// Resident memory.
inline long residentMemory() { return memoryFigure("VmRSS:"); }

/// Sets the pickers of the main window to the year of the bench station; loads nothing.
inline void showYear(const QObject& window) {
    const auto set = [&window](const char* name, const QDate& date) {
        auto* picker = window.findChild<QDateEdit*>(QString::fromUtf8(name));
        const QSignalBlocker quiet(picker);
        picker->setDate(date);
    };
    set("DTPicker", QDate(2019, 1, 1));
    set("DTPicker2", QDate(2020, 1, 1));
}

/// Lets the window be painted, prints the memory and returns the exit code.
inline int paintAndEnd() {
    QCoreApplication::processEvents();
    std::printf("%ld\n", residentMemory());
    std::fflush(stdout);
    return 0;
}

} // namespace kelvrum::bench
